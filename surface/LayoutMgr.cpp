#include "surface/LayoutMgr.h"

#include <algorithm>
#include <exception>
#include <sstream>
#include <utility>

#include "connectors/ChartFactory.h"
#include "drawing/CDC.h"
#include "model/Defaults.h"
#include "model/DrawResources.h"
#include "model/ModelMgr.h"
#include "model/ModelStream.h"
#include "model/ObjectBrowser.h"
#include "persistence/CMorvaneDoc.h"
#include "persistence/ModelHeader.h"
#include "persistence/UndoHistory.h"
#include "platform/MessageBox.h"
#include "platform/ModalLoop.h"
#include "resources/Texts.h"

namespace {

/// Every so many model units the grid has a line.
constexpr std::int32_t kGridStep = 3;
/// A page step of the scroll bars, model units.
constexpr std::int32_t kPageStep = 6;

}  // namespace

LayoutMgr::LayoutMgr()
    : model(std::make_shared<ModelMgr>(this, ChartFactory())),
      undoHistory(std::make_unique<UndoHistory>()) {
  model->Show();
}

LayoutMgr::~LayoutMgr() {
  readChart.reset();
  model.reset();
}

bool LayoutMgr::IsBusy() const { return IsGestureRunning() || ModalLoop::IsRunning(); }

Collection& LayoutMgr::GetSelection() const { return model->GetSelection(); }

Shape* LayoutMgr::FindShapeNear(const POINT& client, Layer layer) const {
  return model->ObjectNear(client, layer);
}

void LayoutMgr::GetChartExtent(std::int32_t& right, std::int32_t& bottom) const {
  model->GetChartExtent(right, bottom);
}

void LayoutMgr::BringToFront(Shape* shape) { model->BringToFront(shape); }

void LayoutMgr::ApplyZoom() {
  SetScrollSizes({ToDevice(kChartSize.cx), ToDevice(kChartSize.cy)},
                 {ToDevice(kPageStep), ToDevice(kPageStep)});
  for (const ScrollBar bar : {ScrollBar::Horizontal, ScrollBar::Vertical}) {
    SetScrollPos(bar, ToDevice(ToModel(GetScrollPos(bar))));
  }
  Invalidate();
}

void LayoutMgr::ChangeZoom(std::int16_t value) {
  if (value < kMinZoom || value > kMaxZoom) return;
  zoom = value;
  ApplyZoom();
  // The zoom is part of the text and yet no step to undo.
  TellDocument(std::make_shared<const std::string>(ModelText()));
}

bool LayoutMgr::OnScrollBy(SIZE distance) {
  return CScrollView::OnScrollBy({distance.cx / zoom * zoom, distance.cy / zoom * zoom});
}

void LayoutMgr::MakeFonts() {
  // What no screen could show is taken as the nearest size that one can.
  constexpr std::int32_t smallest = 10;
  constexpr std::int32_t greatest = 5000;
  constexpr std::int32_t tenthsPerPoint = 10;
  const Defaults& settings = Defaults::Instance();
  const std::int32_t size = std::clamp(settings.FontSize, smallest, greatest);
  font = CFont::FromTenthsOfPoint(size, settings.FontName);
  boldFont = CFont::FromTenthsOfPoint(size / tenthsPerPoint * tenthsPerPoint, settings.FontName);
  boldFont.weight = CFont::kBoldWeight;
  textColor = settings.FontColor;
}

void LayoutMgr::OnInitialUpdate() {
  ShowRead();
  SetScrollSizes({ToLogical(kChartSize.cx), ToLogical(kChartSize.cy)},
                 {ToLogical(zoom), ToLogical(zoom)});
  MakeFonts();
  showGrid = Defaults::Instance().ShowGrid != 0;
  KeepSnapshot();
  if (auto* document = dynamic_cast<CMorvaneDoc*>(GetDocument())) document->RememberSavedText();
  if (objectTree != nullptr) objectTree->Attach(this);
  Invalidate();
}

void LayoutMgr::PlaceWithoutWindow(bool normalSize) {
  if (normalSize && readChart != nullptr) readChart->zoom = kNormalZoom;
  if (normalSize) zoom = kNormalZoom;
  ShowRead();
  MakeFonts();
}

void LayoutMgr::PrepareMapping(CDC& dc) const {
  dc.SetMapMode(MapMode::Isotropic);
  dc.SetWindowExt({ToLogical(kChartSize.cx), ToLogical(kChartSize.cy)});
  dc.SetViewportExt({ToDevice(kChartSize.cx), ToDevice(kChartSize.cy)});
}

void LayoutMgr::DrawChartText(CDC& dc, std::string_view text, const RECT& area) const {
  const BkMode oldMode = dc.SetBkMode(BkMode::Transparent);
  const COLORREF oldColor = dc.SetTextColor(textColor);
  const CFont oldFont = dc.SelectFont(font);
  RECT room = area;
  dc.DrawText(text, room, DT_WORDBREAK);
  dc.SelectFont(oldFont);
  dc.SetTextColor(oldColor);
  dc.SetBkMode(oldMode);
}

