#include "platform/qt/QtScriptEngine.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include "drawing/qt/QtText.h"
#include "platform/ScriptLimits.h"
#include "platform/Wording.h"

namespace morvane {

namespace {

constexpr const char* kProgram = "/morvane_script";
constexpr int kStartMilliseconds = 5000;

using How = ScriptResult::How;

ScriptResult ResultOf(const QByteArray& line) {
  const QJsonObject answer = QJsonDocument::fromJson(line).object();
  if (answer.contains("late")) return {How::Late, Worded("takes too long")};
  if (answer.contains("fault"))
    return {How::Fault, Worded(ToBytes(answer.value("fault").toString()))};
  return {How::Value, ToBytes(answer.value("value").toString())};
}

}  // namespace

QtScriptEngine::QtScriptEngine() = default;

QtScriptEngine::~QtScriptEngine() {
  if (process == nullptr) return;
  // It has nothing to save.
  process->kill();
  process->waitForFinished();
}

bool QtScriptEngine::Start() {
  process = std::make_unique<QProcess>();
  process->setProcessChannelMode(QProcess::SeparateChannels);
  process->setStandardErrorFile(QProcess::nullDevice());
  process->start(QCoreApplication::applicationDirPath() + kProgram, QStringList());
  if (process->waitForStarted(kStartMilliseconds)) return true;
  process.reset();
  return false;
}

ScriptResult QtScriptEngine::Run(const std::string& program) {
  if (process == nullptr && !Start())
    return {How::Gone, Worded("the script engine can't be started")};
  const QJsonObject request{{"run", ToQString(program)}};
  process->write(QJsonDocument(request).toJson(QJsonDocument::Compact) + '\n');
  QElapsedTimer timer;
  timer.start();
  while (!process->canReadLine()) {
    const int left = kScriptGraceMilliseconds - static_cast<int>(timer.elapsed());
    if (left > 0 && process->waitForReadyRead(left)) continue;
    const bool runs = process->state() == QProcess::Running;
    process->kill();
    process->waitForFinished();
    process.reset();
    return {How::Gone, runs ? Worded("takes too long") : Worded("takes too much memory")};
  }
  return ResultOf(process->readLine());
}

}  // namespace morvane
