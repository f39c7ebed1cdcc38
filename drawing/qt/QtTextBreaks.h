#pragma once

#include "drawing/TextBreaks.h"

namespace morvane {

/// The rules of Unicode, with dictionaries for the scripts that need them, as far as the system has
/// any.
class QtTextBreaks : public TextBreaks {
 public:
  std::vector<std::size_t> LineBreaks(std::string_view utf8) const override;
  std::vector<std::size_t> LetterBreaks(std::string_view utf8) const override;
};

}  // namespace morvane
