#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace morvane {

/// Where texts of any script may be parted. All texts are valid UTF-8, all places are bytes from
/// their beginning, in ascending order, without the beginning and the end.
class TextBreaks {
 public:
  TextBreaks() = default;
  virtual ~TextBreaks() = default;
  TextBreaks(const TextBreaks&) = delete;
  TextBreaks& operator=(const TextBreaks&) = delete;

  /// Where a line may end within a text without line breaks.
  virtual std::vector<std::size_t> LineBreaks(std::string_view utf8) const = 0;
  /// Where one letter, as a reader sees them, ends and the next begins.
  virtual std::vector<std::size_t> LetterBreaks(std::string_view utf8) const = 0;

  /// The present rules; plain ones where nobody has set others.
  static const TextBreaks& Current();
  /// Sets the rules, which have to outlive their use; null goes back to the plain ones. Gives the
  /// former ones.
  static const TextBreaks* Use(const TextBreaks* other);
};

/// The longest prefix of at most `limit` bytes that ends with a whole letter, marks and joined
/// signs included; of a letter that is longer than that, whole code points.
std::string_view LetterPrefix(std::string_view utf8, std::size_t limit);
/// The text without a part of at most `limit` bytes at its beginning, all of it whole letters.
std::string_view WithoutLetters(std::string_view utf8, std::size_t limit);

}  // namespace morvane
