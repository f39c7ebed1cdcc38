#include "generators/TargetLanguage.h"

#include <algorithm>
#include <array>

namespace morvane {

namespace {

constexpr std::array<std::string_view, 5> kNames = {"cpp", "c", "cs", "java", "xml"};

}  // namespace

std::string_view NameOf(TargetLanguage language) {
  return kNames[static_cast<std::size_t>(language)];
}

std::optional<TargetLanguage> LanguageFromName(std::string_view name) {
  const auto* const found = std::ranges::find(kNames, name);
  if (found == kNames.end()) return std::nullopt;
  return static_cast<TargetLanguage>(found - kNames.begin());
}

}  // namespace morvane
