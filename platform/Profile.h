#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/Service.h"

/// The user's settings, by section and key. The default service keeps them in memory, for a
/// process that must not touch the user's own.
class Profile {
 public:
  /// The key of a value, and its text.
  using Setting = std::pair<std::string, std::string>;

  virtual ~Profile() = default;
  /// The text, or `fallback` if there is none.
  virtual std::string GetString(const std::string& section, const std::string& key,
                                const std::string& fallback) = 0;
  /// The number, or `fallback` if there is none or the value is no 32-bit number.
  std::int32_t GetInt(const std::string& section, const std::string& key, std::int32_t fallback);
  /// Stores values of a section in their order, all in one step. A number is its decimal text.
  virtual void Write(const std::string& section, const std::vector<Setting>& settings) = 0;
  void WriteString(const std::string& section, const std::string& key, const std::string& value);
  static Profile& Default();
};

/// Settings in memory.
class MemoryProfile : public Profile {
 public:
  std::string GetString(const std::string& section, const std::string& key,
                        const std::string& fallback) override;
  void Write(const std::string& section, const std::vector<Setting>& settings) override;

 private:
  std::map<std::pair<std::string, std::string>, std::string> values;
};
