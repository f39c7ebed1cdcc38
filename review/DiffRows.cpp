#include "review/DiffRows.h"

#include <array>

#include "resources/Texts.h"
#include "review/ChangeText.h"
#include "review/ChartDiff.h"

namespace morvane {

namespace {

using Kind = ObjectChange::Kind;

std::string KindText(Kind kind) {
  constexpr std::array texts{"added", "removed", "changed"};
  return Translate(texts[static_cast<std::size_t>(kind)]);
}

void Shorten(std::vector<std::string>& lines) {
  if (lines.size() <= DiffRow::kMaxLines) return;
  lines.resize(DiffRow::kMaxLines);
  lines.emplace_back("...");
}

DiffRow RowOf(const ObjectChange& change) {
  DiffRow row{&change, change.Object().Heading(), {}, ChangeText::Meaning(change)};
  if (change.HasMeaning()) row.summary = KindText(change.kind);
  for (const std::string& text : ChangeText::Look(change)) {
    row.summary += (row.summary.empty() ? "" : "; ") + text;
  }
  Shorten(row.lines);
  return row;
}

}  // namespace

std::vector<DiffRow> RowsOf(const ChartDiff& diff) {
  std::vector<DiffRow> rows;
  if (!diff.Properties().empty()) {
    DiffRow row{nullptr, Translate("Chart"), KindText(Kind::Changed), {}};
    for (const FactChange& change : diff.Properties()) {
      for (std::string& line : ChangeText::Of(change)) row.lines.push_back(std::move(line));
    }
    Shorten(row.lines);
    rows.push_back(std::move(row));
  }
  for (const Kind kind : {Kind::Added, Kind::Removed, Kind::Changed}) {
    for (const ObjectChange& change : diff.Objects()) {
      if (change.kind == kind && change.HasMeaning()) rows.push_back(RowOf(change));
    }
  }
  if (diff.WholeShift()) {
    rows.push_back({nullptr, Translate("Chart"), ChangeText::WholeShift(*diff.WholeShift()), {}});
  }
  for (const ObjectChange& change : diff.Objects()) {
    if (!change.HasMeaning() && change.HasLook()) rows.push_back(RowOf(change));
  }
  return rows;
}

}  // namespace morvane
