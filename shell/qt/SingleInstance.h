#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include <QLocalServer>
#include <QLockFile>

#include "shell/InstanceRequest.h"
#include "shell/qt/InstancePlace.h"

namespace morvane {

/// The copy of the program that the other starts of its user on its display find: they hand over
/// what they were started for and end. The copies meet at a server of a process's own, to which a
/// link leads; a link to a process that is gone, or that does not answer, is turned to the next.
class SingleInstance : public QObject {
  Q_OBJECT

 public:
  /// Takes the request of a later start. It must not wait for the user.
  using Handler = std::function<void(const InstanceRequest&)>;
  enum class Wish {
    HandOver,  ///< let the copy that runs do it
    Stay       ///< open a window here in any case
  };

  explicit SingleInstance(Handler handler, const InstancePlace& place = InstancePlace::Default());
  ~SingleInstance() override;

  /// True if the copy that runs has taken the request over; then this process has nothing left to
  /// do. Otherwise this process is the one that later starts find, unless it stays beside another.
  /// They wait until its event loop runs.
  bool Begin(const InstanceRequest& request, Wish wish = Wish::HandOver);
  /// From now on nobody finds this process.
  void End();

 private:
  enum class Answer { None, Busy, Taken };
  /// Another start on a connection, from its first byte on.
  struct Guest {
    InstanceRequestReader reader;
    bool answered = false;
  };

  Answer Ask(const InstanceRequest& request, Wish wish) const;
  void Listen();
  void OnConnection();
  void Read(QLocalSocket& socket, Guest& guest);

  Handler handler;
  std::chrono::milliseconds answerTime;
  QString link;  ///< the path that leads to the server; empty where nobody can meet
  std::unique_ptr<QLockFile> deciding;
  QLocalServer server;
};

}  // namespace morvane
