#include "platform/Profile.h"

#include <charconv>

namespace morvane {

std::string Profile::GetString(const std::string& section, const std::string& key,
                               const std::string& fallback) {
  return Find(section, key).value_or(fallback);
}

std::int32_t Profile::GetInt(const std::string& section, const std::string& key,
                             std::int32_t fallback) {
  const std::string text = GetString(section, key, "");
  std::int32_t value = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  return error == std::errc() && stop == end ? value : fallback;
}

void Profile::WriteString(const std::string& section, const std::string& key,
                          const std::string& value) {
  Write(section, {{key, value}});
}

std::vector<Profile::Setting> Profile::NewIn(const Section& changed, const Section& former) {
  std::vector<Setting> settings;
  for (const auto& [key, value] : changed) {
    const auto found = former.find(key);
    if (found == former.end() || found->second != value) settings.emplace_back(key, value);
  }
  return settings;
}

std::optional<std::string> MemoryProfile::Find(const std::string& section, const std::string& key) {
  const auto found = values.find({section, key});
  return found == values.end() ? std::nullopt : std::optional(found->second);
}

bool MemoryProfile::IsDamaged(const std::string& /*section*/, const std::string& /*key*/) {
  return false;
}

void MemoryProfile::Write(const std::string& section, const std::vector<Setting>& settings) {
  for (const auto& [key, value] : settings) values[{section, key}] = value;
}

void MemoryProfile::Change(const std::string& section,
                           const std::function<void(Section& values)>& change) {
  Section former;
  for (const auto& [name, value] : values) {
    if (name.first == section) former[name.second] = value;
  }
  Section changed = former;
  change(changed);
  for (const auto& [key, value] : former) {
    if (!changed.contains(key)) values.erase({section, key});
  }
  const std::vector<Setting> settings = NewIn(changed, former);
  if (!settings.empty()) Write(section, settings);
}

}  // namespace morvane
