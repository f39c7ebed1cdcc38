#include <algorithm>
#include <cstdlib>
#include <iostream>

#include <QApplication>

#include "codegen/qt/GeneratorWindow.h"
#include "platform/qt/QtServices.h"
#include "shell/CommandLine.h"
#include "shell/qt/CMorvaneApp.h"

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

int RunWindow(const CommandLine& line, int argc, char** argv) {
#ifdef Q_OS_LINUX
  if (!IsDisplayNamed()) return ReportNoDisplay();
#endif
  const QtMessageHandler former = qInstallMessageHandler(EndWithoutDisplay);
  const QApplication application(argc, argv);
  qInstallMessageHandler(former);
  QApplication::setApplicationName("Morvane");
  const QtServices services(QtServices::Use::Window);
  const QtGeneratorHost generatorHost;
  CMorvaneApp program;
  if (!program.InitInstance(line.File())) return CommandLine::kFailure;
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  const CommandLine line = CommandLine::Parse({argv + std::min(argc, 1), argv + argc});
  // The arguments are ours alone.
  int ownCount = std::min(argc, 1);
  return line.IsJob() ? RunJob(line, ownCount, argv) : RunWindow(line, ownCount, argv);
}
