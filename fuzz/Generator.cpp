#include <algorithm>
#include <array>
#include <charconv>

#include "fuzz/FuzzTarget.h"
#include "fuzz/Mutation.h"
#include "generators/EmitterFor.h"
#include "machine/Machine.h"
#include "machine/MachineBuilder.h"

namespace morvane {

// A chart file goes through every generator: what has a meaning becomes code, twice the same, in
// files of plain names, and lines that lead back into the code lead to the right place.

namespace {

constexpr std::array kLanguages = {TargetLanguage::Cpp, TargetLanguage::C, TargetLanguage::CSharp,
                                   TargetLanguage::Java, TargetLanguage::Xml};

void CheckName(const std::string& name) {
  Require(!name.empty() && name.front() != '.', "a file has no name");
  for (const char c : name) {
    Require(c != '/' && c != '\\' && static_cast<unsigned char>(c) >= ' ',
            "a name leads elsewhere");
  }
}

/// A line directive that names the file itself stands in front of the line of that number.
void CheckLines(const GeneratedFile& file) {
  const std::string ending = " \"" + file.name + '"';
  int number = 0;
  for (std::size_t at = 0; at < file.content.size();) {
    const std::size_t end = std::min(file.content.find('\n', at), file.content.size());
    const std::string_view line(file.content.data() + at, end - at);
    ++number;
    at = end + 1;
    if (!line.starts_with("#line ") || !line.ends_with(ending)) continue;
    int named = 0;
    std::from_chars(line.data() + 6, line.data() + line.size(), named);
    Require(named == number + 1, "a line directive leads to another line");
  }
}

void Check(const std::string& text) {
  const BuiltMachine built = MachineBuilder::FromText(text);
  if (!built.machine) return;
  for (const TargetLanguage language : kLanguages) {
    for (const bool debug : {false, true}) {
      const EmitOptions options{.debug = debug, .modelFile = "a \"b\"\\c.mrv", .stem = "chart"};
      const Emission emission = EmitterFor(language)->Emit(*built.machine, options);
      const Emission again = EmitterFor(language)->Emit(*built.machine, options);
      Require(HasErrors(emission.problems) || !emission.files.empty(), "no code");
      for (std::size_t i = 0; i < emission.files.size(); ++i) {
        CheckName(emission.files[i].name);
        Require(!emission.files[i].content.empty(), "an empty file");
        Require(emission.files[i].content == again.files[i].content, "other code the second time");
        CheckLines(emission.files[i]);
      }
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  CheckWithDamages(TextOf(data, size), Check);
  return 0;
}

}  // namespace morvane
