// Runs pieces of script for the designer, in a process of its own that can be given up: a line of
// JSON comes in for each piece, {"run": "..."}, and a line goes out, {"value": "..."},
// {"fault": "..."} or {"late": true}.

#include <condition_variable>
#include <iostream>
#include <mutex>
#include <string>
#include <thread>

#ifdef __unix__
#include <sys/resource.h>
#endif

#include <QCoreApplication>
#include <QJSEngine>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

#include "platform/ScriptLimits.h"

namespace {

using namespace morvane;

void LimitMemory() {
#if defined(__unix__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
  const rlimit limit{kScriptBytes, kScriptBytes};
  setrlimit(RLIMIT_DATA, &limit);
  const rlimit none{0, 0};
  setrlimit(RLIMIT_CORE, &none);
#endif
}

/// Interrupts the engine when a piece takes too long.
class Watch {
 public:
  explicit Watch(QJSEngine& engine) : engine(engine), thread([this] { Run(); }) {}
  ~Watch() {
    {
      const std::lock_guard guard(lock);
      ended = true;
    }
    changed.notify_one();
    thread.join();
  }
  /// Whether the piece was interrupted.
  bool IsLate() const { return engine.isInterrupted(); }

 private:
  void Run() {
    std::unique_lock guard(lock);
    const auto limit = std::chrono::milliseconds(kScriptMilliseconds);
    if (!changed.wait_for(guard, limit, [this] { return ended; })) engine.setInterrupted(true);
  }

  QJSEngine& engine;
  std::mutex lock;
  std::condition_variable changed;
  bool ended = false;
  std::thread thread;
};

QJsonObject Answer(QJSEngine& engine, const QString& program) {
  engine.setInterrupted(false);
  QJSValue value;
  QString text;
  QStringList thrownAt;
  bool late = false;
  {
    const Watch watch(engine);
    value = engine.evaluate(program, QString(), 1, &thrownAt);
    // It may run a function of its own to become text.
    if (!value.isUndefined()) text = value.toString();
    late = watch.IsLate();
  }
  engine.setInterrupted(false);
  if (late) return {{"late", true}};
  if (value.isError() || !thrownAt.isEmpty()) return {{"fault", text}};
  if (text.size() > kScriptAnswerBytes) return {{"fault", "the answer is too long"}};
  return {{"value", text}};
}

}  // namespace

#ifdef __SANITIZE_ADDRESS__
/// What watches the memory in such a build has more than the limit from the start, and one of its
/// own.
extern "C" const char* __asan_default_options() { return "hard_rss_limit_mb=1024"; }
#endif

int main(int argc, char** argv) {
  LimitMemory();
  const QCoreApplication application(argc, argv);
  QJSEngine engine;
  for (std::string line; std::getline(std::cin, line);) {
    const QJsonDocument request = QJsonDocument::fromJson(QByteArray::fromStdString(line));
    const QJsonObject answer = Answer(engine, request.object().value("run").toString());
    std::cout << QJsonDocument(answer).toJson(QJsonDocument::Compact).toStdString() << std::endl;
  }
  return 0;
}
