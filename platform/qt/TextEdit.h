#pragma once

#include <QPlainTextEdit>

namespace morvane {

/// A text box without wrapping that Tab leaves, with room for so many letters and lines.
class TextEdit : public QPlainTextEdit {
  Q_OBJECT

 public:
  TextEdit(int letters, int lines, QWidget* parent);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void changeEvent(QEvent* event) override;
  // The toolkit's box takes for granted that what is pasted or dropped has a format at all.
  bool canInsertFromMimeData(const QMimeData* source) const override;
  void insertFromMimeData(const QMimeData* source) override;

 private:
  QSize SizeFor(int letterCount, int lineCount) const;

  int letters;
  int lines;
};

}  // namespace morvane
