#include "codegen/GeneratorKind.h"

#include <algorithm>
#include <array>

#include "resources/CommandIds.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

/// In the order of the kinds.
constexpr std::array kTraits = {
    GeneratorTraits{ID_GENERATE_CPP, IDS_GENERATE_CPP, "mrv2cpp.exe -d ", true, Syntax::Cpp},
    GeneratorTraits{ID_GENERATE_C, IDS_GENERATE_C, "mrv2c.exe -d ", true, Syntax::C},
    GeneratorTraits{ID_GENERATE_CSHARP, IDS_GENERATE_CSHARP, "mrv2cs.exe -d ", true,
                    Syntax::CSharp},
    GeneratorTraits{ID_GENERATE_JAVA, IDS_GENERATE_JAVA, "mrv2java.exe -d ", true, Syntax::Java},
    GeneratorTraits{ID_GENERATE_XML, IDS_GENERATE_XML, "mrv2xml.exe -d ", false,
                    Syntax::JavaScript},
};

}  // namespace

GeneratorKind GeneratorTraits::KindOf(unsigned command) {
  const auto found = std::ranges::find(kTraits, command, &GeneratorTraits::command);
  return static_cast<GeneratorKind>(found - kTraits.begin());
}

const GeneratorTraits& GeneratorTraits::Of(GeneratorKind kind) {
  return kTraits.at(static_cast<std::size_t>(kind));
}

}  // namespace morvane
