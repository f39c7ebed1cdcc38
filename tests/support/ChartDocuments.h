#pragma once

#include "platform/CDocManager.h"
#include "tests/support/ChartTest.h"

/// Windows that only remember which of them there are.
class FakeFrames : public FrameHost {
 public:
  void CreateFrame(CDocument& document) override { frames.insert(&document); }
  void ShowFrame(CDocument& document) override { shown.insert(&document); }
  void ActivateFrame(CDocument& document) override { active = &document; }
  void CloseFrame(CDocument& document) override { frames.erase(&document); }
  void UpdateTitle(CDocument&) override {}

  std::set<CDocument*> frames;
  std::set<CDocument*> shown;
  CDocument* active = nullptr;
};

/// The open charts of a program of a test's own, and what its user is asked.
struct ChartDocuments {
  static LayoutMgr& View(CDocument* document) {
    return dynamic_cast<LayoutMgr&>(*document->GetView());
  }
  static void Change(CDocument* document) { View(document).GetProperties().Author += "!"; }

  TempFolder folder;
  MemoryProfile profile;
  const UseService<Profile> use{profile};
  ScriptedMessageBoxes boxes;
  ScriptedDialogs dialogs;
  FakeFrames frames;
  CDocManager manager{{"Morvane_Diagram",
                       {"Morvane Files (*.mrv)", ".mrv"},
                       std::make_unique<CMorvaneDoc>,
                       std::make_unique<LayoutMgr>},
                      frames};
};
