#include <QFile>

#include "drawing/qt/QtText.h"

namespace morvane {

QString ToQPath(const std::string& path) {
  return QFile::decodeName(QByteArray::fromStdString(path));
}

std::string FromQPath(const QString& path) { return QFile::encodeName(path).toStdString(); }

QString ShownPath(const std::string& path) { return ToQPath(path); }

}  // namespace morvane
