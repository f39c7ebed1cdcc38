#include "generators/ToolArguments.h"

namespace morvane {

namespace {

using Job = ToolArguments::Job;

/// Takes the switch at `next` and what belongs to it; false if it is none that there is.
bool TakeSwitch(ToolArguments& parsed, const std::vector<std::string>& arguments,
                std::size_t& next) {
  const std::string& text = arguments[next++];
  if (text == "-d") {
    parsed.fromDesigner = true;
  } else if (text == "-g") {
    parsed.debug = true;
  } else if (text == "--check") {
    if (parsed.job == Job::Generate) parsed.job = Job::Check;
  } else if (text == "-h" || text == "--help") {
    parsed.job = Job::Help;
  } else if (text == "--version") {
    parsed.job = Job::Version;
  } else if (text == "-o" && next < arguments.size()) {
    parsed.folder = arguments[next++];
  } else {
    return false;
  }
  return true;
}

}  // namespace

ToolArguments ToolArguments::Parse(const std::vector<std::string>& arguments) {
  ToolArguments parsed;
  std::size_t next = 0;
  while (next < arguments.size() && arguments[next].size() > 1 && arguments[next][0] == '-') {
    if (arguments[next] == "--") {
      ++next;
      break;
    }
    if (TakeSwitch(parsed, arguments, next)) continue;
    parsed.job = Job::WrongUse;
    return parsed;
  }
  for (; next < arguments.size(); ++next) {
    if (!parsed.model.empty()) parsed.model += ' ';
    parsed.model += arguments[next];
  }
  const bool needsModel = parsed.job == Job::Generate || parsed.job == Job::Check;
  if (needsModel && parsed.model.empty()) parsed.job = Job::WrongUse;
  return parsed;
}

}  // namespace morvane
