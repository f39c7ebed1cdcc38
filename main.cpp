#include <algorithm>
#include <cstdlib>
#include <iostream>

#include <QApplication>

#include "codegen/qt/GeneratorWindow.h"
#include "platform/ThisProcess.h"
#include "platform/ThisProgram.h"
#include "platform/qt/QtServices.h"
#include "shell/CommandLine.h"
#include "shell/qt/CMorvaneApp.h"
#include "shell/qt/DesktopSession.h"
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

int RunJob(const CommandLine& line, int argc, char** argv) {
  JoinConsole();
  UseBytesInStandardStreams();
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(IgnoreMessage);
  const QGuiApplication application(argc, argv);
  const QtServices services(QtServices::Use::Job);
  return line.Run(std::cout, std::cerr);
}

int RunProgram(const std::string& file, StartRequests& requests) {
  const QtServices services(QtServices::Use::Window);
  const QtGeneratorHost generatorHost;
  RegisterFileTypes();
  CMorvaneApp program;
  if (!program.InitInstance(file)) return CommandLine::kFailure;
  requests.Serve(program.Frame());
  return QApplication::exec();
}

int RunWindow(const CommandLine& line, int argc, char** argv) {
  if (!IsDisplayNamed()) return ReportNoDisplay();
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
  LetCallsReportFailures();
  const CommandLine line = CommandLine::Parse(ProgramArguments(argc, argv));
  // The arguments are ours alone.
  int ownCount = std::min(argc, 1);
  return line.IsJob() ? RunJob(line, ownCount, argv) : RunWindow(line, ownCount, argv);
}
