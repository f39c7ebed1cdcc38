#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace morvane {

/// The pieces of a paragraph that stay whole on a line, one after another. Words of the Latin
/// script end at blanks alone, as charts have always been set; for all others the rules of their
/// scripts hold.
class LinePieces {
 public:
  /// `utf8` has no line breaks and outlives this object.
  explicit LinePieces(std::string_view utf8) : utf8(utf8) {}

  /// Goes on to the next piece; false at the end.
  bool Next();
  /// Where the piece begins, behind blanks.
  std::size_t Begin() const { return begin; }
  std::size_t End() const { return end; }
  /// The piece is one of a word with letters beyond the Latin script.
  bool IsForeign() const { return isForeign; }

 private:
  void FindBreaks();

  std::string_view utf8;
  std::size_t begin = 0;
  std::size_t end = 0;
  std::size_t wordEnd = 0;          ///< where blanks follow
  bool isForeign = false;           ///< the word has letters beyond the Latin script
  std::vector<std::size_t> breaks;  ///< of the word, as far as they are known
  std::size_t nextBreak = 0;
};

}  // namespace morvane
