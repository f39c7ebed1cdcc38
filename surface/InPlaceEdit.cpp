#include "surface/InPlaceEdit.h"

#include <optional>
#include <string>

#include "connectors/Mesg.h"
#include "connectors/Transition.h"
#include "drawing/Mapping.h"
#include "model/InPlaceField.h"
#include "model/ModelMgr.h"
#include "platform/InPlaceText.h"
#include "surface/LayoutMgr.h"
#include "surface/ViewGeometry.h"

namespace morvane {

namespace {

CFont FontOf(const LayoutMgr& view, bool bold) {
  CFont font = view.GetBoldFont();
  if (!bold) font.weight = CFont::kNormalWeight;
  font.height = RoundHalfAway(font.height * view.LogicalMapping().Scale());
  return font;
}

}  // namespace

Shape& InPlaceEdit::HolderOf(Shape& shape) {
  const auto* transition = dynamic_cast<Transition*>(&shape);
  if (transition == nullptr || transition->GetMesg() == nullptr) return shape;
  return *transition->GetMesg();
}

bool InPlaceEdit::Begin(Shape& shape) {
  End(true);
  Shape& holder = HolderOf(shape);
  const std::optional<InPlaceField> field = holder.FieldInPlace();
  if (!field || !view.HasWindow()) return false;
  view.ScrollIntoView(holder);
  running = true;
  model = view.HoldModel();
  shapeId = holder.GetId();
  InPlaceText box{.label = field->label,
                  .text = field->text,
                  .client = view.LogicalMapping().ToDevice(field->area),
                  .font = FontOf(view, field->bold),
                  .centred = field->centred,
                  .severalLines = field->severalLines};
  view.OpenTextBox(box);
  return true;
}

Shape* InPlaceEdit::Target() const {
  const std::shared_ptr<ModelMgr> held = model.lock();
  if (held == nullptr || held != view.HoldModel()) return nullptr;
  return dynamic_cast<Shape*>(held->Find(shapeId));
}

void InPlaceEdit::Follow() {
  const Shape* shape = running ? Target() : nullptr;
  if (shape == nullptr) return;
  const std::optional<InPlaceField> field = shape->FieldInPlace();
  if (field) view.MoveTextBox(view.LogicalMapping().ToDevice(field->area));
}

void InPlaceEdit::End(bool keep) {
  if (!running) return;
  running = false;
  const std::optional<std::string> typed = view.CloseTextBox();
  Shape* shape = Target();
  if (!keep || !typed || shape == nullptr) return;
  const std::optional<InPlaceField> field = shape->FieldInPlace();
  if (!field || *typed == field->text) return;
  shape->TakeInPlace(*typed);
  view.TakeSnapshot();
}

}  // namespace morvane
