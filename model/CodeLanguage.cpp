#include "model/CodeLanguage.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "model/ModelProperties.h"
#include "platform/Profile.h"

namespace morvane {

namespace {

constexpr const char* kSection = "Code";
constexpr const char* kKey = "Language";

struct StoredName {
  Syntax syntax;
  std::string_view name;
};

constexpr std::array kNames = {StoredName{Syntax::Cpp, "cpp"}, StoredName{Syntax::C, "c"},
                               StoredName{Syntax::CSharp, "cs"}, StoredName{Syntax::Java, "java"},
                               StoredName{Syntax::JavaScript, "xml"}};

struct LanguageField {
  Syntax syntax;
  std::string ModelProperties::*text;
};

using P = ModelProperties;

constexpr LanguageField kFields[] = {
    {Syntax::Cpp, &P::CppClassName},         {Syntax::Cpp, &P::CppIncludeFile},
    {Syntax::Cpp, &P::CppNamespace},         {Syntax::Cpp, &P::CppIncludes},
    {Syntax::Cpp, &P::CppDeclarations},      {Syntax::C, &P::CIncludes},
    {Syntax::C, &P::CDeclarations},          {Syntax::Java, &P::JavaClassName},
    {Syntax::Java, &P::JavaPackage},         {Syntax::Java, &P::JavaDeclarations},
    {Syntax::CSharp, &P::CSharpClassName},   {Syntax::CSharp, &P::CSharpPackage},
    {Syntax::CSharp, &P::CSharpDeclarations}};

/// The language if it is one alone that has properties of its own.
std::optional<Syntax> OnlyOneOf(const ModelProperties& chart) {
  const ModelProperties untouched;
  std::optional<Syntax> found;
  for (const LanguageField& field : kFields) {
    if (chart.*field.text == untouched.*field.text) continue;
    if (found && *found != field.syntax) return std::nullopt;
    found = field.syntax;
  }
  return found;
}

}  // namespace

Syntax CodeLanguage::Of(const ModelProperties* chart) {
  const auto only = chart != nullptr ? OnlyOneOf(*chart) : std::nullopt;
  if (only) return *only;
  const std::string used = Service<Profile>::Get().GetString(kSection, kKey, "");
  const auto stored = std::ranges::find(kNames, used, &StoredName::name);
  return stored != kNames.end() ? stored->syntax : Syntax::Cpp;
}

void CodeLanguage::NoteUsed(Syntax syntax) {
  const auto stored = std::ranges::find(kNames, syntax, &StoredName::syntax);
  Service<Profile>::Get().WriteString(kSection, kKey, std::string(stored->name));
}

}  // namespace morvane
