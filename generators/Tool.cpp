#include "generators/Tool.h"

#include <ostream>

#include "generators/Generate.h"
#include "generators/ToolArguments.h"
#include "platform/Files.h"
#include "resources/Version.h"

namespace morvane {

namespace {

/// What the help says that a generator writes.
std::string_view OutputOf(TargetLanguage language) {
  switch (language) {
    case TargetLanguage::Cpp:
      return "C++17: the include file that the chart's properties name, and a .cpp beside it";
    case TargetLanguage::C: return "C99: a .h and a .c with the name of the model";
    case TargetLanguage::CSharp: return "C#: a partial class in a file of its name";
    case TargetLanguage::Java: return "Java: a class in a file of its name";
    case TargetLanguage::Xml: return "SCXML: a .scxml with the name of the model";
  }
  return {};
}

/// The folder of a model file, also for one at the root.
std::string ModelFolder(const std::string& model) {
  const std::string folder = FolderOf(model);
  return folder.empty() && model.starts_with('/') ? "/" : folder;
}

}  // namespace

std::string Tool::Name() const { return "mrv2" + std::string(NameOf(language)); }

std::string Tool::Usage() const {
  const char* debug = language == TargetLanguage::Xml ? "" : " [-g]";
  return "Usage: " + Name() + " [-d]" + debug + " [-o FOLDER] [--check] MODEL\n";
}

std::string Tool::Help() const {
  std::string help =
      Usage() + "\nTurns a state chart into " + std::string(OutputOf(language)) +
      ".\n\n"
      "  -d         write into the folder of the model, all messages to the standard "
      "output\n";
  if (language != TargetLanguage::Xml) {
    help += "  -g         refer to the lines of the model and print a trace of what happens\n";
  }
  return help +
         "  -o FOLDER  write into FOLDER, not into the current one\n"
         "  --check    check the chart and write nothing\n"
         "  --help     show this text\n"
         "  --version  show the version\n\n"
         "The exit status is 0, 1 for an error in the chart or a file, 2 for a wrong use.\n";
}

int Tool::RunGenerate(const ToolArguments& arguments, std::ostream& out, std::ostream& err) const {
  GenerateRequest request{.language = language,
                          .debug = arguments.debug,
                          .folder = arguments.folder,
                          .model = arguments.model};
  if (arguments.job == ToolArguments::Job::Check) request.output = GenerateRequest::Output::Nothing;
  if (arguments.fromDesigner && request.folder.empty()) request.folder = ModelFolder(request.model);
  const GenerateResult result = Generate(request);
  (arguments.fromDesigner ? out : err) << result.messages;
  if (arguments.fromDesigner) {
    for (const std::string& file : result.files) out << "Wrote " << file << '\n';
  }
  return result.exitCode;
}

int Tool::WrongUse(const ToolArguments& arguments, std::ostream& out, std::ostream& err) const {
  (arguments.fromDesigner ? out : err) << Usage();
  return kWrongUse;
}

int Tool::Run(const std::vector<std::string>& arguments, std::ostream& out,
              std::ostream& err) const {
  const ToolArguments parsed = ToolArguments::Parse(arguments);
  if (parsed.debug && language == TargetLanguage::Xml) return WrongUse(parsed, out, err);
  switch (parsed.job) {
    case ToolArguments::Job::Help: out << Help(); return GenerateResult::kSuccess;
    case ToolArguments::Job::Version:
      out << Name() << ' ' << kProductVersion << '\n';
      return GenerateResult::kSuccess;
    case ToolArguments::Job::WrongUse: return WrongUse(parsed, out, err);
    case ToolArguments::Job::Generate:
    case ToolArguments::Job::Check: break;
  }
  const int status = RunGenerate(parsed, out, err);
  out.flush();
  return status;
}

}  // namespace morvane
