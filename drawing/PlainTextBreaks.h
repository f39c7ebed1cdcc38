#pragma once

#include "drawing/TextBreaks.h"

namespace morvane {

/// The rules for a program without a toolkit: marks stay on their letters, and a line may end
/// between two letters of the scripts of East Asia, as far as their punctuation lets it.
class PlainTextBreaks : public TextBreaks {
 public:
  std::vector<std::size_t> LineBreaks(std::string_view utf8) const override;
  std::vector<std::size_t> LetterBreaks(std::string_view utf8) const override;
};

}  // namespace morvane
