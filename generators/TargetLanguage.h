#pragma once

#include <optional>
#include <string_view>

namespace morvane {

/// What a chart is turned into.
enum class TargetLanguage { Cpp, C, CSharp, Java, Xml };

/// "cpp", "c", "cs", "java" or "xml".
std::string_view NameOf(TargetLanguage language);
std::optional<TargetLanguage> LanguageFromName(std::string_view name);

}  // namespace morvane
