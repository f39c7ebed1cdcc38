#pragma once

#include "platform/Profile.h"

namespace morvane {

/// The user's settings in the registry, each section a key. A text that is the decimal of a 32-bit
/// number is stored as one, as other versions of the program have them, and comes back as that
/// text. What has no section is the default value of a key of its name. Each reading sees what
/// other running copies of the program have stored.
class WindowsProfile : public Profile {
 public:
  /// The key of the user's settings, below HKEY_CURRENT_USER.
  static constexpr const char* kUserKey = "Software\\Halvern\\Morvane";

  /// The settings below a key.
  explicit WindowsProfile(std::string root = kUserKey);

  std::optional<std::string> Find(const std::string& section, const std::string& key) override;
  bool IsDamaged(const std::string& section, const std::string& key) override;
  void Write(const std::string& section, const std::vector<Setting>& settings) override;
  void Change(const std::string& section,
              const std::function<void(Section& values)>& change) override;
  void Refresh() override {}

 private:
  /// The section and the key of a value.
  using Name = std::pair<std::string, std::string>;
  /// Where a value lies: the path of its key, and its name in that.
  using Place = std::pair<std::string, std::string>;

  Place PlaceOf(const Name& name) const;
  Section SectionOf(const std::string& section) const;
  bool Store();
  bool StoreOne(const Name& name, const std::optional<std::string>& text) const;
  void ShowFailure();

  std::string root;
  /// What the registry did not take yet; no text for a value that is to go from it.
  std::map<Name, std::optional<std::string>> unsaved;
  bool failureShown = false;  ///< the user knows: a run says it once
};

}  // namespace morvane
