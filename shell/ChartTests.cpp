#include "shell/ChartTests.h"

#include "persistence/ModelFile.h"
#include "platform/Files.h"
#include "resources/Texts.h"
#include "shell/ChartRun.h"
#include "simulation/Simulation.h"

namespace morvane {

namespace {

constexpr const char* kUnsaved = "Save the chart first: its tests stand in a file beside it";

}  // namespace

std::string ChartTests::Path() const {
  return chart.empty() ? std::string() : ChartTestFile::PathFor(chart);
}

ChartTests::Result ChartTests::Execute(const Machine& machine) const {
  if (chart.empty()) return {{}, Translate(kUnsaved)};
  std::string text;
  const FileResult read = ReadWholeFile(Path(), text);
  if (!read.Ok()) return {{}, Path() + ": " + read.ErrorText()};
  const ChartTestFile file = ChartTestFile::Parse(text);
  if (!file.faults.empty()) return {{}, Path() + ':' + file.faults.front()};
  return {TestRun(machine).ExecuteAll(file.cases), {}};
}

std::string ChartTests::Record(const ChartRun& run, const std::string& name) const {
  if (chart.empty()) return Translate(kUnsaved);
  if (run.AsSimulation() == nullptr) return {};
  std::string text;
  // A first case makes the file; one that is there and can't be read must not be lost.
  const FileResult read = ReadWholeFile(Path(), text);
  constexpr int noSuchFile = 2;
  if (!read.Ok() && read.error != noSuchFile) return Path() + ": " + read.ErrorText();
  if (!text.empty() && text.back() != '\n') text += '\n';
  text += ChartTestFile::TextOf(TestRun::Record(*run.AsSimulation(), name));
  return ModelFile::ReasonOf(ReplaceWholeFile(Path(), text));
}

}  // namespace morvane
