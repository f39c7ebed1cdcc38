#include "platform/windows/RegistryKey.h"

#include <cstring>
#include <utility>
#include <windows.h>

#include "platform/windows/WideText.h"

namespace morvane {

namespace {

/// The longest name of a value; that of a key is shorter.
constexpr std::size_t kLongestName = 16384;

/// The system's calls would end the name there.
bool HasEnd(const std::string& name) { return name.find('\0') != std::string::npos; }

/// The text behind a value, without the sign that ends it. Whoever wrote it may have left that out.
std::string TextIn(const std::string& bytes) {
  std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
  std::memcpy(text.data(), bytes.data(), text.size() * sizeof(wchar_t));
  if (text.ends_with(L'\0')) text.pop_back();
  return Narrow(text);
}

std::string NumberIn(const std::string& bytes) {
  std::int32_t number = 0;
  std::memcpy(&number, bytes.data(), sizeof number);
  return std::to_string(number);
}

std::optional<std::string> TextOf(DWORD type, const std::string& bytes) {
  if (type == REG_SZ) return TextIn(bytes);
  if (type == REG_DWORD && bytes.size() == sizeof(DWORD)) return NumberIn(bytes);
  return std::nullopt;
}

/// All names that a call hands out by their numbers.
template <class Ask>
std::vector<std::string> NamesFrom(const Ask& ask) {
  std::vector<std::string> names;
  std::wstring name(kLongestName, L'\0');
  for (DWORD at = 0;; ++at) {
    DWORD length = kLongestName;
    if (ask(at, name.data(), &length) != ERROR_SUCCESS) return names;
    names.push_back(Narrow({name.data(), length}));
  }
}

}  // namespace

RegistryKey RegistryKey::Open(const std::string& path, Root root) {
  HKEY opened = nullptr;
  if (HasEnd(path)) return RegistryKey(nullptr);
  const HKEY from = root == Root::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
  const LSTATUS status = RegOpenKeyExW(from, Wide(path).c_str(), 0, KEY_READ, &opened);
  return RegistryKey(status == ERROR_SUCCESS ? opened : nullptr);
}

RegistryKey RegistryKey::Make(const std::string& path) {
  HKEY opened = nullptr;
  if (HasEnd(path)) return RegistryKey(nullptr);
  const LSTATUS status =
      RegCreateKeyExW(HKEY_CURRENT_USER, Wide(path).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                      KEY_READ | KEY_WRITE, nullptr, &opened, nullptr);
  return RegistryKey(status == ERROR_SUCCESS ? opened : nullptr);
}

void RegistryKey::Remove(const std::string& path) {
  RegDeleteTreeW(HKEY_CURRENT_USER, Wide(path).c_str());
}

RegistryKey::~RegistryKey() {
  if (key != nullptr) RegCloseKey(key);
}

RegistryKey::RegistryKey(RegistryKey&& other) noexcept : key(std::exchange(other.key, nullptr)) {}

std::optional<RegistryKey::Value> RegistryKey::Get(const std::string& name) const {
  if (key == nullptr || HasEnd(name)) return std::nullopt;
  const std::wstring wide = Wide(name);
  DWORD type = REG_NONE;
  DWORD size = 0;
  std::string bytes;
  LSTATUS status = ERROR_MORE_DATA;
  // It may become longer between two calls.
  while (status == ERROR_MORE_DATA || (status == ERROR_SUCCESS && bytes.size() < size)) {
    bytes.resize(size);
    status = RegQueryValueExW(key, wide.c_str(), nullptr, &type,
                              reinterpret_cast<BYTE*>(bytes.data()), &size);
  }
  if (status != ERROR_SUCCESS) return std::nullopt;
  bytes.resize(size);
  return Value{TextOf(type, bytes)};
}

std::string RegistryKey::Text(const std::string& name) const {
  const std::optional<Value> value = Get(name);
  return value ? value->text.value_or("") : std::string();
}

bool RegistryKey::SetText(const std::string& name, const std::string& text) const {
  const std::wstring wide = Wide(text);
  return Set(name, REG_SZ, wide.c_str(), (wide.size() + 1) * sizeof(wchar_t));
}

bool RegistryKey::SetNumber(const std::string& name, std::int32_t number) const {
  return Set(name, REG_DWORD, &number, sizeof number);
}

bool RegistryKey::RemoveValue(const std::string& name) const {
  if (key == nullptr || HasEnd(name)) return false;
  const LSTATUS status = RegDeleteValueW(key, Wide(name).c_str());
  return status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND;
}

std::vector<std::string> RegistryKey::ValueNames() const {
  if (key == nullptr) return {};
  return NamesFrom([this](DWORD at, wchar_t* name, DWORD* length) {
    return RegEnumValueW(key, at, name, length, nullptr, nullptr, nullptr, nullptr);
  });
}

std::vector<std::string> RegistryKey::KeyNames() const {
  if (key == nullptr) return {};
  return NamesFrom([this](DWORD at, wchar_t* name, DWORD* length) {
    return RegEnumKeyExW(key, at, name, length, nullptr, nullptr, nullptr, nullptr);
  });
}

bool RegistryKey::Set(const std::string& name, unsigned long type, const void* data,
                      std::size_t size) const {
  if (key == nullptr || HasEnd(name)) return false;
  return RegSetValueExW(key, Wide(name).c_str(), 0, type, static_cast<const BYTE*>(data),
                        static_cast<DWORD>(size)) == ERROR_SUCCESS;
}

}  // namespace morvane