void LayoutMgr::DrawGrid(CDC& dc) const {
  const CPen oldPen = dc.SelectPen(DrawResources::Instance().gridPen);
  const std::int32_t step = ToDevice(kGridStep);
  const SIZE size{ToDevice(kChartSize.cx), ToDevice(kChartSize.cy)};
  const RECT clip = dc.GetClipBox();
  const auto firstLine = [step](std::int32_t from) { return std::max(from / step, 1) * step; };
  for (std::int32_t x = firstLine(clip.left); x < std::min(size.cx, clip.right); x += step) {
    dc.MoveTo({x, 0});
    dc.LineTo({x, size.cy});
  }
  for (std::int32_t y = firstLine(clip.top); y < std::min(size.cy, clip.bottom); y += step) {
    dc.MoveTo({0, y});
    dc.LineTo({size.cx, y});
  }
  dc.SelectPen(oldPen);
}

void LayoutMgr::OnDraw(CDC& dc) {
  dc.SetBkMode(BkMode::Transparent);
  if (showGrid) DrawGrid(dc);
  PrepareMapping(dc);
  dc.SetTextColor(textColor);
  model->DrawOnScreen(dc);
}

void LayoutMgr::KeepSnapshot() {
  // A click behind a zoom is no step either, and what can be redone stays.
  KeepZoom();
  undoHistory->Push(ModelText());
  snapshotZoom = zoom;
  TellDocument(undoHistory->Current());
}

void LayoutMgr::TakeSnapshot() {
  KeepSnapshot();
  ShowNotices();
}

void LayoutMgr::TellLater(std::string text) {
  if (std::ranges::find(notices, text) == notices.end()) notices.push_back(std::move(text));
}

/// The view may be gone behind a message.
void LayoutMgr::ShowNotices() {
  const std::vector<std::string> texts = std::exchange(notices, {});
  for (const std::string& text : texts) ShowMessage(text);
}

void LayoutMgr::TellDocument(const SharedText& text) {
  if (GetDocument() != nullptr) GetDocument()->OnTextChanged(text);
}

SharedText LayoutMgr::SnapshotText() const { return undoHistory->Current(); }

std::string LayoutMgr::ModelText() const {
  std::ostringstream text;
  ModelStream stream(text);
  Write(stream);
  return std::move(text).str();
}

void LayoutMgr::Write(ModelStream& stream) const {
  ModelHeader::Write(stream);
  const bool waits = readChart != nullptr;
  stream << std::int32_t{waits ? readChart->zoom : zoom} << '\n';
  (waits ? *readChart->model : *model).Write(stream);
  (waits ? readChart->properties : properties).Write(stream);
}

void LayoutMgr::Read(ModelStream& stream) {
  ModelHeader::Read(stream);
  std::int16_t storedZoom = kNormalZoom;
  stream >> storedZoom;
  SkipLine(stream.In());
  auto chart = std::make_unique<ReadChart>(
      ReadChart{std::clamp(storedZoom, kMinZoom, kMaxZoom),
                std::make_unique<ModelMgr>(this, ChartFactory()), properties});
  chart->model->Read(stream);
  chart->properties.Read(stream);
  readChart = std::move(chart);
}

void LayoutMgr::ShowRead() {
  if (readChart == nullptr) return;
  const std::unique_ptr<ReadChart> chart = std::move(readChart);
  const std::int16_t oldZoom = std::exchange(zoom, chart->zoom);
  try {
    chart->model->PlaceAll();
  } catch (...) {
    zoom = oldZoom;
    throw;
  }
  properties = std::move(chart->properties);
  model->Hide();
  model = std::move(chart->model);
  if (objectTree != nullptr) objectTree->Attach(this);
  model->Show();
}

bool LayoutMgr::Restore(const std::string& text, std::string& reason) {
  const std::int16_t oldZoom = zoom;
  std::istringstream snapshot(text);
  ModelStream stream(snapshot);
  try {
    Read(stream);
    ShowRead();
  } catch (const std::string& thrown) {
    reason = thrown;
    return false;
  } catch (const std::exception&) {
    reason = LoadText(IDS_UNKNOWN_ERROR);
    return false;
  }
  if (zoom != oldZoom) ApplyZoom();
  Invalidate();
  return true;
}

bool LayoutMgr::ReplaceText(const std::string& text, std::string& reason) {
  if (!Restore(text, reason)) return false;
  TakeSnapshot();
  return true;
}

ModelStream& operator<<(ModelStream& stream, const LayoutMgr& view) {
  view.Write(stream);
  return stream;
}

ModelStream& operator>>(ModelStream& stream, LayoutMgr& view) {
  view.Read(stream);
  return stream;
}
