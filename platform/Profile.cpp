#include "platform/Profile.h"

#include <charconv>

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

std::string MemoryProfile::GetString(const std::string& section, const std::string& key,
                                     const std::string& fallback) {
  const auto found = values.find({section, key});
  return found == values.end() ? fallback : found->second;
}

void MemoryProfile::Write(const std::string& section, const std::vector<Setting>& settings) {
  for (const auto& [key, value] : settings) values[{section, key}] = value;
}
