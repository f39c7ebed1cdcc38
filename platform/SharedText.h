#pragma once

#include <memory>
#include <string>

namespace morvane {

/// A text that several owners hold and nobody changes: the undo history, the document and what
/// writes it elsewhere share one copy. Null is no text.
using SharedText = std::shared_ptr<const std::string>;

/// Both are the same text, or both none.
inline bool IsSameText(const SharedText& a, const SharedText& b) {
  return a == b || (a != nullptr && b != nullptr && *a == *b);
}

}  // namespace morvane
