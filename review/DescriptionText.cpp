#include "review/DescriptionText.h"

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "review/ChartDescription.h"
#include "review/LineDiff.h"

namespace morvane {

namespace {

/// A text of several lines stands below its label.
void WriteFact(std::ostream& out, const Fact& fact) {
  const bool isText = fact.aspect == Fact::Aspect::Text;
  out << "  " << fact.label << ':';
  if (!isText || fact.value.find('\n') == std::string::npos) {
    out << ' ' << LineDiff::Readable(fact.Shown()) << '\n';
    return;
  }
  out << '\n';
  for (const std::string_view line : LineDiff::Lines(fact.value)) {
    out << "    " << LineDiff::Readable(line) << '\n';
  }
}

void WriteFacts(std::ostream& out, const std::vector<Fact>& facts) {
  constexpr Fact::Aspect order[] = {Fact::Aspect::Meaning, Fact::Aspect::Text, Fact::Aspect::Place,
                                    Fact::Aspect::Route, Fact::Aspect::Look};
  for (const Fact::Aspect aspect : order) {
    for (const Fact& fact : facts) {
      if (fact.aspect == aspect && !fact.value.empty()) WriteFact(out, fact);
    }
  }
}

}  // namespace

void DescriptionText::Write(const ChartDescription& description, std::ostream& out) {
  out << "Chart\n";
  WriteFacts(out, description.properties);
  for (const DescribedObject& object : description.objects) {
    out << object.name << '\n';
    WriteFacts(out, object.facts);
  }
}

}  // namespace morvane
