#include "generators/Generate.h"

#include <exception>

#include "generators/EmitterFor.h"
#include "machine/MachineBuilder.h"
#include "platform/Files.h"

namespace morvane {

namespace {

/// The name of a file without folder and ending.
std::string StemOf(const std::string& path) {
  const std::string name = FileNameOf(path);
  const std::size_t ending = ExtensionOf(path).size();
  return name.size() > ending ? name.substr(0, name.size() - ending) : name;
}

std::string Joined(const std::string& folder, const std::string& name) {
  if (folder.empty()) return name;
  const char last = folder.back();
  return last == '/' || last == '\\' ? folder + name : folder + '/' + name;
}

/// Empty on success, else the reason for the user.
std::string WriteIfChanged(const std::string& path, const std::string& content) {
  std::string old;
  if (ReadWholeFile(path, old).Ok() && old == content) return {};
  const FileResult written = ReplaceWholeFile(path, content);
  return written.Ok() ? std::string() : written.ErrorText();
}

class Run {
 public:
  explicit Run(const GenerateRequest& request) : request(request) {}

  GenerateResult Result() {
    const BuiltMachine built = MachineBuilder::FromFile(request.model);
    problems = built.problems;
    if (built.machine) WriteCode(*built.machine);
    for (const Problem& problem : problems) Say(FormatProblem(request.model, problem));
    if (!problems.empty()) Say(SummaryOf(problems));
    if (HasErrors(problems)) result.exitCode = GenerateResult::kFailure;
    return std::move(result);
  }

 private:
  void WriteCode(const Machine& machine) {
    const Emission emission = EmitterFor(request.language)
                                  ->Emit(machine, {.debug = request.debug,
                                                   .modelFile = request.model,
                                                   .stem = StemOf(request.model)});
    problems.insert(problems.end(), emission.problems.begin(), emission.problems.end());
    if (request.output == GenerateRequest::Output::Nothing || HasErrors(problems)) return;
    for (const GeneratedFile& file : emission.files) {
      const std::string path = Joined(request.folder, file.name);
      const std::string reason = WriteIfChanged(path, file.content);
      if (reason.empty()) {
        result.files.push_back(path);
        continue;
      }
      Say(path + ": error: " + reason);
      result.exitCode = GenerateResult::kFailure;
      return;
    }
  }

  void Say(const std::string& line) { result.messages += line + '\n'; }

  const GenerateRequest& request;
  std::vector<Problem> problems;
  GenerateResult result;
};

}  // namespace

GenerateResult Generate(const GenerateRequest& request) {
  try {
    return Run(request).Result();
  } catch (const std::exception& failure) {
    return {GenerateResult::kFailure, request.model + ": error: " + failure.what() + '\n', {}};
  }
}

}  // namespace morvane
