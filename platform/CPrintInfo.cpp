#include "platform/CPrintInfo.h"

#include <algorithm>

namespace morvane {

std::vector<int> CPrintInfo::Sequence(int count) const {
  std::vector<int> pages;
  for (int page = std::max(fromPage, 1); page <= std::min(toPage, count); ++page) {
    pages.insert(pages.end(), collate ? 1U : static_cast<std::size_t>(copies), page);
  }
  if (reverse) std::ranges::reverse(pages);
  const std::vector<int> once = pages;
  for (int copy = 1; collate && copy < copies; ++copy) {
    pages.insert(pages.end(), once.begin(), once.end());
  }
  return pages;
}

}  // namespace morvane
