#include "surface/LayoutMgr.h"

#include <algorithm>
#include <exception>
#include <sstream>
#include <utility>

#include "connectors/ChartFactory.h"
#include "drawing/CDC.h"
#include "model/ModelMgr.h"
#include "model/ModelStream.h"
#include "model/ObjectBrowser.h"
#include "persistence/CDocument.h"
#include "persistence/CMorvaneDoc.h"
#include "persistence/ModelHeader.h"
#include "platform/CPrintInfo.h"
#include "platform/MessageBox.h"
#include "platform/ModalLoop.h"
#include "platform/WaitCursor.h"
#include "resources/CommandIds.h"
#include "resources/Texts.h"
#include "surface/ChartCommands.h"
#include "surface/ChartEncoding.h"
#include "surface/ChartHistory.h"
#include "surface/ChartLook.h"
#include "surface/ChartReading.h"
#include "surface/ChartWatcher.h"
#include "surface/ConnectionDrag.h"
#include "surface/InPlaceEdit.h"
#include "surface/KeyboardWalk.h"
#include "surface/Nudge.h"
#include "surface/ObjectMarks.h"
#include "surface/Pasting.h"
#include "surface/PrintMapping.h"
#include "surface/RunMarks.h"
#include "surface/ToolDrag.h"
#include "surface/ViewGeometry.h"
#include "surface/WatchedView.h"

