#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Service.h"

namespace morvane {

/// The user's settings, by section and key. The default service keeps them in memory, for a
/// process that must not touch the user's own.
class Profile {
 public:
  /// The key of a value, and its text.
  using Setting = std::pair<std::string, std::string>;
  /// The texts of a section by their keys.
  using Section = std::map<std::string, std::string>;

  virtual ~Profile() = default;
  /// The text that is stored; nothing if there is none.
  virtual std::optional<std::string> Find(const std::string& section, const std::string& key) = 0;
  /// True if a value may be stored there that can't be read: it is no text at all, or the settings
  /// as a whole are damaged and what could be read of them doesn't hold it.
  virtual bool IsDamaged(const std::string& section, const std::string& key) = 0;
  /// The text, or `fallback` if there is none.
  std::string GetString(const std::string& section, const std::string& key,
                        const std::string& fallback);
  /// The number, or `fallback` if there is none or the value is no 32-bit number.
  std::int32_t GetInt(const std::string& section, const std::string& key, std::int32_t fallback);
  /// Stores values of a section in their order, all in one step. A number is its decimal text.
  virtual void Write(const std::string& section, const std::vector<Setting>& settings) = 0;
  void WriteString(const std::string& section, const std::string& key, const std::string& value);
  /// Hands over a section as it is stored now, and stores what `change` makes of it, all while no
  /// other running copy of the program can: neither loses what the other has just put there. A key
  /// that `change` takes out is stored no more; a value that is no text counts as an empty one.
  /// `change` must not show anything.
  virtual void Change(const std::string& section,
                      const std::function<void(Section& values)>& change) = 0;
  /// Takes over what other running copies of the program have stored.
  virtual void Refresh() = 0;
  static Profile& Default();

 protected:
  /// What a section holds that it did not hold before.
  static std::vector<Setting> NewIn(const Section& changed, const Section& former);
};

/// Settings in memory.
class MemoryProfile : public Profile {
 public:
  std::optional<std::string> Find(const std::string& section, const std::string& key) override;
  bool IsDamaged(const std::string& section, const std::string& key) override;
  void Write(const std::string& section, const std::vector<Setting>& settings) override;
  void Change(const std::string& section,
              const std::function<void(Section& values)>& change) override;
  void Refresh() override {}

 private:
  std::map<std::pair<std::string, std::string>, std::string> values;
};

}  // namespace morvane
