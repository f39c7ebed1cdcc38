#pragma once

#include "tests/support/ChartTest.h"

/// A chart beside its tree, and what a user does with its commands and their dialogs.
class DialogTest : public testing::Test {
 protected:
  using Host = ScriptedDialogHost;

  explicit DialogTest(const std::string& text) : chart(LoadChart(text)) {
    chart->SetObjectTree(&browser);
  }
  ~DialogTest() override { chart->SetObjectTree(nullptr); }
  void SetUp() override { chart->TakeSnapshot(); }

  /// Gives a command of the context menu of an object.
  void Command(int id, unsigned command) {
    HiddenWindow menu(chart.get());
    menu.SetTarget(FindShape(*chart, id));
    menu.OnCommand(command);
  }
  /// Types texts into a dialog and closes it.
  static Host::Script Typing(std::vector<std::pair<int, std::string>> texts, int button = IDOK) {
    return [texts = std::move(texts), button](CDialog& dialog) {
      for (const auto& [id, text] : texts) Host::Type(dialog, id, text);
      Host::Press(dialog, button);
    };
  }
  bool Holds(const std::string& part) const {
    return chart->ModelText().find(part) != std::string::npos;
  }
  bool CanUndo() const { return chart->OnUpdateCommand(ID_EDIT_UNDO).enabled; }

  NotingBrowser browser;
  std::unique_ptr<LayoutMgr> chart;
  Host host;
  ScriptedDialogs dialogs;
  ScriptedMessageBoxes boxes;
};
