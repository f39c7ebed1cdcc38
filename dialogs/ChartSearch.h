#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "platform/TextSearch.h"

namespace morvane {

class SearchPlace;

/// Looks for a pattern in texts as a chart stores them, each in an encoding of its own, and
/// replaces it.
class ChartSearch {
 public:
  using Places = std::vector<SearchPlace*>;

  /// Makes the pattern ready to search; false with a message for the user if it cannot be.
  bool Start(const TextPattern& pattern, std::string& message);
  /// How often it stands in the texts of a place. An empty text holds nothing to be found.
  std::size_t CountIn(SearchPlace& place);
  /// Replaces it wherever it stands in the places and gives how often. In the replacement for an
  /// expression \1 to \9 stand for what its groups found, \0 for all of the match, \\ for one \.
  /// Nothing has changed if the search gave up.
  std::size_t Replace(const Places& places, const std::string& replacement);
  /// The search would go on for too long and gave up.
  bool GaveUp() const { return gaveUp; }

 private:
  /// A text with what will stand there.
  struct Change {
    SearchPlace* place;
    std::string* stored;
    std::string text;
  };

  std::size_t ReplaceIn(SearchPlace& place, const std::string& replacement,
                        std::vector<Change>& changes);
  void AppendReplacement(std::string& out, const std::string& replacement, const std::string& text,
                         const TextMatch& match) const;

  std::unique_ptr<TextMatcher> matcher;
  bool isExpression = false;
  bool gaveUp = false;
};

}  // namespace morvane
