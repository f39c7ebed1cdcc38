#include <QDir>

#include "drawing/qt/QtText.h"

namespace morvane {

namespace {

// Names of any length begin so; nobody wants to see it.
constexpr QStringView kLongForm = u"\\\\?\\";
constexpr QStringView kLongNetworkForm = u"\\\\?\\UNC\\";
constexpr QStringView kNetwork = u"\\\\";

QString WithoutLongForm(const QString& path) {
  if (path.startsWith(kLongNetworkForm, Qt::CaseInsensitive)) {
    return kNetwork.toString() + path.mid(kLongNetworkForm.size());
  }
  return path.startsWith(kLongForm) ? path.mid(kLongForm.size()) : path;
}

}  // namespace

QString ToQPath(const std::string& path) {
  return QDir::fromNativeSeparators(WithoutLongForm(QString::fromStdString(path)));
}

std::string FromQPath(const QString& path) {
  return WithoutLongForm(QDir::toNativeSeparators(path)).toStdString();
}

QString ShownPath(const std::string& path) { return QDir::toNativeSeparators(ToQPath(path)); }

}  // namespace morvane
