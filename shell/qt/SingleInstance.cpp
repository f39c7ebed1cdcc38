#include "shell/qt/SingleInstance.h"

#include <cerrno>
#include <chrono>
#include <sys/stat.h>
#include <unistd.h>

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QTimer>

namespace morvane {

namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

// Three steps, so that a request whose start has given up is nobody's twice.
constexpr QByteArrayView kTaken = "taken\n";
constexpr QByteArrayView kGo = "go\n";
/// A start that has decided to be the one keeps the lock until it can answer.
constexpr milliseconds kStartTime = seconds(10);
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

/// Turns the link to another file in one step.
bool TurnLink(const QString& link, const QString& target) {
  const QByteArray made = QFile::encodeName(target + ".link");
  const QByteArray to = QFile::encodeName(target);
  unlink(made.constData());
  return symlink(to.constData(), made.constData()) == 0 &&
         rename(made.constData(), QFile::encodeName(link).constData()) == 0;
}

/// A path for the socket of this process.
QString OwnSocket(const QString& link) {
  static int made = 0;
  const QString own = QStringLiteral("%1.%2").arg(link).arg(getpid());
  return made++ == 0 ? own : QStringLiteral("%1.%2").arg(own).arg(made);
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

SingleInstance::SingleInstance(Handler taker, InstancePlace place)
    : handler(std::move(taker)), answerTime(place.answerTime) {
  if (!place.folder.isEmpty()) link = place.folder + '/' + place.name;
  server.setSocketOptions(QLocalServer::UserAccessOption);
  connect(&server, &QLocalServer::newConnection, this, &SingleInstance::OnConnection);
}

SingleInstance::~SingleInstance() { End(); }

bool SingleInstance::Begin(const InstanceRequest& request, Wish wish) {
  if (link.isEmpty()) return false;
  deciding = std::make_unique<QLockFile>(link + ".lock");
  if (!deciding->tryLock(static_cast<int>(kStartTime.count()))) {
    deciding.reset();
    return false;
  }
  const Answer answer = Ask(request, wish);
  if (answer == Answer::None) Listen();
  if (answer == Answer::None && server.isListening()) {
    QTimer::singleShot(0, this, [this] { deciding.reset(); });
  } else {
    deciding.reset();
  }
  return answer == Answer::Taken;
}

/// A request that can't be sent, or mustn't, still finds out whether somebody is there.
SingleInstance::Answer SingleInstance::Ask(const InstanceRequest& request, Wish wish) const {
  const QDeadlineTimer deadline(answerTime);
  const auto left = [&deadline] { return static_cast<int>(deadline.remainingTime()); };
  QLocalSocket socket;
  socket.connectToServer(link);
  if (!socket.waitForConnected(left())) return Answer::None;
  if (wish == Wish::Stay || !request.CanBeSent()) return Answer::Busy;
  socket.write(QByteArray::fromStdString(request.Encode()));
  while (socket.bytesToWrite() > 0 && socket.waitForBytesWritten(left())) {
  }
  while (socket.bytesAvailable() < kTaken.size() && socket.waitForReadyRead(left())) {
  }
  if (socket.readAll() != kTaken) return Answer::None;
  socket.write(kGo.data(), kGo.size());
  return socket.waitForBytesWritten(left()) ? Answer::Taken : Answer::None;
}

void SingleInstance::Listen() {
  const QString former = QFile::symLinkTarget(link);
  const QString own = OwnSocket(link);
  QLocalServer::removeServer(own);  // of an earlier process with the same number
  if (!server.listen(own)) return;
  if (!TurnLink(link, own)) {
    server.close();
    return;
  }
  // Of a process that is gone. One that only hangs would be found no more in any case.
  if (!former.isEmpty() && former != own) QLocalServer::removeServer(former);
}

void SingleInstance::End() {
  server.close();
  deciding.reset();
}

void SingleInstance::OnConnection() {
  while (QLocalSocket* socket = server.nextPendingConnection()) {
    connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    const auto guest = std::make_shared<Guest>();
    connect(socket, &QLocalSocket::readyRead, this,
            [this, socket, guest] { Read(*socket, *guest); });
    Read(*socket, *guest);
  }
}

void SingleInstance::Read(QLocalSocket& socket, Guest& guest) {
  if (guest.answered) {
    if (socket.bytesAvailable() < kGo.size()) return;
    const bool go = socket.readAll() == kGo;
    socket.abort();
    if (go) handler(guest.reader.Request());
    return;
  }
  switch (guest.reader.Add(socket.readAll().toStdString())) {
    case InstanceRequestReader::State::Partial: break;
    case InstanceRequestReader::State::Damaged: socket.abort(); break;
    case InstanceRequestReader::State::Complete:
      guest.answered = true;
      socket.write(kTaken.data(), kTaken.size());
      break;
  }
}

}  // namespace morvane
