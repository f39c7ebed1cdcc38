#include <sstream>

#include <QApplication>

#include "fuzz/AgreeingMessageBoxes.h"
#include "fuzz/FuzzTarget.h"
#include "fuzz/qt/Application.h"
#include "model/ModelStream.h"
#include "persistence/ModelFile.h"
#include "platform/qt/QtPictures.h"
#include "platform/qt/QtView.h"
#include "resources/CommandIds.h"
#include "surface/ChartPicture.h"
#include "surface/LayoutMgr.h"

namespace morvane {

// A chart file on the screen and as pictures, painted by the toolkit.

namespace {

constexpr QSize kWindow(500, 400);
/// A larger picture takes its time whatever the chart is.
constexpr std::int64_t kMostPixels = std::int64_t{1} << 24;

bool Read(LayoutMgr& chart, const std::string& text) {
  std::istringstream in(text);
  ModelStream stream(in);
  try {
    stream >> chart;
  } catch (const std::string&) {
    return false;
  }
  return true;
}

void Show(const std::string& text) {
  LayoutMgr chart;
  if (!Read(chart, text)) return;
  QtView window(chart);
  window.resize(kWindow);
  window.show();
  chart.OnInitialUpdate();
  chart.ApplyZoom();
  chart.UpdateWindow();
  for (const unsigned command : {ID_EDIT_SELECT_ALL, ID_ZOOM_IN, ID_ZOOM_OUT}) {
    chart.OnCommand(command);
    chart.UpdateWindow();
  }
  chart.OnScroll(ScrollBar::Vertical, ScrollCode::PageForward);
  chart.OnMouseMove(0, {kWindow.width() / 2, kWindow.height() / 2});
  QApplication::processEvents();
}

void MakePictures(const std::string& text) {
  LayoutMgr chart;
  if (!Read(chart, text)) return;
  chart.PlaceWithoutWindow(LayoutMgr::Size::Normal);
  const ChartPicture picture(chart);
  const SIZE size = picture.Size();
  if (std::int64_t{size.cx} * size.cy <= kMostPixels) picture.MakePng();
  picture.MakePdf();
  Require(!picture.MakeEmf().empty() && !picture.MakeSvg().empty(), "a picture is empty");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  StartToolkit();
  const AgreeingMessageBoxes boxes;
  QtPictures pictures;
  Service<Pictures>::Set(&pictures);
  const std::string text = ModelFile::FromDisk(TextOf(data, size));
  Show(text);
  MakePictures(text);
  Service<Pictures>::Set(nullptr);
  return 0;
}

}  // namespace morvane
