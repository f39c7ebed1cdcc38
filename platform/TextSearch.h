#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Service.h"

namespace morvane {

/// What a user looks for, in UTF-8, and how.
struct TextPattern {
  std::string text;
  bool matchCase = true;
  bool wholeWords = false;
  bool isExpression = false;  ///< a regular expression
};

/// A place where a text matches; all numbers count bytes.
struct TextMatch {
  struct Span {
    std::size_t begin = 0;
    std::size_t end = 0;
  };
  Span whole;
  std::vector<Span> groups;  ///< of an expression, from the first on; empty if it took no part
};

/// A pattern that is ready to be looked for.
class TextMatcher {
 public:
  using Take = std::function<void(const TextMatch& match)>;

  virtual ~TextMatcher() = default;
  /// Hands over each match in a text of valid UTF-8, from left to right, without overlap. False
  /// when it gave up, since the search would go on for too long.
  virtual bool ForEach(std::string_view utf8, const Take& take) = 0;
};

/// Looks for patterns in texts. The default service knows plain texts alone, every letter as it is.
class TextSearch {
 public:
  virtual ~TextSearch() = default;
  /// Null for a pattern that cannot be looked for. Then `place` counts the characters before the
  /// one that is wrong, and `reason` says what is, in words for the user.
  virtual std::unique_ptr<TextMatcher> Compile(const TextPattern& pattern, std::size_t& place,
                                               std::string& reason) = 0;
  static TextSearch& Default();
};

}  // namespace morvane
