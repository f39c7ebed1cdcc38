#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace morvane {

/// Where the texts that a user sees come from. The default source is the English of the program.
class TextSource {
 public:
  virtual ~TextSource() = default;
  /// The text with that number; nothing if the source has none.
  virtual std::optional<std::string> Text(unsigned id) const = 0;
  /// What stands for an English text of a menu, a prompt or a dialog; nothing if the source has
  /// none.
  virtual std::optional<std::string> Translation(std::string_view english) const = 0;
  /// The two letters by which the toolkit knows the language of its own texts, such as "fr".
  virtual std::string Locale() const = 0;

  /// The source in use.
  static TextSource& Current();
  /// Puts another one in use, which has to outlive that; null goes back to the program's English.
  /// Gives the former one.
  static TextSource* Use(TextSource* source);
};

}  // namespace morvane
