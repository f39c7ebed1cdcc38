#include "model/Shape.h"

#include "drawing/CDC.h"
#include "model/ChartView.h"
#include "model/Collection.h"
#include "model/InPlaceField.h"
#include "model/ModelMgr.h"
#include "model/ModelStream.h"
#include "platform/MessageBox.h"
#include "resources/Texts.h"

namespace morvane {

Shape::Shape(std::int32_t id, ChartView* view, Layer layer)
    : Object(id), view(view), layer(layer) {}

Shape::~Shape() {
  if (mgr == nullptr) return;
  mgr->GetSelection().Remove(this);
  mgr->RemoveShape(this);
}

void Shape::DrawOnScreen(CDC& dc) {
  Draw(&dc);
  const Mapping logical = dc.SetMapping(view->ClientMapping());
  DrawMarks(dc);
  dc.SetMapping(logical);
}

void Shape::Write(ModelStream& stream) const {
  stream << "BEGIN " << GetTypeName() << ' ' << id << '\n';
  stream << id << ' ' << std::int32_t{layer} << '\n';
}

void Shape::Read(ModelStream& stream) {
  std::int16_t storedLayer = 0;
  stream >> id >> storedLayer;
  SkipLine(stream.In());
  layer = GetClassLayer();
}

bool Shape::RemapIds(IdMap& map) {
  id = map[id];
  return true;
}

void Shape::OnCommand(unsigned /*id*/) {}
void Shape::OnLButtonDown(unsigned /*flags*/, std::int32_t /*x*/, std::int32_t /*y*/) {}
std::optional<InPlaceField> Shape::FieldInPlace() const { return std::nullopt; }

void Shape::OnLButtonDblClk(unsigned /*flags*/, std::int32_t /*x*/, std::int32_t /*y*/) {}
bool Shape::OnSetCursor(CWnd* /*window*/, unsigned /*hitTest*/, unsigned /*message*/) {
  return true;
}

void Shape::AttachTo(ModelMgr* manager, ChartView* chartView) {
  mgr = manager;
  manager->AddShape(this, id);
  if (chartView != nullptr) {
    view = chartView;
    OnPlaced();
  } else {
    OnRestored();
  }
}

void Shape::ForgetModel() { mgr = nullptr; }

bool Shape::IsInSelection() const { return mgr != nullptr && mgr->GetSelection().Contains(this); }

bool Shape::MovesAlong() const { return mgr != nullptr && mgr->MovesAlong(this); }

void Shape::InvalidateNew() {
  if (mgr->IsShown()) Invalidate();
}

bool Shape::ConfirmDeletion(unsigned textId) {
  return ShowMessage(LoadText(textId), kConfirmFlags) == MessageAnswer::Yes;
}

}  // namespace morvane
