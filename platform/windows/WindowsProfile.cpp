#include "platform/windows/WindowsProfile.h"

#include <charconv>
#include <map>
#include <utility>

#include "drawing/TextCodec.h"
#include "platform/MessageBox.h"
#include "platform/Wording.h"
#include "platform/windows/RegistryKey.h"
#include "platform/windows/SystemMutex.h"

namespace morvane {

namespace {

/// The number that a text is, written the one way in which it comes back.
std::optional<std::int32_t> NumberOf(const std::string& text) {
  std::int32_t number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  const bool isNumber = error == std::errc() && stop == end && std::to_string(number) == text;
  return isNumber ? std::optional(number) : std::nullopt;
}

}  // namespace

WindowsProfile::WindowsProfile(std::string key) : root(std::move(key)) {}

WindowsProfile::Place WindowsProfile::PlaceOf(const Name& name) const {
  const auto& [section, key] = name;
  return section.empty() ? Place(root + '\\' + key, "") : Place(root + '\\' + section, key);
}

std::optional<std::string> WindowsProfile::Find(const std::string& section,
                                                const std::string& key) {
  const auto kept = unsaved.find({section, key});
  if (kept != unsaved.end()) return kept->second;
  const auto [path, name] = PlaceOf({section, key});
  const auto value = RegistryKey::Open(path).Get(name);
  return value ? value->text : std::nullopt;
}

bool WindowsProfile::IsDamaged(const std::string& section, const std::string& key) {
  if (unsaved.contains({section, key})) return false;
  const auto [path, name] = PlaceOf({section, key});
  const auto value = RegistryKey::Open(path).Get(name);
  return value && !value->text;
}

void WindowsProfile::Write(const std::string& section, const std::vector<Setting>& settings) {
  for (const auto& [key, text] : settings) unsaved[{section, key}] = text;
  bool stored = false;
  {
    // Where no lock can be had, the registry may still take what is to be stored.
    const SystemMutex lock(root);
    stored = Store();
  }
  if (!stored) ShowFailure();
}

void WindowsProfile::Change(const std::string& section,
                            const std::function<void(Section& values)>& change) {
  bool stored = true;
  {
    const SystemMutex lock(root);
    const Section former = SectionOf(section);
    Section changed = former;
    change(changed);
    if (changed != former) {
      for (const auto& [key, text] : former) {
        if (!changed.contains(key)) unsaved[{section, key}] = std::nullopt;
      }
      for (const auto& [key, text] : NewIn(changed, former)) unsaved[{section, key}] = text;
      stored = Store();
    }
  }
  if (!stored) ShowFailure();
}

/// What the registry holds, and over it what it did not take yet.
Profile::Section WindowsProfile::SectionOf(const std::string& section) const {
  Section texts;
  const RegistryKey key = RegistryKey::Open(section.empty() ? root : root + '\\' + section);
  if (section.empty()) {
    for (const std::string& name : key.KeyNames()) {
      const auto value = RegistryKey::Open(root + '\\' + name).Get("");
      if (value) texts[name] = value->text.value_or("");
    }
  } else {
    for (const std::string& name : key.ValueNames()) texts[name] = key.Text(name);
  }
  for (const auto& [name, text] : unsaved) {
    if (name.first != section) continue;
    if (text) {
      texts[name.second] = *text;
    } else {
      texts.erase(name.second);
    }
  }
  return texts;
}

bool WindowsProfile::Store() {
  std::erase_if(unsaved, [this](const auto& entry) { return StoreOne(entry.first, entry.second); });
  return unsaved.empty();
}

bool WindowsProfile::StoreOne(const Name& name, const std::optional<std::string>& text) const {
  const auto [path, valueName] = PlaceOf(name);
  const RegistryKey key = RegistryKey::Make(path);
  if (!text) return key.RemoveValue(valueName);
  const std::optional<std::int32_t> number = NumberOf(*text);
  return number ? key.SetNumber(valueName, *number) : key.SetText(valueName, ToUtf8(*text));
}

void WindowsProfile::ShowFailure() {
  if (failureShown) return;
  failureShown = true;
  ShowMessage(Worded(kSettingsUnsaved) + "\n\nHKEY_CURRENT_USER\\" + root, MB_ICONEXCLAMATION);
}

}  // namespace morvane
