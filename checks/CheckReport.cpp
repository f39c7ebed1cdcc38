#include "checks/CheckReport.h"

#include <nlohmann/json.hpp>
#include <ostream>

#include "drawing/TextCodec.h"
#include "machine/MachineBuilder.h"

namespace morvane {

namespace {

using Json = nlohmann::ordered_json;

/// What is unknown is left out.
Json ToJson(const Problem& problem) {
  const bool isError = problem.severity == Problem::Severity::Error;
  Json json{{"severity", isError ? "error" : "warning"}};
  if (problem.line > 0) json["line"] = problem.line;
  if (problem.id != 0) json["id"] = problem.id;
  if (!problem.object.empty()) json["object"] = ToUtf8(problem.object);
  json["message"] = ToUtf8(problem.message);
  return json;
}

Json ToJson(const std::string& file, const std::vector<Problem>& problems) {
  Json list = Json::array();
  for (const Problem& problem : problems) list.push_back(ToJson(problem));
  return {{"file", ToUtf8(file)}, {"problems", std::move(list)}};
}

void WriteLines(std::ostream& out, const std::string& file, const std::vector<Problem>& problems) {
  for (const Problem& problem : problems) out << FormatProblem(file, problem) << '\n';
  if (!problems.empty()) out << SummaryOf(problems) << '\n';
}

}  // namespace

bool CheckReport::Write(const std::vector<std::string>& files, std::ostream& out) const {
  bool sound = true;
  Json report = Json::array();
  for (const std::string& file : files) {
    const std::vector<Problem> problems = MachineBuilder::FromFile(file).problems;
    sound = sound && !HasErrors(problems);
    if (form == Form::Lines) {
      WriteLines(out, file, problems);
    } else {
      report.push_back(ToJson(file, problems));
    }
  }
  if (form == Form::Json) out << report.dump(2) << '\n';
  return sound;
}

}  // namespace morvane
