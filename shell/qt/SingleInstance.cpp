#include "shell/qt/SingleInstance.h"

#include <chrono>

#include <QDeadlineTimer>
#include <QLocalSocket>
#include <QTimer>

#include "shell/qt/DesktopSession.h"

namespace morvane {

namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

// Three steps, so that a request whose start has given up is nobody's twice.
constexpr QByteArrayView kTaken = "taken\n";
constexpr QByteArrayView kGo = "go\n";
/// A start that has decided to be the one keeps the lock until it can answer.
constexpr milliseconds kStartTime = seconds(10);

}  // namespace

SingleInstance::SingleInstance(Handler taker, const InstancePlace& place)
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
  socket.connectToServer(LinkTarget(link));
  if (!socket.waitForConnected(left())) return Answer::None;
  if (wish == Wish::Stay || !request.CanBeSent()) return Answer::Busy;
  socket.write(QByteArray::fromStdString(request.Encode()));
  while (socket.bytesToWrite() > 0 && socket.waitForBytesWritten(left())) {
  }
  while (socket.bytesAvailable() < kTaken.size() && socket.waitForReadyRead(left())) {
  }
  if (socket.readAll() != kTaken) return Answer::None;
  LetRunningCopyForward();
  socket.write(kGo.data(), kGo.size());
  return socket.waitForBytesWritten(left()) ? Answer::Taken : Answer::None;
}

void SingleInstance::Listen() {
  const QString former = LinkTarget(link);
  const QString own = OwnServer(link);
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
