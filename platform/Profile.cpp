#include "platform/Profile.h"

#include <charconv>

std::string MemoryProfile::GetString(const std::string& section, const std::string& key,
                                     const std::string& fallback) {
  const auto found = values.find({section, key});
  return found == values.end() ? fallback : found->second;
}

std::int32_t MemoryProfile::GetInt(const std::string& section, const std::string& key,
                                   std::int32_t fallback) {
  const std::string text = GetString(section, key, "");
  std::int32_t value = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  return error == std::errc() && stop == end ? value : fallback;
}

void MemoryProfile::WriteString(const std::string& section, const std::string& key,
                                const std::string& value) {
  values[{section, key}] = value;
}

void MemoryProfile::WriteInt(const std::string& section, const std::string& key,
                             std::int32_t value) {
  values[{section, key}] = std::to_string(value);
}
