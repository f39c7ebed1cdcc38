#include "shell/ChartCompare.h"

#include "drawing/TextCodec.h"
#include "persistence/CDocument.h"
#include "platform/CScrollView.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/WaitCursor.h"
#include "resources/Texts.h"
#include "review/ChartComparison.h"
#include "surface/LayoutMgr.h"

namespace morvane {

namespace {

/// Gives the reason of a failure, empty on success.
std::string Compare(const LayoutMgr& chart, const std::string& file, ChartComparison& comparison) {
  const WaitCursor wait;
  std::string text;
  std::string reason = ChartDescription::ReadText(file, text);
  if (reason.empty()) reason = comparison.Take(ChartComparison::Side::Before, text);
  if (reason.empty()) reason = comparison.Take(ChartComparison::Side::After, chart.ModelText());
  if (!reason.empty()) return reason;
  comparison.Compare();
  return comparison.Diff().IsSame() ? std::string() : comparison.Place();
}

}  // namespace

std::unique_ptr<ChartComparison> CompareWithFile(const CDocument& document,
                                                 const std::string& file) {
  const auto* chart = dynamic_cast<const LayoutMgr*>(document.GetView());
  if (chart == nullptr) return nullptr;
  auto comparison = std::make_unique<ChartComparison>();
  const std::string reason = Compare(*chart, file, *comparison);
  if (!reason.empty()) {
    ShowMessage(file + "\n\n" + LoadText(IDS_COMMAND_FAILED) + reason, MB_ICONHAND);
    return nullptr;
  }
  if (!comparison->Diff().IsSame()) return comparison;
  ShowMessage(WithName(LoadText(IDS_CHARTS_SAME), ToUtf8(FileNameOf(file))));
  return nullptr;
}

}  // namespace morvane