namespace morvane {

// The view as the owner of its model: read, shown, written, painted. The mouse and the keys are in
// LayoutMgrMouse.cpp.

namespace {

/// Given to the chart, the command for the properties of an object means those of the model.
unsigned OfChart(unsigned id) { return id == ID_OBJECT_PROPERTIES ? ID_MODEL_PROPERTIES : id; }

}  // namespace

LayoutMgr::LayoutMgr()
    : model(std::make_shared<ModelMgr>(this, ChartFactory())),
      look(std::make_unique<ChartLook>()),
      geometry(std::make_unique<ViewGeometry>(*this)),
      tools(std::make_unique<ToolDrag>(*this)),
      walk(std::make_unique<KeyboardWalk>(*this)),
      reading(std::make_unique<ChartReading>(*this)),
      connections(std::make_unique<ConnectionDrag>(*this)),
      nudge(std::make_unique<Nudge>(*this)),
      pasting(std::make_unique<Pasting>(*this)),
      inPlace(std::make_unique<InPlaceEdit>(*this)),
      marks(std::make_unique<ObjectMarks>(*this)),
      runMarks(std::make_unique<RunMarks>(*this)),
      printMapping(std::make_unique<PrintMapping>()),
      history(std::make_unique<ChartHistory>(*this)) {
  model->Show();
}

LayoutMgr::~LayoutMgr() {
  readChart.reset();
  model.reset();
}

bool LayoutMgr::IsBusy() const {
  return (HasCapture() && !tools->IsRunning()) || ModalLoop::IsRunning();
}

Collection& LayoutMgr::GetSelection() const { return model->GetSelection(); }

Shape* LayoutMgr::FindShapeNear(const POINT& client, Layer layer) const {
  return model->ObjectNear(client, layer);
}

void LayoutMgr::GetChartExtent(std::int32_t& right, std::int32_t& bottom) const {
  model->GetChartExtent(right, bottom);
}

void LayoutMgr::BringToFront(Shape* shape) { model->BringToFront(shape); }

void LayoutMgr::Reveal(const std::vector<Shape*>& shapes) {
  model->Select(shapes);
  if (!shapes.empty()) ScrollIntoView(*shapes.front());
}

void LayoutMgr::KeepInSight(const RECT& model) { geometry->KeepInSight(model); }

void LayoutMgr::ScrollIntoView(const Shape& shape) { geometry->ScrollIntoView(shape.GetBounds()); }

RECT LayoutMgr::PlaceOnScreen(const Shape& shape) const {
  const RECT client = IntersectRect(ToClient(shape.GetBounds()), GetClientRect());
  const POINT corner = ClientToScreen(TopLeft(client));
  return {corner.x, corner.y, AddSat(corner.x, Saturate(Width(client))),
          AddSat(corner.y, Saturate(Height(client)))};
}

void LayoutMgr::DeleteSelection() {
  {
    const WaitCursor wait;
    model->DeleteSelected(true);
  }
  Invalidate();
  TakeSnapshot();
}

void LayoutMgr::ChangeZoom(int value) { ChangeZoom(value, geometry->MiddleOfWindow()); }

void LayoutMgr::ChangeZoom(int value, POINT client) {
  if (value >= kMinZoom && value <= kMaxZoom) ShowZoom(value, client);
}

void LayoutMgr::ShowAtZoom(int value) {
  if (watcher != nullptr) ShowZoom(value, geometry->MiddleOfWindow());
}

void LayoutMgr::ShowZoom(int value, POINT client) {
  connections->HideHover();
  const int oldZoom = std::exchange(zoom, static_cast<std::int16_t>(value));
  geometry->ApplyZoom(oldZoom, client);
  RefreshHover();
  if (value < kMinZoom || watcher != nullptr) return;
  storedZoom = zoom;
  history->OnZoomChanged();
}

void LayoutMgr::ZoomToFit(Shown shown) {
  RECT around;
  for (Shape* shape : model->Objects()) {
    if (shown == Shown::Selection && !shape->IsInSelection()) continue;
    around = IsRectEmpty(around) ? shape->GetBounds() : UnionRect(around, shape->GetBounds());
  }
  if (IsRectEmpty(around)) return;
  ShowZoom(geometry->ZoomToFit(around), geometry->MiddleOfWindow());
  geometry->ScrollToMiddle(around);
}

void LayoutMgr::ApplyZoom() { geometry->ApplyZoom(zoom, geometry->MiddleOfWindow()); }

/// The surface grows with what stands near its end.
void LayoutMgr::MakeRoom() {
  POINT corner;
  for (const Shape* shape : model->Objects()) {
    const POINT end = BottomRight(shape->GetPaperBounds());
    corner = {std::max(corner.x, end.x), std::max(corner.y, end.y)};
  }
  geometry->MakeRoom(corner);
}

void LayoutMgr::PrepareMapping(CDC& dc) const { geometry->PrepareMapping(dc); }

bool LayoutMgr::OnScrollBy(SIZE distance) {
  if (!CScrollView::OnScrollBy({distance.cx / zoom * zoom, distance.cy / zoom * zoom}))
    return false;
  inPlace->Follow();
  if (!IsBusy()) RefreshHover();
  return true;
}

const CFont& LayoutMgr::GetBoldFont() const { return look->BoldFont(); }

COLORREF LayoutMgr::GetTextColor() const { return look->TextColour(); }

void LayoutMgr::DrawChartText(CDC& dc, std::string_view text, const RECT& area) const {
  look->DrawText(dc, text, area);
}

void LayoutMgr::OnInitialUpdate() {
  ShowRead();
  geometry->Begin();
  MakeRoom();
  look->TakeDefaults();
  history->Keep();
  if (auto* document = dynamic_cast<CMorvaneDoc*>(GetDocument())) document->RememberSavedText();
  if (objectTree != nullptr) objectTree->Attach(this);
  Invalidate();
}

void LayoutMgr::PlaceWithoutWindow(Size size) {
  if (size == Size::Normal && readChart != nullptr) readChart->zoom = kNormalZoom;
  if (size == Size::Normal) zoom = storedZoom = kNormalZoom;
  ShowRead();
  look->TakeDefaults();
}

void LayoutMgr::OnDraw(CDC& dc) {
  dc.SetBkMode(BkMode::Transparent);
  geometry->DrawGrid(dc);
  PrepareMapping(dc);
  dc.SetTextColor(GetTextColor());
  model->DrawOnScreen(dc);
  dc.SetMapping(ClientMapping());
  runMarks->DrawOnScreen(dc);
  marks->Draw(dc);
}

SIZE LayoutMgr::MeasureChartText(std::string_view text, std::int32_t width, Letters letters) const {
  const bool bold = letters == Letters::Bold;
  return ChartLook::Measure(text, width, bold ? look->BoldFont() : look->NormalFont());
}

ReadableParts* LayoutMgr::Parts() { return reading.get(); }

void LayoutMgr::TellReaders() {
  reading->Forget();
  TellPartsChanged();
}

void LayoutMgr::TakeSnapshot() {
  MakeRoom();
  marks->Follow();
  TellReaders();
  // What the pointer was on may be gone.
  ModalLoop::IsRunning() ? connections->HideHover() : RefreshHover();
  if (objectTree != nullptr) objectTree->OnObjectsMoved();
  history->Keep();
  // The view may be gone behind a message.
  const std::vector<std::string> texts = std::exchange(notices, {});
  for (const std::string& text : texts) ShowMessage(text);
}

void LayoutMgr::TellLater(std::string text) {
  if (std::ranges::find(notices, text) == notices.end()) notices.push_back(std::move(text));
}

SharedText LayoutMgr::SnapshotText() const { return history->Current(); }

std::string LayoutMgr::ModelText() const {
  std::ostringstream text;
  ModelStream stream(text);
  Write(stream);
  return std::move(text).str();
}

void LayoutMgr::Write(ModelStream& stream) const {
  ModelHeader::Write(stream);
  const bool waits = readChart != nullptr;
  stream << std::int32_t{waits ? readChart->zoom : storedZoom} << '\n';
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
  const std::int16_t oldZoom = zoom;
  // A view that shows the chart smaller than its zoom goes on with that.
  if (chart->zoom != storedZoom) zoom = chart->zoom;
  try {
    chart->model->PlaceAll();
  } catch (...) {
    zoom = oldZoom;
    throw;
  }
  storedZoom = chart->zoom;
  properties = std::move(chart->properties);
  model->Hide();
  model = std::move(chart->model);
  if (objectTree != nullptr) objectTree->Attach(this);
  model->Show();
  TellReaders();
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
  MakeRoom();
  if (zoom != oldZoom) geometry->ApplyZoom(oldZoom, geometry->MiddleOfWindow());
  marks->Follow();
  Invalidate();
  RefreshHover();
  return true;
}

bool LayoutMgr::ReplaceText(const std::string& text, std::string& reason) {
  FinishTyping();
  if (watcher != nullptr) watcher->OnReplacing();
  if (!Restore(text, reason)) return false;
  history->TakeAsRead();
  TakeSnapshot();
  return true;
}

TextEncoding LayoutMgr::FoundEncoding() { return ChartEncoding(*model, properties).Found(); }

EncodingChange LayoutMgr::UnifyEncoding(TextEncoding former) {
  return ChartEncoding(*model, properties).Unify(former);
}

void LayoutMgr::ConvertToUtf8() {
  FinishTyping();
  ChartEncoding(*model, properties).ConvertToUtf8();
  history->TakeAsRead();
  TakeSnapshot();
}

void LayoutMgr::OnBeginPrinting(CDC& dc, CPrintInfo& info) {
  std::int32_t right = 0;
  std::int32_t bottom = 0;
  GetChartExtent(right, bottom);
  info.SetMaxPage(printMapping->Begin(dc, {ToLogical(right), ToLogical(bottom)}));
}

void LayoutMgr::OnPrint(CDC& dc, CPrintInfo& info) {
  printMapping->SelectPage(dc, info.curPage);
  dc.SetTextColor(GetTextColor());
  model->DrawAll(&dc);
  printMapping->DrawFoot(dc, info.curPage, GetTitle());
}

bool LayoutMgr::OnPreparePrinting(CPrintInfo& info) {
  if (GetDocument() != nullptr) info.path = GetDocument()->GetPathName();
  return DoPreparePrinting(info);
}

void LayoutMgr::OnFilePrintSetup() { printMapping->Edit(); }

void LayoutMgr::SetWatcher(ChartWatcher* other) {
  if (watcher == other) return;
  FinishTyping();
  tools->EndToolDrag();
  connections->HideHover();
  if (watcher == nullptr) watchedView = std::make_unique<WatchedView>(*this);
  if (other == nullptr) {
    runMarks->Set({});
    std::exchange(watchedView, nullptr)->Restore();
  }
  watcher = other;
}

CommandState LayoutMgr::OnUpdateCommand(unsigned id) {
  if (watcher != nullptr && !WatchedView::Allows(id)) {
    const bool isOwn = ChartCommands().Find(OfChart(id)) != nullptr;
    return isOwn ? CommandState::Enabled(false) : CommandState{};
  }
  return ChartCommands().StateOf(*this, OfChart(id));
}

bool LayoutMgr::OnCommand(unsigned id) {
  if (ModalLoop::IsRunning()) return false;
  if (watcher != nullptr && !WatchedView::Allows(id)) return false;
  FinishTyping();
  const auto held = HoldModel();
  return ChartCommands().Run(*this, OfChart(id));
}

std::string LayoutMgr::TipAt(POINT client) const { return marks->TextAt(client); }

std::string LayoutMgr::GetTitle() const {
  return GetDocument() != nullptr ? GetDocument()->GetTitle() : LoadText(IDS_UNTITLED);
}

bool LayoutMgr::OnClose() { return GetDocument() == nullptr || GetDocument()->SaveModified(); }

ModelStream& operator<<(ModelStream& stream, const LayoutMgr& view) {
  view.Write(stream);
  return stream;
}

ModelStream& operator>>(ModelStream& stream, LayoutMgr& view) {
  view.Read(stream);
  return stream;
}

}  // namespace morvane
