#include "shell/CommandLine.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <exception>
#include <optional>
#include <ostream>
#include <system_error>

#include "checks/CheckReport.h"
#include "exchange/ScxmlImport.h"
#include "generators/Generate.h"
#include "persistence/ModelFile.h"
#include "platform/Files.h"
#include "platform/ThisProcess.h"
#include "resources/Texts.h"
#include "resources/Version.h"
#include "shell/ExportJob.h"
#include "shell/ReviewJobs.h"
#include "shell/RunJobs.h"
#include "surface/Picture.h"

namespace morvane {

namespace {

constexpr const char* kUsage =
    "usage: morvane [FILE]                open the designer, on FILE if given; a designer\n"
    "                                     that runs already opens it\n"
    "       morvane --new-instance [FILE] open a designer of its own\n"
    "       morvane --convert OUT FILE    read FILE, write it as model text\n"
    "       morvane --export [OPTION]... OUT FILE\n"
    "                                     draw the whole chart; OUT ends in .png, .svg,\n"
    "                                     .pdf or .emf\n"
    "           --scale NUMBER            so many times larger, 0.1 to 8\n"
    "           --dpi NUMBER              pixels to the inch of a PNG, 96 if not given\n"
    "           --size NUMBER             no side longer than so many pixels\n"
    "           --margin NUMBER           cut out what is drawn, with so much around it\n"
    "           --state NAME              only this state and what is in it\n"
    "           --transparent             nothing behind what is drawn, in a PNG or SVG\n"
    "           --kind KIND               png, svg, pdf or emf, whatever OUT ends in\n"
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
    "       morvane --help | --version\n"
    "A FILE or an OUT that is called - is standard input or output; behind -- no word is an\n"
    "option.\n";

constexpr std::string_view kExport = "--export";
constexpr std::string_view kDiff = "--diff";
constexpr std::string_view kOutput = "-o";
constexpr std::string_view kJson = "--json";
constexpr std::string_view kNewInstance = "--new-instance";

/// A name for standard input and output.
constexpr std::string_view kStandard = "-";

constexpr std::array kOutputOption = {Arguments::Option{kOutput, "name"}};
constexpr std::array kExportOption = {Arguments::Option{kExport, "file"}};
constexpr std::array kJsonOption = {Arguments::Option{kJson, ""}};
constexpr std::array kJUnitOption = {Arguments::Option{RunJobs::kJUnit, ""}};
constexpr std::array kLeastOption = {Arguments::Option{RunJobs::kLeast, "percentage"}};

int Fail(std::ostream& err, const std::string& path, const std::string& reason) {
  err << path << ": " << reason << '\n';
  return CommandLine::kFailure;
}

/// An operand as a path that can be read.
std::string InputAt(const Arguments& arguments, std::size_t at) {
  const std::string& operand = arguments.Operands()[at];
  return operand == kStandard ? StandardInputPath() : operand;
}

int Help(Arguments& /*arguments*/, std::ostream& out, std::ostream& /*err*/) {
  out << kUsage;
  return CommandLine::kSuccess;
}

int Version(Arguments& /*arguments*/, std::ostream& out, std::ostream& /*err*/) {
  out << "Morvane " << kProductVersion << '\n';
  return CommandLine::kSuccess;
}

int Convert(Arguments& arguments, std::ostream& out, std::ostream& err) {
  const std::string file = InputAt(arguments, 1);
  try {
    LayoutMgr chart;
    const std::string problem = CommandLine::LoadChart(file, chart, LayoutMgr::Size::Stored);
    if (!problem.empty()) return Fail(err, file, problem);
    return CommandLine::WriteOutput(arguments.Operands()[0], ModelFile::ToDisk(chart.ModelText()),
                                    out, err);
  } catch (const std::exception&) {
    return Fail(err, file, LoadText(IDS_UNKNOWN_ERROR));
  }
}

int Compare(Arguments& arguments, const std::string& picture, std::size_t first, std::ostream& out,
            std::ostream& err) {
  return RunDiff(InputAt(arguments, first), InputAt(arguments, first + 1), picture, out, err);
}

int Diff(Arguments& arguments, std::ostream& out, std::ostream& err) {
  const std::string picture = arguments.Value(kExport);
  if (!picture.empty() && Picture::KindOf(picture) == nullptr) {
    Fail(err, picture, LoadText(IDS_PICTURE_KIND));
    return DiffStatus::kTrouble;
  }
  return Compare(arguments, picture, 0, out, err);
}

int Export(Arguments& arguments, std::ostream& out, std::ostream& err) {
  const ExportJob job(arguments);
  if (!arguments.Problem().empty()) return CommandLine::kWrongUse;
  return job.Run(arguments.Operands()[0], InputAt(arguments, 1), out, err);
}

int GenerateCode(Arguments& arguments, std::ostream& /*out*/, std::ostream& err) {
  const auto language = LanguageFromName(arguments.Operands()[0]);
  if (!language) {
    arguments.Complain("'" + arguments.Operands()[0] + "' is not cpp, c, cs, java or xml");
    return CommandLine::kWrongUse;
  }
  const GenerateResult result = Generate(
      {.language = *language, .folder = arguments.Value(kOutput), .model = InputAt(arguments, 1)});
  err << result.messages;
  return result.exitCode;
}

int Import(Arguments& arguments, std::ostream& out, std::ostream& err) {
  if (!arguments.Has(kOutput)) {
    arguments.Complain("--import: needs -o OUT");
    return CommandLine::kWrongUse;
  }
  const std::string file = InputAt(arguments, 0);
  const ImportResult made = ImportScxmlFile(file);
  if (!made.failure.empty()) return Fail(err, file, made.failure);
  err << RemarkLines(file, made.remarks);
  return CommandLine::WriteOutput(arguments.Value(kOutput), ModelFile::ToDisk(made.modelText), out,
                                  err);
}

int Check(Arguments& arguments, std::ostream& out, std::ostream& /*err*/) {
  std::vector<std::string> files = arguments.Operands();
  std::ranges::replace(files, kStandard, StandardInputPath());
  const auto form = arguments.Has(kJson) ? CheckReport::Form::Json : CheckReport::Form::Lines;
  return CheckReport(form).Write(files, out) ? CommandLine::kSuccess : CommandLine::kFailure;
}

int Describe(Arguments& arguments, std::ostream& out, std::ostream& err) {
  return RunDescribe(InputAt(arguments, 0), out, err) ? CommandLine::kSuccess
                                                      : CommandLine::kFailure;
}

struct Job {
  Arguments::Form form;
  CommandLine::Handler run;
};

constexpr std::size_t kAny = std::numeric_limits<std::size_t>::max();

const std::array kJobs = {
    Job{{"--help", {}, "", 0, 0}, Help},
    Job{{"-h", {}, "", 0, 0}, Help},
    Job{{"--version", {}, "", 0, 0}, Version},
    Job{{"--convert", {}, "OUT FILE", 2, 2}, Convert},
    Job{{kExport, ExportJob::Options(), "OUT FILE", 2, 2}, Export},
    Job{{"--generate", kOutputOption, "LANGUAGE FILE", 2, 2}, GenerateCode},
    Job{{"--import", kOutputOption, "FILE", 1, 1}, Import},
    Job{{"--check", kJsonOption, "FILE...", 1, kAny}, Check},
    Job{{kDiff, kExportOption, "OLD NEW", 2, 2}, Diff},
    Job{{"--describe", {}, "FILE", 1, 1}, Describe},
    Job{{"--simulate", {}, "FILE [EVENT...]", 1, kAny}, RunJobs::Simulate},
    Job{{"--replay", kExportOption, "TRACE FILE", 2, 2}, RunJobs::Replay},
    Job{{"--coverage", kLeastOption, "FILE TRACE...", 2, kAny}, RunJobs::Coverage},
    Job{{"--test", kJUnitOption, "FILE...", 1, kAny}, RunJobs::Test}};

constexpr std::array kWindowOption = {Arguments::Option{kNewInstance, ""}};

/// The words of "--export OUT --diff OLD NEW", which is another way to ask for a comparison.
std::vector<std::string> WithJobFirst(std::vector<std::string> words) {
  const auto diff = std::ranges::find(words, kDiff);
  if (!words.empty() && words[0] == kExport && diff != words.end()) {
    std::rotate(words.begin(), diff, diff + 1);
  }
  return words;
}

}  // namespace

CommandLine CommandLine::Parse(const std::vector<std::string>& given) {
  const std::vector<std::string> words = WithJobFirst(given);
  CommandLine line;
  const std::string name = words.empty() ? "" : words[0];
  const auto* job = std::ranges::find(kJobs, name, [](const Job& row) { return row.form.job; });
  if (job != kJobs.end()) {
    line.job = job->run;
    line.arguments = Arguments::Parse(job->form, std::span(words).subspan(1));
    return line;
  }
  line.arguments = Arguments::Parse({"", kWindowOption, "", 0, 1}, words);
  // Not even a window comes of wrong use.
  if (!line.arguments.Problem().empty()) line.job = Help;
  return line;
}

std::string CommandLine::File() const {
  return arguments.Operands().empty() ? std::string() : arguments.Operands()[0];
}

bool CommandLine::IsNewInstance() const { return arguments.Has(kNewInstance); }

int CommandLine::Run(std::ostream& out, std::ostream& err) const {
  Arguments given = arguments;
  const int status = given.Problem().empty() ? job(given, out, err) : kWrongUse;
  if (!given.Problem().empty()) {
    err << "morvane: " << given.Problem() << "\nTry 'morvane --help'.\n";
  }
  errno = 0;
  if (out.flush()) return status;
  const std::string reason = std::generic_category().message(errno != 0 ? errno : EIO);
  return Fail(err, "standard output", reason);
}

std::string CommandLine::LoadChart(const std::string& path, LayoutMgr& chart,
                                   LayoutMgr::Size size) {
  if (!IsEmptyFile(path)) {
    std::string reason = ModelFile::Load(path, chart);
    if (!reason.empty()) return reason;
  }
  chart.PlaceWithoutWindow(size);
  return {};
}

int CommandLine::WriteOutput(const std::string& path, const std::string& bytes, std::ostream& out,
                             std::ostream& err) {
  if (path == kStandard) {
    out << bytes;
    return kSuccess;
  }
  const std::string unwritten = ModelFile::ReasonOf(ReplaceWholeFile(path, bytes));
  return unwritten.empty() ? kSuccess : Fail(err, path, unwritten);
}

}  // namespace morvane
