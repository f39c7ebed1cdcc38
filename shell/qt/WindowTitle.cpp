#include "shell/qt/WindowTitle.h"

#include "drawing/qt/QtText.h"
#include "persistence/CDocument.h"

namespace morvane {

namespace {

/// The place of the mark in a title; twice, it stands for itself.
constexpr QLatin1String kMark("[*]");

}  // namespace

QString MarkedTitle(const CDocument& document) {
  QString title = ToQString(document.GetTitle());
  title.replace(kMark, QString(kMark) + kMark);
  return title + kMark;
}

QString MarkedInnerTitle(const CDocument& document) {
  // While such a window is modified, the toolkit takes every place for one of the mark. A sign that
  // isn't seen keeps it from finding any in the name.
  QString title = ToQString(document.GetTitle());
  title.replace(kMark, QStringLiteral("[\u2060*]"));
  return title + kMark;
}

QString MenuTitle(const CDocument& document) {
  QString title = ToQString(document.GetTitle());
  title.replace('&', "&&");
  return document.HasUnsavedMark() ? title + '*' : title;
}

}  // namespace morvane
