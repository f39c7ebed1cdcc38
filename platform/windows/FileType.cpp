#include "platform/windows/FileType.h"

#include <climits>
#include <optional>
#include <shlobj.h>
#include <windows.h>

#include "platform/windows/RegistryKey.h"
#include "platform/windows/WideText.h"

namespace morvane {

namespace {

constexpr const char* kClasses = "Software\\Classes\\";

/// The program's second icon is that of its files, if it has one.
int IconOfFiles(const std::string& program) {
  constexpr int countAll = -1;
  const UINT count = ExtractIconExW(Wide(program).c_str(), countAll, nullptr, nullptr, 0);
  // The greatest number says that there is no such program.
  return count > 1 && count != UINT_MAX ? 1 : 0;
}

/// A value as the shell takes it: the user's own comes before that of the machine.
std::optional<RegistryKey::Value> Find(const std::string& path, const std::string& name) {
  for (const auto root : {RegistryKey::Root::User, RegistryKey::Root::Machine}) {
    if (auto value = RegistryKey::Open(kClasses + path, root).Get(name)) return value;
  }
  return std::nullopt;
}

/// Puts a text where the user has another one. True if that was so.
bool Put(const std::string& path, const std::string& name, const std::string& text) {
  const auto found = Find(path, name);
  if (found && found->text == text) return false;
  return RegistryKey::Make(kClasses + path).SetText(name, text);
}

}  // namespace

bool FileType::Register(const std::string& program) const {
  const std::string quoted = '"' + program + '"';
  bool changed = Put(id, "", name);
  changed |= Put(id + "\\DefaultIcon", "", quoted + ',' + std::to_string(IconOfFiles(program)));
  changed |= Put(id + "\\shell\\open\\command", "", quoted + " \"%1\"");
  changed |= Put(extension + "\\OpenWithProgids", id, "");
  const auto owner = Find(extension, "");
  // No text at all is nobody's, either.
  const std::string ownerId = owner ? owner->text.value_or("") : "";
  if (ownerId.empty() || ownerId == id) {
    changed |= Put(extension, "", id);
    // The shell makes a new file of this kind, with nothing in it.
    changed |= Put(extension + "\\ShellNew", "NullFile", "");
  }
  if (changed) SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST, nullptr, nullptr);
  return changed;
}

}  // namespace morvane
