#include "shell/CSortStringArray.h"

#include <algorithm>
#include <cctype>

namespace morvane {

void CSortStringArray::SortStrings() {
  const auto lower = [](char c) { return std::tolower(static_cast<unsigned char>(c)); };
  // Names that are the same but for their case keep the order of their bytes, whatever order they
  // came in.
  std::sort(strings.begin(), strings.end());
  std::stable_sort(strings.begin(), strings.end(), [&](const std::string& a, const std::string& b) {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [&](char x, char y) { return lower(x) < lower(y); });
  });
}

}  // namespace morvane
