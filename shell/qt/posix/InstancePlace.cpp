#include "shell/qt/InstancePlace.h"

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QStandardPaths>

namespace morvane {

namespace {

/// A socket's path has to have fewer than 108 bytes, and a process number comes behind the link's.
constexpr qsizetype kLongestLink = 90;
constexpr qsizetype kShownDisplay = 16;
constexpr qsizetype kHashDigits = 8;

/// The user, and the display as far as a file name can tell it; a hash tells the rest.
QString NameOfDisplay() {
  const QString platform = QGuiApplication::platformName();
  const QByteArray display =
      qgetenv(platform.startsWith("wayland") ? "WAYLAND_DISPLAY" : "DISPLAY");
  QString shown = QString::fromLatin1(display.right(kShownDisplay));
  for (QChar& c : shown) {
    if (!(c.isLetterOrNumber() && c.unicode() < 0x80) && c != '.' && c != '-') c = u'_';
  }
  const QByteArray whole = platform.toUtf8() + '\n' + display;
  const QByteArray hash = QCryptographicHash::hash(whole, QCryptographicHash::Sha1).toHex();
  return QStringLiteral("morvane-%1-%2-%3")
      .arg(getuid())
      .arg(shown, QString::fromLatin1(hash.left(kHashDigits)));
}

/// A folder that is the user's alone, made where it is missing; false if it can't be had.
bool IsPrivateFolder(const QString& path) {
  const QByteArray name = QFile::encodeName(path);
  if (mkdir(name.constData(), S_IRWXU) != 0 && errno != EEXIST) return false;
  struct stat about = {};
  return lstat(name.constData(), &about) == 0 && S_ISDIR(about.st_mode) &&
         about.st_uid == getuid() && (about.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

bool HasRoom(const QString& folder, const QString& name) {
  return QFile::encodeName(folder).size() + 1 + name.size() <= kLongestLink;
}

}  // namespace

InstancePlace InstancePlace::Default() {
  const QString name = NameOfDisplay();
  if (!qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (!folder.isEmpty() && HasRoom(folder, name)) return {folder, name};
  }
  const QString folder = QStringLiteral("%1/morvane-%2").arg(QDir::tempPath()).arg(getuid());
  const bool usable = HasRoom(folder, name) && IsPrivateFolder(folder);
  return {usable ? folder : QString(), name};
}

QString LinkTarget(const QString& link) { return QFile::symLinkTarget(link); }

bool TurnLink(const QString& link, const QString& target) {
  const QByteArray made = QFile::encodeName(target + ".link");
  const QByteArray to = QFile::encodeName(target);
  unlink(made.constData());
  return symlink(to.constData(), made.constData()) == 0 &&
         rename(made.constData(), QFile::encodeName(link).constData()) == 0;
}

QString OwnServer(const QString& link) {
  static int made = 0;
  const QString own = QStringLiteral("%1.%2").arg(link).arg(getpid());
  return made++ == 0 ? own : QStringLiteral("%1.%2").arg(own).arg(made);
}

}  // namespace morvane
