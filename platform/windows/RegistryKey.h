#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

struct HKEY__;

namespace morvane {

/// A key of the registry, open until the object goes. Names and texts are UTF-8. One that could not
/// be opened has no values and takes none.
class RegistryKey {
 public:
  enum class Root {
    User,    ///< what belongs to the user
    Machine  ///< what all its users have
  };

  struct Value {
    std::optional<std::string> text;  ///< a number as a decimal; nothing for another type
  };

  /// Opens a key for reading. Its path has backslashes.
  static RegistryKey Open(const std::string& path, Root root = Root::User);
  /// Opens a key for reading and writing, and makes it and those above it where they are missing.
  static RegistryKey Make(const std::string& path);
  /// Takes away a key of the user, with all below it.
  static void Remove(const std::string& path);

  ~RegistryKey();
  RegistryKey(RegistryKey&& other) noexcept;
  RegistryKey(const RegistryKey&) = delete;
  RegistryKey& operator=(const RegistryKey&) = delete;

  bool IsOpen() const { return key != nullptr; }
  /// The value of a name; an empty name is the key's default value. Nothing if there is none.
  std::optional<Value> Get(const std::string& name) const;
  /// The text of a value, or an empty one.
  std::string Text(const std::string& name) const;
  /// False if the registry doesn't take the value, as the next two do.
  bool SetText(const std::string& name, const std::string& text) const;
  bool SetNumber(const std::string& name, std::int32_t number) const;
  /// A value that was not there counts as taken away.
  bool RemoveValue(const std::string& name) const;
  std::vector<std::string> ValueNames() const;
  std::vector<std::string> KeyNames() const;

 private:
  explicit RegistryKey(HKEY__* key) : key(key) {}
  bool Set(const std::string& name, unsigned long type, const void* data, std::size_t size) const;

  HKEY__* key;
};

}  // namespace morvane
