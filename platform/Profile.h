#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>

#include "platform/Service.h"

/// The user's settings, by section and key. The default service keeps them in memory, for a
/// process that must not touch the user's own.
class Profile {
 public:
  virtual ~Profile() = default;
  /// The text, or `fallback` if there is none.
  virtual std::string GetString(const std::string& section, const std::string& key,
                                const std::string& fallback) = 0;
  /// The number, or `fallback` if there is none or the value is no 32-bit number.
  virtual std::int32_t GetInt(const std::string& section, const std::string& key,
                              std::int32_t fallback) = 0;
  virtual void WriteString(const std::string& section, const std::string& key,
                           const std::string& value) = 0;
  virtual void WriteInt(const std::string& section, const std::string& key, std::int32_t value) = 0;
  static Profile& Default();
};

/// Settings in memory.
class MemoryProfile : public Profile {
 public:
  std::string GetString(const std::string& section, const std::string& key,
                        const std::string& fallback) override;
  std::int32_t GetInt(const std::string& section, const std::string& key,
                      std::int32_t fallback) override;
  void WriteString(const std::string& section, const std::string& key,
                   const std::string& value) override;
  void WriteInt(const std::string& section, const std::string& key, std::int32_t value) override;

 private:
  std::map<std::pair<std::string, std::string>, std::string> values;
};
