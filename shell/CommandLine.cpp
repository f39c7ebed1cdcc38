#include "shell/CommandLine.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <ostream>

#include "checks/CheckReport.h"
#include "exchange/ScxmlImport.h"
#include "generators/Generate.h"
#include "persistence/ModelFile.h"
#include "platform/Files.h"
#include "resources/Texts.h"
#include "resources/Version.h"
#include "shell/ReviewJobs.h"
#include "shell/RunJobs.h"
#include "surface/ChartPicture.h"
#include "surface/LayoutMgr.h"

namespace morvane {

namespace {

constexpr const char* kUsage =
    "usage: morvane [FILE]                open the designer, on FILE if given; a designer\n"
    "                                     that runs already opens it\n"
    "       morvane --new-instance [FILE] open a designer of its own\n"
    "       morvane --convert OUT FILE    read FILE, write it as model text\n"
    "       morvane --export OUT FILE     draw the whole chart; OUT ends in .png, .svg,\n"
    "                                     .pdf or .emf\n"
    "       morvane --generate LANGUAGE [-o FOLDER] FILE\n"
    "                                     turn FILE into code, in the current folder or in\n"
    "                                     FOLDER; LANGUAGE is cpp, c, cs, java or xml\n"
    "       morvane --import FILE.scxml -o OUT\n"
    "                                     make a chart of SCXML and write it to OUT\n"
    "       morvane --check [--json] FILE...\n"
    "                                     say what is wrong with charts\n"
    "       morvane --diff [--export OUT] OLD NEW\n"
    "                                     say what differs between two charts, or draw it;\n"
    "                                     ends with 0 for none, 1 for some, 2 for trouble\n"
    "       morvane --describe FILE       print what a chart holds, a fact a line\n"
    "       morvane --simulate FILE [EVENT...]\n"
    "                                     run FILE, send it events, print the trace\n"
    "       morvane --replay TRACE FILE [--export OUT]\n"
    "                                     say where a trace and FILE part, and draw FILE as it\n"
    "                                     stands at the end of the trace\n"
    "       morvane --coverage [--min PERCENT] FILE TRACE...\n"
    "                                     say what of FILE the traces reach\n"
    "       morvane --test [--junit] FILE...\n"
    "                                     run the tests beside charts, NAME.mrvtest\n"
    "       morvane --help | --version\n";

bool IsOption(std::string_view argument) { return argument.size() > 1 && argument[0] == '-'; }

int Fail(std::ostream& err, const std::string& path, const std::string& reason) {
  err << path << ": " << reason << '\n';
  return CommandLine::kFailure;
}

/// Reads a chart as the window would; the reason of a failure, empty on success.
std::string LoadChart(const std::string& path, LayoutMgr& chart, LayoutMgr::Size size) {
  if (!IsEmptyFile(path)) {
    std::string reason = ModelFile::Load(path, chart);
    if (!reason.empty()) return reason;
  }
  chart.PlaceWithoutWindow(size);
  return {};
}

}  // namespace

CommandLine CommandLine::ParseWindow(std::span<const std::string> arguments) {
  CommandLine line;
  if (!arguments.empty()) line.file = arguments.front();
  if (arguments.size() > 1 || IsOption(line.file)) line.job = Job::WrongUse;
  return line;
}

CommandLine CommandLine::ParseGenerate(std::span<const std::string> arguments) {
  CommandLine line;
  line.job = Job::WrongUse;
  const auto language = LanguageFromName(arguments.empty() ? "" : arguments.front());
  const bool hasFolder = arguments.size() == 4 && arguments[1] == "-o";
  if (!language || (arguments.size() != 2 && !hasFolder)) return line;
  line.job = Job::Generate;
  line.language = *language;
  if (hasFolder) line.output = arguments[2];
  line.file = arguments.back();
  return line;
}

CommandLine CommandLine::ParseImport(std::span<const std::string> arguments) {
  CommandLine line;
  line.job = Job::WrongUse;
  const bool isSound = arguments.size() == 3 && !IsOption(arguments[0]) && arguments[1] == "-o";
  if (!isSound) return line;
  line.job = Job::Import;
  line.file = arguments[0];
  line.output = arguments[2];
  return line;
}

CommandLine CommandLine::ParseCheck(std::span<const std::string> arguments) {
  CommandLine line;
  line.asJson = !arguments.empty() && arguments.front() == "--json";
  line.files.assign(arguments.begin() + (line.asJson ? 1 : 0), arguments.end());
  const bool sound = !line.files.empty() && std::ranges::none_of(line.files, IsOption);
  line.job = sound ? Job::Check : Job::WrongUse;
  return line;
}

CommandLine CommandLine::ParseDiff(std::span<const std::string> arguments) {
  CommandLine line;
  line.job = Job::WrongUse;
  std::vector<std::string> rest(arguments.begin(), arguments.end());
  const auto asked = std::ranges::find(rest, "--export");
  if (asked != rest.end() && rest.end() - asked > 1) {
    line.output = asked[1];
    rest.erase(asked, asked + 2);
    if (Picture::KindOf(line.output) == nullptr) return line;
  }
  std::erase(rest, "--diff");
  if (rest.size() != 2 || std::ranges::any_of(rest, IsOption)) return line;
  line.files = std::move(rest);
  line.job = Job::Diff;
  return line;
}

CommandLine::RunJob CommandLine::RunJobCalled(std::string_view option) {
  if (option == "--simulate") return RunJobs::Simulate;
  if (option == "--replay") return RunJobs::Replay;
  if (option == "--coverage") return RunJobs::Coverage;
  return option == "--test" ? RunJobs::Test : nullptr;
}

CommandLine CommandLine::Parse(const std::vector<std::string>& arguments) {
  const std::string first = arguments.empty() ? "" : arguments[0];
  if (!IsOption(first)) return ParseWindow(arguments);
  if (first == "--new-instance") {
    CommandLine line = ParseWindow(std::span(arguments).subspan(1));
    line.newInstance = true;
    return line;
  }
  if (first == "--generate") return ParseGenerate(std::span(arguments).subspan(1));
  if (first == "--import") return ParseImport(std::span(arguments).subspan(1));
  if (first == "--check") return ParseCheck(std::span(arguments).subspan(1));
  const bool exportsDiff = first == "--export" && arguments.size() > 2 && arguments[2] == "--diff";
  if (first == "--diff" || exportsDiff) return ParseDiff(arguments);
  CommandLine line;
  if (const RunJob job = RunJobCalled(first)) {
    line.job = Job::Run;
    line.runJob = job;
    line.runArguments.assign(arguments.begin() + 1, arguments.end());
    return line;
  }
  const bool hasPaths = arguments.size() == 3;
  if (first == "--help" && arguments.size() == 1) {
    line.job = Job::Help;
  } else if (first == "--version" && arguments.size() == 1) {
    line.job = Job::Version;
  } else if ((first == "--convert" || first == "--export") && hasPaths) {
    line.job = first == "--convert" ? Job::Convert : Job::Export;
    line.output = arguments[1];
    line.file = arguments[2];
  } else if (first == "--describe" && arguments.size() == 2) {
    line.job = Job::Describe;
    line.file = arguments[1];
  } else {
    line.job = Job::WrongUse;
  }
  return line;
}

int CommandLine::Run(std::ostream& out, std::ostream& err) const {
  switch (job) {
    case Job::Help: out << kUsage; return kSuccess;
    case Job::Version: out << "Morvane " << kProductVersion << '\n'; return kSuccess;
    case Job::Convert: return RunConvert(err);
    case Job::Export: return RunExport(err);
    case Job::Check: return RunCheck(out);
    case Job::Generate: return RunGenerate(err);
    case Job::Import: return RunImport(err);
    case Job::Diff: return RunDiff(files[0], files[1], output, out, err);
    case Job::Describe: return RunDescribe(file, out, err) ? kSuccess : kFailure;
    case Job::Run: return RunChart(out, err);
    case Job::WrongUse: err << kUsage; return kWrongUse;
    case Job::None: break;
  }
  return kSuccess;
}

int CommandLine::RunConvert(std::ostream& err) const {
  try {
    LayoutMgr chart;
    const std::string problem = LoadChart(file, chart, LayoutMgr::Size::Stored);
    if (!problem.empty()) return Fail(err, file, problem);
    const std::string unwritten =
        ModelFile::ReasonOf(ReplaceWholeFile(output, ModelFile::ToDisk(chart.ModelText())));
    return unwritten.empty() ? kSuccess : Fail(err, output, unwritten);
  } catch (const std::exception&) {
    return Fail(err, file, LoadText(IDS_UNKNOWN_ERROR));
  }
}

int CommandLine::RunGenerate(std::ostream& err) const {
  const GenerateResult result = Generate({.language = language, .folder = output, .model = file});
  err << result.messages;
  return result.exitCode;
}

int CommandLine::RunImport(std::ostream& err) const {
  const ImportResult made = ImportScxmlFile(file);
  if (!made.failure.empty()) return Fail(err, file, made.failure);
  err << RemarkLines(file, made.remarks);
  const std::string unwritten =
      ModelFile::ReasonOf(ReplaceWholeFile(output, ModelFile::ToDisk(made.modelText)));
  return unwritten.empty() ? kSuccess : Fail(err, output, unwritten);
}

int CommandLine::RunCheck(std::ostream& out) const {
  const auto form = asJson ? CheckReport::Form::Json : CheckReport::Form::Lines;
  return CheckReport(form).Write(files, out) ? kSuccess : kFailure;
}

int CommandLine::RunChart(std::ostream& out, std::ostream& err) const {
  const int status = runJob(runArguments, out, err);
  if (status == kWrongUse) err << kUsage;
  return status;
}

int CommandLine::RunExport(std::ostream& err) const {
  const ChartPicture::FileKind* kind = ChartPicture::KindOf(output);
  if (kind == nullptr) {
    err << output << ": " << LoadText(IDS_PICTURE_KIND) << '\n';
    return kWrongUse;
  }
  try {
    LayoutMgr chart;
    const std::string problem = LoadChart(file, chart, LayoutMgr::Size::Normal);
    if (!problem.empty()) return Fail(err, file, problem);
    const std::optional<std::string> picture = ChartPicture(chart).MakeFile(*kind);
    if (!picture) return Fail(err, file, LoadText(IDS_PICTURE_TOO_LARGE));
    const std::string unwritten = ModelFile::ReasonOf(ReplaceWholeFile(output, *picture));
    return unwritten.empty() ? kSuccess : Fail(err, output, unwritten);
  } catch (const std::exception&) {
    return Fail(err, file, LoadText(IDS_UNKNOWN_ERROR));
  }
}

}  // namespace morvane
