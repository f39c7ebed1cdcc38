#include "shell/RunJobs.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <ostream>
#include <span>
#include <string>
#include <vector>

#include "machine/MachineBuilder.h"
#include "persistence/ModelFile.h"
#include "platform/Files.h"
#include "platform/TailFile.h"
#include "resources/Texts.h"
#include "shell/Arguments.h"
#include "shell/CommandLine.h"
#include "simulation/Coverage.h"
#include "simulation/Replay.h"
#include "simulation/Simulation.h"
#include "simulation/TestReport.h"
#include "surface/ChartPicture.h"
#include "surface/LayoutMgr.h"
#include "surface/RunMarks.h"

namespace morvane {

namespace {

using Look = RunMarks::Look;

constexpr int kSuccess = CommandLine::kSuccess;
constexpr int kFailure = CommandLine::kFailure;
constexpr int kWrongUse = CommandLine::kWrongUse;
constexpr std::size_t kPiece = std::size_t{1} << 20;

/// The machine of a chart; nothing, with what is wrong said, if it is none.
std::optional<Machine> MachineOf(const std::string& path, std::ostream& err) {
  BuiltMachine built = MachineBuilder::FromFile(path);
  if (built.machine) return std::move(built.machine);
  for (const Problem& problem : built.problems) err << FormatProblem(path, problem) << '\n';
  return std::nullopt;
}

/// Feeds a whole trace; false, with the reason said, if it can't be read.
bool FeedTrace(const std::string& path, Replay& replay, std::ostream& err) {
  TailFile file(path);
  for (std::string piece; file.Read(piece, kPiece); piece.clear()) replay.Feed(piece);
  if (file.Reason().empty()) {
    replay.Finish();
    return true;
  }
  err << path << ": " << file.Reason() << '\n';
  return false;
}

/// Paints a chart with the states that are active at the end of a run.
int ExportRun(const std::string& path, const std::string& out, const Run& run, std::ostream& err) {
  const auto fail = [&err](const std::string& file, const std::string& reason) {
    err << file << ": " << reason << '\n';
    return kFailure;
  };
  try {
    LayoutMgr chart;
    const std::string problem = ModelFile::Load(path, chart);
    if (!problem.empty()) return fail(path, problem);
    chart.PlaceWithoutWindow(LayoutMgr::Size::Normal);
    std::vector<RunMarks::Mark> marks;
    const std::vector<int> active = run.History().ActiveStatesAt(run.History().Size());
    for (const int state : active) {
      const std::int32_t id = run.TheMachine().states[static_cast<std::size_t>(state)].id;
      marks.push_back({id, state == active.front() ? Look::Active : Look::Around});
    }
    const int taken = run.History().TakenAt(run.History().Size());
    if (taken != MachineState::kNone) {
      marks.push_back(
          {run.TheMachine().transitions[static_cast<std::size_t>(taken)].id, Look::Taken});
    }
    chart.GetRunMarks().Set(std::move(marks));
    const std::string reason = ChartPicture(chart).Save(out);
    return reason.empty() ? kSuccess : fail(out, reason);
  } catch (const std::exception&) {
    return fail(path, LoadText(IDS_UNKNOWN_ERROR));
  }
}

/// Runs the tests of one chart into the report; false, with the reason said, if that can't be done.
bool RunTests(const std::string& path, TestReport& report, std::ostream& err) {
  const std::optional<Machine> machine = MachineOf(path, err);
  if (!machine) return false;
  const std::string tests = ChartTestFile::PathFor(path);
  std::string text;
  const FileResult read = ReadWholeFile(tests, text);
  if (!read.Ok()) {
    err << tests << ": " << read.ErrorText() << '\n';
    return false;
  }
  const ChartTestFile file = ChartTestFile::Parse(text);
  for (const std::string& fault : file.faults) err << tests << ':' << fault << '\n';
  if (!file.faults.empty()) return false;
  const std::string name = FileNameOf(path);
  report.Add(tests, name.substr(0, name.rfind('.')), TestRun(*machine).ExecuteAll(file.cases));
  return true;
}

}  // namespace

int RunJobs::Simulate(Arguments& arguments, std::ostream& out, std::ostream& err) {
  const std::vector<std::string>& words = arguments.Operands();
  const std::optional<Machine> machine = MachineOf(words[0], err);
  if (!machine) return kFailure;
  int status = kSuccess;
  const auto ask = [&](const MachineTransition& transition, const std::string& reason) {
    err << words[0] << ':' << transition.line << ": the guard of transition " << transition.id
        << " is taken as false: " << reason << '\n';
    status = kFailure;
    return false;
  };
  Simulation simulation(*machine, Service<ScriptEngines>::Get().Start(), ask);
  simulation.Start();
  for (const std::string& name : std::span(words).subspan(1)) {
    const std::optional<int> event = simulation.Format().FindEvent(name);
    if (!event) {
      err << words[0] << ": the chart has no event \"" << name << "\"\n";
      return kFailure;
    }
    simulation.Send(*event);
  }
  for (std::size_t i = 0; i < simulation.History().Size(); ++i) {
    out << simulation.TextOf(i) << '\n';
  }
  return status;
}

int RunJobs::Replay(Arguments& arguments, std::ostream& out, std::ostream& err) {
  const std::string& trace = arguments.Operands()[0];
  const std::string& file = arguments.Operands()[1];
  const std::string picture = arguments.Value("--export");
  if (!picture.empty() && ChartPicture::KindOf(picture) == nullptr) {
    err << picture << ": " << LoadText(IDS_PICTURE_KIND) << '\n';
    return kWrongUse;
  }
  const std::optional<Machine> machine = MachineOf(file, err);
  if (!machine) return kFailure;
  morvane::Replay replay(*machine);
  if (!FeedTrace(trace, replay, err)) return kFailure;
  if (replay.Where()) out << trace << ": " << replay.PartingText() << '\n';
  if (replay.History().Size() == 0) err << trace << ": this is no trace\n";
  const bool follows = !replay.Where() && replay.History().Size() > 0;
  const int painted = picture.empty() ? kSuccess : ExportRun(file, picture, replay, err);
  return follows ? painted : kFailure;
}

int RunJobs::Coverage(Arguments& arguments, std::ostream& out, std::ostream& err) {
  constexpr double whole = 100;
  const double least = arguments.Number(kLeast, 0, whole).value_or(0);
  if (!arguments.Problem().empty()) return kWrongUse;
  const std::vector<std::string>& words = arguments.Operands();
  const std::optional<Machine> machine = MachineOf(words[0], err);
  if (!machine) return kFailure;
  morvane::Coverage coverage(*machine);
  bool isSound = true;
  for (const std::string& path : std::span(words).subspan(1)) {
    morvane::Replay replay(*machine);
    if (!FeedTrace(path, replay, err)) return kFailure;
    if (replay.Where()) err << path << ": " << replay.PartingText() << '\n';
    isSound = isSound && !replay.Where();
    const std::size_t end = replay.Where() ? replay.Where()->place : replay.History().Size();
    coverage.Add(replay.History(), end);
  }
  out << coverage.Report(words[0]);
  return isSound && coverage.Whole().Percent() >= least ? kSuccess : kFailure;
}

int RunJobs::Test(Arguments& arguments, std::ostream& out, std::ostream& err) {
  TestReport report(arguments.Has(kJUnit) ? TestReport::Form::JUnit : TestReport::Form::Tap);
  bool isSound = true;
  for (const std::string& path : arguments.Operands()) {
    isSound = RunTests(path, report, err) && isSound;
  }
  out << report.Text();
  return isSound && !report.HasFailed() ? kSuccess : kFailure;
}

}  // namespace morvane
