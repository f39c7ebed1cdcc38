#pragma once

#include "persistence/DocumentManager.h"
#include "recovery/RecoveryStore.h"
#include "tests/support/ChartTest.h"

namespace morvane {

/// A run of the program without windows: charts that are open, and a recovery store in a folder
/// that several runs can share. What lives in the same process counts as another running copy.
class OpenCharts : public FrameHost {
 public:
  explicit OpenCharts(const std::string& folder) : store(folder) {}
  /// Ends as if the program was killed: nothing is closed, only the locks go.
  ~OpenCharts() override { store.Writer().Finish(); }

  CMorvaneDoc& Open(const std::string& path) { return As(manager.OpenDocumentFile(path)); }
  CMorvaneDoc& New() { return As(manager.NewDocument()); }
  static LayoutMgr& ViewOf(CDocument& document) {
    return dynamic_cast<LayoutMgr&>(*document.GetView());
  }
  /// A change of the chart, as one step.
  static void Sign(CDocument& document, const std::string& author) {
    ViewOf(document).GetProperties().Author = author;
    ViewOf(document).TakeSnapshot();
  }
  static std::string AuthorOf(CDocument& document) {
    return ViewOf(document).GetProperties().Author;
  }
  /// What is left behind by others.
  std::vector<RecoveryOffer> Offers() {
    store.Writer().Finish();
    return store.TakeOffers();
  }

  void CreateFrame(CDocument& /*document*/) override {}
  void ShowFrame(CDocument& /*document*/) override {}
  void ActivateFrame(CDocument& /*document*/) override { ++activated; }
  void CloseFrame(CDocument& /*document*/) override {}
  void UpdateTitle(CDocument& /*document*/) override { ++titlesShown; }
  void UpdateNotices(CDocument& document) override { notices = document.Notices(); }

  int titlesShown = 0;
  int activated = 0;
  std::vector<DocumentNotice> notices;  ///< as they were shown last
  RecoveryStore store;
  DocumentManager manager{{"Chart",
                           {"Charts", ".mrv"},
                           [this] { return std::make_unique<CMorvaneDoc>(&store); },
                           [] { return std::make_unique<LayoutMgr>(); }},
                          *this};

 private:
  static CMorvaneDoc& As(CDocument* document) { return dynamic_cast<CMorvaneDoc&>(*document); }
};

}  // namespace morvane
