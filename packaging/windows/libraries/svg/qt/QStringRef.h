#pragma once

#include <QString>
#include <QStringView>

/// A part of a text as the former version of the toolkit had it. One that is cut out of another one
/// counts from the start of that, not from the start of the whole text.
class QStringRef : public QStringView {
 public:
  QStringRef() = default;
  QStringRef(QStringView part) : QStringView(part) {}
  QStringRef(const QString* text) : QStringView(*text) {}
  QStringRef(const QString* text, qsizetype from, qsizetype count)
      : QStringView(QStringView(*text).mid(from, count)) {}
  QStringRef(const QStringRef* text, qsizetype from, qsizetype count)
      : QStringView(text->mid(from, count)) {}

  const QStringRef* string() const { return this; }
  qsizetype position() const { return 0; }
  /// The reader looks for a sign that ends a number, also in no text at all.
  const QChar* data() const {
    static constexpr QChar end{u'\0'};
    return isNull() ? &end : QStringView::data();
  }
  const QChar* constData() const { return data(); }
  const QChar* unicode() const { return data(); }
};

using QXmlStreamStringRef = QStringRef;
