#pragma once

#include <QThread>

#include "shell/qt/SingleInstance.h"
#include "tests/support/Places.h"
#include "tests/ui/WindowTest.h"

namespace morvane {

using std::chrono::milliseconds;
using Requests = std::vector<InstanceRequest>;

/// Starts meet in a folder of the test's own.
class SingleInstanceTest : public testing::Test {
 protected:
  InstancePlace Place(milliseconds answerTime = std::chrono::minutes(1)) const {
    return {QString::fromStdString(folder.Root().string()), "meet", answerTime};
  }
  QString Link() const { return QString::fromStdString(folder.Path("meet")); }
  SingleInstance::Handler Into(Requests& requests) {
    return [&requests](const InstanceRequest& request) { requests.push_back(request); };
  }
  /// Does something like another process: in a thread of its own, while this one runs its loop, or
  /// while it hangs.
  template <class Act>
  static void Elsewhere(const Act& act, bool hangs = false) {
    const std::unique_ptr<QThread> thread(QThread::create(act));
    QEventLoop loop;
    QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    thread->start();
    if (!hangs) loop.exec();
    thread->wait();
  }
  /// Another start, which ends; true if it handed its request over.
  bool StartElsewhere(const InstanceRequest& request, bool hangs = false,
                      milliseconds answerTime = std::chrono::minutes(1)) {
    bool handedOver = false;
    Elsewhere(
        [&] {
          SingleInstance other([](const InstanceRequest&) {}, Place(answerTime));
          handedOver = other.Begin(request);
        },
        hangs);
    return handedOver;
  }
  std::size_t Files() const {
    return static_cast<std::size_t>(
        std::distance(std::filesystem::directory_iterator(folder.Root()), {}));
  }
  /// What stands in the place of the link, but leads to no process, keeps nobody off.
  void ExpectTakesThePlaceOf(const std::vector<std::function<void()>>& leftovers,
                             std::size_t files) {
    for (const auto& leave : leftovers) {
      leave();
      Requests taken;
      SingleInstance first(Into(taken), Place());
      EXPECT_FALSE(first.Begin({}));
      QApplication::processEvents();
      EXPECT_EQ(Files(), files);
      EXPECT_TRUE(StartElsewhere({folder.Path("z"), "", ""}));
      EXPECT_EQ(taken.size(), 1U);
      first.End();
      std::filesystem::remove(folder.Path("meet"));
    }
  }

  const TempFolder folder;
};

/// Processes of the real program, which end with the test.
class StartedPrograms {
 public:
  StartedPrograms() = default;
  ~StartedPrograms() {
    for (const auto& process : started) {
      process->kill();
      process->waitForFinished();
    }
  }
  StartedPrograms(const StartedPrograms&) = delete;
  StartedPrograms& operator=(const StartedPrograms&) = delete;

  /// In a working folder, with values of its own for some variables.
  QProcess& Start(const QStringList& arguments, const std::string& folder,
                  const std::map<QString, std::string>& variables) {
    started.push_back(std::make_unique<QProcess>());
    QProcess& process = *started.back();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const auto& [name, value] : variables) {
      environment.insert(name, QString::fromStdString(value));
    }
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(QString::fromStdString(folder));
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(QString::fromStdString(DesignerPath()), arguments);
    EXPECT_TRUE(process.waitForStarted());
    return process;
  }
  /// The first of two processes that ends.
  static QProcess& WaitForOne(QProcess& a, QProcess& b) {
    RunUntil([&] { return a.state() != QProcess::Running || b.state() != QProcess::Running; });
    return a.state() == QProcess::Running ? b : a;
  }

 private:
  std::vector<std::unique_ptr<QProcess>> started;
};

}  // namespace morvane
