#pragma once

#include "platform/TextSearch.h"

namespace morvane {

/// Looks for texts and regular expressions by the rules of Unicode.
class QtTextSearch : public TextSearch {
 public:
  std::unique_ptr<TextMatcher> Compile(const TextPattern& pattern, std::size_t& place,
                                       std::string& reason) override;
};

}  // namespace morvane
