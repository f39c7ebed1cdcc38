#include "platform/qt/QtShellOpen.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

#include "drawing/qt/QtText.h"

namespace morvane {

namespace {

OpenResult Open(const QUrl& url) {
  return QDesktopServices::openUrl(url) ? OpenResult::Opened : OpenResult::NoProgram;
}

}  // namespace

OpenResult QtShellOpen::OpenFile(const std::string& path) {
  const QString file = ToQPath(path);
  if (!QFileInfo::exists(file)) return OpenResult::NotFound;
  return Open(QUrl::fromLocalFile(file));
}

OpenResult QtShellOpen::OpenWeb(const std::string& address) {
  return Open(QUrl(ToQString(address)));
}

}  // namespace morvane
