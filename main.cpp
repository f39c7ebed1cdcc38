#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <iostream>

#include <QApplication>

#include "codegen/qt/GeneratorWindow.h"
#include "platform/qt/QtServices.h"
#include "shell/CommandLine.h"
#include "shell/qt/CMorvaneApp.h"
#include "shell/qt/SingleInstance.h"
#include "shell/qt/StartRequests.h"

using namespace morvane;

namespace {

/// Jobs say what they have to say themselves; the toolkit's remarks would spoil the output.
void IgnoreMessage(QtMsgType, const QMessageLogContext&, const QString&) {}

int ReportNoDisplay() {
  std::cerr << "morvane: no display\n";
  return CommandLine::kFailure;
}

/// The toolkit would end the process with a core dump when it can't reach the display.
void EndWithoutDisplay(QtMsgType type, const QMessageLogContext&, const QString&) {
  if (type == QtFatalMsg) std::_Exit(ReportNoDisplay());
}

bool IsDisplayNamed() {
  return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") ||
         qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

int RunJob(const CommandLine& line, int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(IgnoreMessage);
  const QGuiApplication application(argc, argv);
  const QtServices services(QtServices::Use::Job);
  return line.Run(std::cout, std::cerr);
}

/// What ends a process elsewhere is here the error of the call that caused it: a file that grows
/// over its limit, a reader that has gone.
void IgnoreSignals() {
  std::signal(SIGXFSZ, SIG_IGN);
  std::signal(SIGPIPE, SIG_IGN);
}

int RunProgram(const std::string& file, StartRequests& requests) {
  const QtServices services(QtServices::Use::Window);
  const QtGeneratorHost generatorHost;
  CMorvaneApp program;
  if (!program.InitInstance(file)) return CommandLine::kFailure;
  requests.Serve(program.Frame());
  return QApplication::exec();
}

int RunWindow(const CommandLine& line, int argc, char** argv) {
#ifdef Q_OS_LINUX
  if (!IsDisplayNamed()) return ReportNoDisplay();
#endif
  // Before the toolkit takes the tokens for a window of its own.
  const InstanceRequest request = InstanceRequest::ForThisStart(line.File());
  const QtMessageHandler former = qInstallMessageHandler(EndWithoutDisplay);
  const QApplication application(argc, argv);
  qInstallMessageHandler(former);
  QApplication::setApplicationName("Morvane");
  StartRequests requests;
  SingleInstance instance([&requests](const InstanceRequest& later) { requests.Add(later); });
  using Wish = SingleInstance::Wish;
  if (instance.Begin(request, line.IsNewInstance() ? Wish::Stay : Wish::HandOver)) {
    return CommandLine::kSuccess;
  }
  const int status = RunProgram(line.File(), requests);
  instance.End();
  requests.HandOn();
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  IgnoreSignals();
  const CommandLine line = CommandLine::Parse({argv + std::min(argc, 1), argv + argc});
  // The arguments are ours alone.
  int ownCount = std::min(argc, 1);
  return line.IsJob() ? RunJob(line, ownCount, argv) : RunWindow(line, ownCount, argv);
}
