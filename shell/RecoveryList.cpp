#include "shell/RecoveryList.h"

#include <algorithm>
#include <utility>

#include "drawing/TextCodec.h"
#include "persistence/ModelFile.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

constexpr const char* kFilterText = "Morvane Files (*.mrv)";
constexpr const char* kExtension = ".mrv";

}  // namespace

std::string RecoveryList::Row::Name() const {
  std::string name = offer.path.empty() ? offer.title : FileNameOf(offer.path);
  return name.empty() ? LoadText(IDS_UNTITLED) : name;
}

std::string RecoveryList::Row::Folder() const {
  return offer.path.empty() ? LoadText(IDS_NO_FILE_YET) : FolderOf(offer.path);
}

std::string RecoveryList::Row::Changes() const {
  // Without a file there is nothing to compare with, which the line of the folder says.
  if (offer.path.empty() || offer.difference.empty()) return {};
  return WithName(LoadText(IDS_UNSAVED_CHANGES), offer.difference);
}

RecoveryList::RecoveryList(std::vector<RecoveryOffer> offers, Recoverer opener)
    : recoverer(std::move(opener)) {
  int id = 0;
  for (RecoveryOffer& offer : offers) {
    const std::string& report = offer.crashReport;
    if (!report.empty() && std::ranges::find(reports, report) == reports.end()) {
      reports.push_back(report);
    }
    rows.push_back({++id, std::move(offer)});
  }
  heading = LoadText(reports.empty() ? IDS_RECOVERY_ENDED : IDS_RECOVERY_CRASHED);
}

RecoveryList::Row& RecoveryList::Find(int id) { return *std::ranges::find(rows, id, &Row::id); }

bool RecoveryList::Has(int id) const { return std::ranges::find(rows, id, &Row::id) != rows.end(); }

void RecoveryList::Remove(int id) {
  std::erase_if(rows, [id](const Row& row) { return row.id == id; });
}

void RecoveryList::Recover(int id) {
  if (Has(id) && recoverer(Find(id).offer)) Remove(id);
}

void RecoveryList::RecoverAll() {
  std::vector<int> ids;
  for (const Row& row : rows) ids.push_back(row.id);
  for (const int id : ids) Recover(id);
}

void RecoveryList::SaveAs(int id) {
  if (!Has(id)) return;
  const RecoveryOffer& offer = Find(id).offer;
  const std::string suggestion = offer.path.empty() ? Find(id).Name() + kExtension : offer.path;
  const auto path =
      Service<Dialogs>::Get().AskSavePath({Translate(kFilterText), kExtension}, suggestion);
  if (!path) return;
  const std::string reason = ModelFile::Save(*path, offer.text);
  if (!reason.empty()) {
    ShowMessage(ToUtf8(*path) + "\n\n" + LoadText(IDS_COMMAND_FAILED) + reason, MB_ICONHAND);
    return;
  }
  if (offer.entry != nullptr) offer.entry->Drop();
  Remove(id);
}

void RecoveryList::Discard(int id) {
  if (!Has(id)) return;
  const std::string question = WithName(LoadText(IDS_CONFIRM_DISCARD), ToUtf8(Find(id).Name()));
  if (ShowMessage(question, kConfirmFlags) != MessageAnswer::Yes) return;
  if (Find(id).offer.entry != nullptr) Find(id).offer.entry->Drop();
  Remove(id);
}

}  // namespace morvane
