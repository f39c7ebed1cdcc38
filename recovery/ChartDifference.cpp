#include "recovery/ChartDifference.h"

#include <map>

#include "resources/Texts.h"

namespace morvane {

namespace {

/// The objects of a model text by the first line of their records, which names kind and id; under
/// an empty key what stands outside of them.
std::map<std::string_view, std::string> ObjectsOf(std::string_view text) {
  std::map<std::string_view, std::string> objects;
  std::string_view key;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    const bool isFrame = line == "BEGIN DATA" || line == "END DATA";
    if (isFrame || (line.starts_with("BEGIN ") && line.find(' ', 6) != std::string_view::npos)) {
      key = isFrame ? std::string_view{} : line;
    }
    objects[key].append(line).push_back('\n');
  }
  return objects;
}

}  // namespace

ChartDifference ChartDifference::Between(std::string_view before, std::string_view after) {
  ChartDifference difference;
  const auto old = ObjectsOf(before);
  const auto now = ObjectsOf(after);
  for (const auto& [key, text] : now) {
    const auto former = old.find(key);
    if (former != old.end() && former->second == text) continue;
    if (key.empty()) {
      difference.other = true;
    } else {
      ++(former == old.end() ? difference.added : difference.changed);
    }
  }
  for (const auto& [key, text] : old) {
    if (now.contains(key)) continue;
    if (key.empty()) {
      difference.other = true;
    } else {
      ++difference.removed;
    }
  }
  return difference;
}

std::string ChartDifference::Text() const {
  std::string all;
  const auto add = [&all](int count, unsigned id) {
    if (count == 0) return;
    if (!all.empty()) all += ", ";
    all += WithName(LoadText(id), std::to_string(count));
  };
  add(added, IDS_OBJECTS_ADDED);
  add(changed, IDS_OBJECTS_CHANGED);
  add(removed, IDS_OBJECTS_REMOVED);
  if (!all.empty()) return WithName(LoadText(IDS_OBJECTS), all);
  return other ? LoadText(IDS_PROPERTIES_CHANGED) : std::string();
}

}  // namespace morvane
