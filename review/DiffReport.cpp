#include "review/DiffReport.h"

#include <algorithm>
#include <ostream>
#include <utility>
#include <vector>

#include "resources/Texts.h"
#include "review/ChangeText.h"
#include "review/ChartDiff.h"

namespace morvane {

namespace {

char SignOf(const ObjectChange& change) {
  switch (change.kind) {
    case ObjectChange::Kind::Added: return '+';
    case ObjectChange::Kind::Removed: return '-';
    default: return '~';
  }
}

void WriteLines(std::ostream& out, const std::vector<std::string>& lines) {
  for (const std::string& line : lines) out << "    " << line << '\n';
}

void WriteProperties(const ChartDiff& diff, std::ostream& out) {
  if (diff.Properties().empty()) return;
  out << "~ " << Translate("Chart") << '\n';
  for (const FactChange& change : diff.Properties()) WriteLines(out, ChangeText::Of(change));
}

/// What came, what went, what has changed.
void WriteMeaning(const ChartDiff& diff, ObjectChange::Kind kind, std::ostream& out) {
  for (const ObjectChange& change : diff.Objects()) {
    if (change.kind != kind || !change.HasMeaning()) continue;
    out << SignOf(change) << ' ' << change.Object().Heading() << '\n';
    WriteLines(out, ChangeText::Meaning(change));
  }
}

void WriteLooks(const ChartDiff& diff, std::ostream& out) {
  const auto& changes = diff.Objects();
  if (!diff.WholeShift() && std::ranges::none_of(changes, &ObjectChange::HasLook)) return;
  out << Translate("Looks") << ":\n";
  if (diff.WholeShift()) out << "  " << ChangeText::WholeShift(*diff.WholeShift()) << '\n';
  for (const ObjectChange& change : changes) {
    if (!change.HasLook()) continue;
    out << "  " << change.Object().Heading() << ": ";
    const char* separator = "";
    for (const std::string& line : ChangeText::Look(change)) {
      out << std::exchange(separator, "; ") << line;
    }
    out << '\n';
  }
}

}  // namespace

void DiffReport::Write(const ChartDiff& diff, const std::string& before, const std::string& after,
                       std::ostream& out) {
  if (diff.IsSame()) return;
  out << "--- " << before << "\n+++ " << after << '\n';
  WriteProperties(diff, out);
  using enum ObjectChange::Kind;
  for (const auto kind : {Added, Removed, Changed}) WriteMeaning(diff, kind, out);
  WriteLooks(diff, out);
}

}  // namespace morvane
