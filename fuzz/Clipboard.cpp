#include "platform/Clipboard.h"

#include <sstream>

#include "fuzz/AgreeingMessageBoxes.h"
#include "fuzz/ChartFaults.h"
#include "fuzz/FuzzTarget.h"
#include "model/Collection.h"
#include "model/ModelClipboard.h"
#include "model/ModelMgr.h"
#include "model/ModelStream.h"
#include "resources/CommandIds.h"
#include "shell/CObjectTree.h"
#include "surface/LayoutMgr.h"
#include "tests/support/Charts.h"
#include "tests/support/FakeWindow.h"

namespace morvane {

// The text that another program put on the clipboard, pasted twice into a chart that holds objects
// of every kind: what stood there stays as it is, and what came can be undone and copied again.

namespace {

std::string FullChart() {
  return ChartText(
      InitialRecord(1, {20, 10, 24, 14}) + StateRecord(2, {17, 24, 27, 32}) +
      TransitionRecord(3, 1, 2, "3 1 1 2", "2 22 14 22 15 \n0 22 15 22 23 \n3 22 23 22 24 \n") +
      MesgRecord(4, 3, {30, 16, 40, 22}) + NoteRecord(5, {40, 10, 52, 16}, Block("n")) +
      LineRecord(6, 5, 2, "4 1 2 1"));
}

void PutOnClipboard(const std::string& bytes) {
  Service<Clipboard>::Get().Put({{ModelClipboard::kFormat, bytes}});
}

/// The text of a chart up to the end of its objects, where a paste goes on.
std::string ObjectText(const LayoutMgr& chart) {
  const std::string text = chart.ModelText();
  return text.substr(0, text.find("END DATA\n"));
}

void RequireSound(const LayoutMgr& chart, CObjectTree& tree, const std::string& former) {
  Require(ObjectText(chart).starts_with(former), "a paste changes what stood there");
  Require(TreeFault(chart, tree));
  Require(TextFault(chart));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const AgreeingMessageBoxes boxes;
  CObjectTree tree;
  LayoutMgr chart;
  const FakeWindow window(chart);
  chart.SetObjectTree(&tree);
  std::istringstream in(FullChart());
  ModelStream stream(in);
  stream >> chart;
  chart.OnInitialUpdate();

  const std::string before = ObjectText(chart);
  PutOnClipboard(TextOf(data, size));
  chart.OnCommand(ID_EDIT_PASTE);
  RequireSound(chart, tree, before);
  const std::string pasted = ObjectText(chart);
  chart.OnCommand(ID_EDIT_COPY);
  chart.OnCommand(ID_EDIT_PASTE);
  RequireSound(chart, tree, pasted);
  Require(HistoryFault(chart));
  RequireSound(chart, tree, pasted);
  chart.OnCommand(ID_EDIT_SELECT_ALL);
  chart.OnCommand(ID_EDIT_CUT);
  Require(chart.GetModel().Objects().empty(), "something is left of a chart");
  return 0;
}

}  // namespace morvane
