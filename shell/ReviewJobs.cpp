#include "shell/ReviewJobs.h"

#include <exception>
#include <ostream>

#include "resources/Texts.h"
#include "review/ChartComparison.h"
#include "review/ChartDescription.h"
#include "review/DescriptionText.h"
#include "review/DiffPicture.h"
#include "review/DiffReport.h"

namespace morvane {

namespace {

int Trouble(std::ostream& err, const std::string& path, const std::string& reason) {
  err << path << ": " << reason << '\n';
  return DiffStatus::kTrouble;
}

/// Gives the reason of a failure, empty on success.
std::string WritePicture(const ChartComparison& comparison, const std::string& path) {
  const DiffPicture picture(comparison.Before(), comparison.After(), comparison.Diff());
  return picture.Save(path);
}

}  // namespace

int RunDiff(const std::string& before, const std::string& after, const std::string& picture,
            std::ostream& out, std::ostream& err) {
  try {
    std::string texts[2];
    const std::string* paths[] = {&before, &after};
    for (int i = 0; i < 2; ++i) {
      const std::string reason = ChartDescription::ReadText(*paths[i], texts[i]);
      if (!reason.empty()) return Trouble(err, *paths[i], reason);
    }
    ChartComparison comparison;
    for (int i = 0; i < 2; ++i) {
      const auto side = i == 0 ? ChartComparison::Side::Before : ChartComparison::Side::After;
      const std::string reason = comparison.Take(side, texts[i]);
      if (!reason.empty()) return Trouble(err, *paths[i], reason);
    }
    comparison.Compare();
    if (picture.empty()) {
      DiffReport::Write(comparison.Diff(), before, after, out);
    } else {
      std::string reason = comparison.Place();
      if (!reason.empty()) return Trouble(err, after, reason);
      reason = WritePicture(comparison, picture);
      if (!reason.empty()) return Trouble(err, picture, reason);
    }
    return comparison.Diff().IsSame() ? DiffStatus::kSame : DiffStatus::kDifferent;
  } catch (const std::exception&) {
    return Trouble(err, after, LoadText(IDS_UNKNOWN_ERROR));
  }
}

bool RunDescribe(const std::string& file, std::ostream& out, std::ostream& err) {
  ChartDescription description;
  const std::string reason = ChartDescription::Load(file, description);
  if (reason.empty()) {
    DescriptionText::Write(description, out);
  } else {
    err << file << ": " << reason << '\n';
  }
  return reason.empty();
}

}  // namespace morvane
