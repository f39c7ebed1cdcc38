#include "machine/MachineBuilder.h"

#include <exception>
#include <utility>

#include "machine/ChartIndex.h"
#include "machine/ChartReader.h"
#include "machine/FlowCheck.h"
#include "machine/Names.h"
#include "machine/Nesting.h"
#include "machine/ProblemList.h"
#include "machine/StructureBuilder.h"
#include "persistence/ModelFile.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

/// Runs the phases up to the first that finds errors.
std::optional<Machine> Build(const std::string& text, ProblemList& problems) {
  const DrawnChart chart = ChartReader::Read(text);
  const ChartIndex index(chart, problems);
  if (problems.HasErrors()) return {};
  const std::vector<int> parents = Nesting(chart.states, problems).Parents();
  if (problems.HasErrors()) return {};
  Structure structure = StructureBuilder::Build(chart, index, parents, problems);
  if (problems.HasErrors()) return {};
  FlowCheck::Warn(structure, problems);
  Names::Give(structure, problems);
  return std::move(structure.machine);
}

BuiltMachine Refused(std::string reason) {
  ProblemList problems;
  problems.Error(std::move(reason));
  return {{}, problems.Sorted()};
}

/// From a text with LF between the lines.
BuiltMachine FromLines(const std::string& text) {
  try {
    BuiltMachine built;
    ProblemList problems;
    built.machine = Build(text, problems);
    built.problems = problems.Sorted();
    return built;
  } catch (const std::string& reason) {
    return Refused(reason);
  } catch (const std::exception&) {
    return Refused(LoadText(IDS_UNKNOWN_ERROR));
  }
}

}  // namespace

BuiltMachine MachineBuilder::FromText(const std::string& text) {
  return FromLines(ModelFile::FromDisk(ModelFile::WithoutMark(text)));
}

BuiltMachine MachineBuilder::FromFile(const std::string& path) {
  std::string text;
  const std::string reason = ModelFile::ReadText(path, text);
  return reason.empty() ? FromLines(text) : Refused(reason);
}

}  // namespace morvane
