#include "shell/RecoveryList.h"

#include <algorithm>
#include <utility>

#include "model/ModelMgr.h"
#include "persistence/CMorvaneDoc.h"
#include "persistence/ModelFile.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "resources/Texts.h"
#include "surface/ChartPicture.h"
#include "surface/LayoutMgr.h"

namespace {

constexpr const char* kFilterText = "Morvane Files (*.mrv)";
constexpr const char* kExtension = ".mrv";
/// Larger charts have no picture, so that the list is there at once.
constexpr std::size_t kMostPictured = std::size_t{1} << 19;

}  // namespace

RecoveryList::RecoveryList(std::vector<RecoveryOffer> found, Opener open)
    : offers(std::move(found)), open(std::move(open)) {}

std::string RecoveryList::CrashReport() const {
  const auto found =
      std::ranges::find_if(offers, [](const auto& offer) { return !offer.crashReport.empty(); });
  return found != offers.end() ? found->crashReport : std::string();
}

bool RecoveryList::TakeOff(std::size_t index) {
  offers.erase(offers.begin() + static_cast<std::ptrdiff_t>(index));
  return true;
}

bool RecoveryList::Recover(std::size_t index) {
  return index < offers.size() && open(offers[index]) && TakeOff(index);
}

bool RecoveryList::SaveAs(std::size_t index) {
  if (index >= offers.size()) return false;
  RecoveryOffer& offer = offers[index];
  const std::string suggestion = offer.path.empty() ? NameOf(offer) + kExtension : offer.path;
  const auto path =
      Service<Dialogs>::Get().AskSavePath({Translate(kFilterText), kExtension}, suggestion);
  if (!path) return false;
  const std::string reason = ModelFile::Save(*path, offer.text);
  if (!reason.empty()) {
    CMorvaneDoc::ReportError(*path, reason);
    return false;
  }
  if (offer.entry != nullptr) offer.entry->Drop();
  return TakeOff(index);
}

bool RecoveryList::Discard(std::size_t index) {
  if (index >= offers.size()) return false;
  const std::string question = WithName(LoadText(IDS_CONFIRM_DISCARD), NameOf(offers[index]));
  if (ShowMessage(question, kConfirmFlags) != MessageAnswer::Yes) return false;
  if (offers[index].entry != nullptr) offers[index].entry->Drop();
  return TakeOff(index);
}

std::string RecoveryList::NameOf(const RecoveryOffer& offer) {
  if (!offer.path.empty()) return FileNameOf(offer.path);
  return offer.title.empty() ? LoadText(IDS_UNTITLED) : offer.title;
}

std::string RecoveryList::PlaceOf(const RecoveryOffer& offer) { return FolderOf(offer.path); }

std::string RecoveryList::PictureOf(const RecoveryOffer& offer) {
  LayoutMgr chart;
  if (offer.text.size() > kMostPictured || !ModelFile::Parse(offer.text, chart).empty()) return {};
  chart.PlaceWithoutWindow(true);
  if (chart.GetModel().Objects().empty()) return {};
  return ChartPicture(chart).MakeSvg();
}
