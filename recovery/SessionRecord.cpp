#include "recovery/SessionRecord.h"

#include <algorithm>

#include "recovery/RecoveryRecord.h"

namespace morvane {

namespace {

constexpr std::string_view kOpen = "open ";
constexpr std::string_view kActive = "active ";

}  // namespace

std::string SessionRecord::ToText() const {
  std::string text;
  for (const std::string& path : paths) {
    text.append(path == active ? kActive : kOpen).append(RecoveryRecord::Escape(path)) += '\n';
  }
  return text;
}

SessionRecord SessionRecord::Parse(std::string_view text) {
  SessionRecord record;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    const bool isActive = line.starts_with(kActive);
    if (!isActive && !line.starts_with(kOpen)) continue;
    std::string path = RecoveryRecord::Unescape(line.substr((isActive ? kActive : kOpen).size()));
    if (path.empty()) continue;
    if (isActive) record.active = path;
    record.paths.push_back(std::move(path));
  }
  return record;
}

void SessionRecord::Merge(const SessionRecord& other) {
  for (const std::string& path : other.paths) {
    if (std::ranges::find(paths, path) == paths.end()) paths.push_back(path);
  }
  if (active.empty()) active = other.active;
}

}  // namespace morvane
