#include <sstream>

#include "drawing/CMetaFileDC.h"
#include "drawing/NullDC.h"
#include "fuzz/AgreeingMessageBoxes.h"
#include "fuzz/ChartFaults.h"
#include "fuzz/FuzzTarget.h"
#include "model/Collection.h"
#include "model/GroupMove.h"
#include "model/ModelMgr.h"
#include "model/ModelStream.h"
#include "persistence/ModelFile.h"
#include "resources/CommandIds.h"
#include "shell/CObjectTree.h"
#include "surface/ChartPicture.h"
#include "surface/LayoutMgr.h"
#include "tests/support/FakeWindow.h"

namespace morvane {

// A chart file: it is refused with a reason or it opens, and then it can be painted, copied,
// changed, undone and saved like any other.

namespace {

/// Reads a text as from a file; false if it is refused.
bool Read(LayoutMgr& chart, const std::string& text) {
  std::istringstream in(text);
  ModelStream stream(in);
  try {
    stream >> chart;
  } catch (const std::string& reason) {
    Require(!reason.empty(), "a chart is refused without a reason");
    return false;
  }
  return true;
}

/// Paints all of the chart as a window of any size would.
void Paint(LayoutMgr& chart) {
  NullDC reference;
  CMetaFileDC dc(reference);
  chart.OnDraw(dc);
}

void ChangeAll(LayoutMgr& chart) {
  chart.OnCommand(ID_EDIT_SELECT_ALL);
  Paint(chart);
  POINT offset{3, 2};
  chart.GetSelection().Broadcast(BROADCAST_SHOW_GHOST, &offset, nullptr);
  chart.GetSelection().Broadcast(BROADCAST_END_GHOST, nullptr, nullptr);
  GroupMove(chart.GetModel()).Move(offset);
  chart.TakeSnapshot();
  chart.OnCommand(ID_BRING_TO_FRONT);
  chart.OnCommand(ID_ZOOM_IN);
  chart.OnCommand(ID_ZOOM_OUT);
  chart.OnCommand(ID_DELETE);
  Require(chart.GetModel().Objects().empty(), "something is left of a chart");
}

void Handle(const std::string& text) {
  CObjectTree tree;
  LayoutMgr chart;
  const FakeWindow window(chart);
  chart.SetObjectTree(&tree);
  if (!Read(chart, text)) return;
  chart.OnInitialUpdate();
  Require(TreeFault(chart, tree));
  Paint(chart);
  const std::string stored = chart.ModelText();
  Require(ModelFile::FromDisk(ModelFile::ToDisk(stored)) == stored, "a file changes the text");
  ChangeAll(chart);
  Require(HistoryFault(chart));
  Require(TreeFault(chart, tree));
}

void Draw(const std::string& text) {
  LayoutMgr chart;
  if (!Read(chart, text)) return;
  chart.PlaceWithoutWindow(LayoutMgr::Size::Normal);
  Require(TextFault(chart));
  const ChartPicture picture(chart);
  Require(!picture.MakeEmf().empty(), "a metafile is empty");
  Require(!picture.MakeSvg().empty(), "a picture is empty");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const AgreeingMessageBoxes boxes;
  const std::string text = ModelFile::FromDisk(TextOf(data, size));
  Handle(text);
  Draw(text);
  return 0;
}

}  // namespace morvane
