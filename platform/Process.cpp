#include "platform/Process.h"

#include <algorithm>

#include "platform/FileSystem.h"
#include "platform/Files.h"

namespace morvane {

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr char kQuote = '"';
constexpr const char* kProgramExtension = ".exe";

/// The file that a name means; empty if none can be run.
std::string FindProgram(std::string_view name) {
  if (name.empty()) return {};
  for (const char* extension : {"", kProgramExtension}) {
    std::string path = FindPath(std::string(name) + extension, IsProgramAt);
    if (IsProgramAt(path)) return path;
  }
  return {};
}

}  // namespace

std::vector<std::string> SplitArguments(std::string_view text) {
  std::vector<std::string> arguments;
  bool quoted = false;
  bool inside = false;
  for (const char c : text) {
    if (!quoted && kBlanks.find(c) != std::string_view::npos) {
      inside = false;
      continue;
    }
    if (!inside) arguments.emplace_back();
    inside = true;
    if (c == kQuote) {
      quoted = !quoted;
    } else {
      arguments.back() += c;
    }
  }
  return arguments;
}

CommandParts SplitCommandLine(std::string_view commandLine) {
  if (commandLine.starts_with(kQuote)) {
    const std::size_t end = std::min(commandLine.find(kQuote, 1), commandLine.size());
    const std::size_t rest = std::min(end + 1, commandLine.size());
    return {FindProgram(commandLine.substr(1, end - 1)), SplitArguments(commandLine.substr(rest))};
  }
  for (std::size_t end = 0; end < commandLine.size();) {
    end = std::min(commandLine.find_first_of(kBlanks, end + 1), commandLine.size());
    std::string program = FindProgram(commandLine.substr(0, end));
    if (!program.empty()) return {program, SplitArguments(commandLine.substr(end))};
  }
  return {};
}

}  // namespace morvane
