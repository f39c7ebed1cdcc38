#include "generators/ClassEmitter.h"

#include "generators/ClassFacts.h"
#include "generators/ClassFile.h"
#include "generators/ClassMembers.h"
#include "generators/ClassNames.h"
#include "generators/ClassPlan.h"
#include "generators/NamePool.h"
#include "machine/Machine.h"

namespace morvane {

namespace {

/// The stem of the include file, and its ending.
struct HeaderName {
  std::string stem;
  std::string ending = ".h";
};

/// What a user wrote for the include file, without folders and what no file system likes.
HeaderName HeaderNameOf(std::string name, const std::string& className) {
  HeaderName header;
  name.erase(0, name.find_last_of("/\\") + 1);
  for (char& c : name) {
    if (!IsIdentifierPart(c) && c != '.' && c != '-' && c != '+') c = '_';
  }
  const std::size_t first = name.find_first_not_of("._-+");
  name.erase(0, first == std::string::npos ? name.size() : first);
  const std::size_t dot = name.rfind('.');
  const std::string ending = dot == std::string::npos ? "" : name.substr(dot);
  for (const char* each : {".h", ".hpp", ".hh", ".hxx", ".h++", ".H", ".inc"}) {
    if (ending == each) header.ending = each;
  }
  const bool isSource = ending == ".cpp" || ending == ".cc" || ending == ".cxx" || ending == ".c";
  header.stem = header.ending == ending || isSource ? name.substr(0, dot) : name;
  if (header.stem.empty()) header.stem = className;
  return header;
}

std::string BaseName(const std::string& path) { return path.substr(path.find_last_of("/\\") + 1); }

std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") + 1 - first);
}

}  // namespace

Emission ClassEmitter::Emit(const Machine& machine, const EmitOptions& options) const {
  Emission emission;
  const ClassNames names(machine, facts, emission.problems);
  const ClassPlan plan(machine, options.debug);
  ClassMembers maker(machine, names, plan, facts, options);
  const std::vector<ClassMember> members = maker.Make();
  const ClassFile file(machine, names, plan, facts, options, members);
  if (!facts.hasHeader) {
    const std::string name = names.className + std::string(facts.fileEnding);
    emission.files.push_back({name, file.Whole(name)});
    return emission;
  }
  const std::string wanted = Trimmed(machine.properties.CppIncludeFile);
  const HeaderName header = HeaderNameOf(wanted, names.className);
  const std::string headerName = header.stem + header.ending;
  const std::string sourceName = header.stem + std::string(facts.fileEnding);
  if (!wanted.empty() && headerName != BaseName(wanted)) {
    emission.problems.push_back({.severity = Problem::Severity::Warning,
                                 .message = "The C++ include file can't be called \"" + wanted +
                                            "\", it is called \"" + headerName + '"'});
  }
  emission.files.push_back({headerName, file.Header(headerName)});
  emission.files.push_back({sourceName, file.Source(sourceName, headerName)});
  return emission;
}

}  // namespace morvane
