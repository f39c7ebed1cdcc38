#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "resources/TextSource.h"

namespace morvane {

/// The texts of one language, from the bytes of a library file: UTF-8, a first line with the mark
/// of such a file and its locale, then one text in a line, behind its number or its English text
/// and a tab. A backslash begins "\n", "\t" and "\\"; empty lines and those that begin with "#"
/// say nothing.
class TextLibrary : public TextSource {
 public:
  /// Takes the texts in place of those that were there. False for bytes that are no library; then
  /// nothing changes. A line without a tab is passed over, and so is a text that can't stand for
  /// the English text of its number: an empty one, one with other places to fill, or several lines
  /// for one.
  bool Read(std::string_view bytes);

  std::optional<std::string> Text(unsigned id) const override;
  std::optional<std::string> Translation(std::string_view english) const override;
  std::string Locale() const override { return locale; }

 private:
  void ReadLine(std::string_view line);

  std::map<unsigned, std::string> texts;
  std::map<std::string, std::string, std::less<>> translations;
  std::string locale;
};

}  // namespace morvane
