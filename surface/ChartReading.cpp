#include "surface/ChartReading.h"

#include "connectors/Line.h"
#include "drawing/TextCodec.h"
#include "model/ModelMgr.h"
#include "resources/Texts.h"
#include "surface/KeyboardWalk.h"
#include "surface/LayoutMgr.h"
#include "surface/ObjectNames.h"
#include "surface/ReadingOrder.h"

namespace morvane {

namespace {

ReadablePart::Kind KindOf(const Shape& shape) {
  switch (shape.GetLayer()) {
    case LAYER_STATE: return ReadablePart::Kind::Node;
    case LAYER_MESG: return ReadablePart::Kind::Label;
    case LAYER_NOTE:
      if (dynamic_cast<const Line*>(&shape) == nullptr) return ReadablePart::Kind::Comment;
      return ReadablePart::Kind::Connection;
    default: return ReadablePart::Kind::Connection;
  }
}

}  // namespace

ChartReading::ChartReading(LayoutMgr& view) : view(view) {}

ChartReading::~ChartReading() = default;

void ChartReading::Forget() {
  order.reset();
  keys.clear();
}

const ReadingOrder& ChartReading::Order() {
  const std::uint64_t now = view.GetModel().Changes();
  if (order == nullptr || changes != now) {
    keys.clear();
    order = std::make_unique<ReadingOrder>(view.GetModel());
    changes = now;
  }
  return *order;
}

std::string ChartReading::Name() {
  return WithName(LoadText(IDS_READ_CHART), ToUtf8(view.GetTitle()));
}

bool ChartReading::Has(Key key) { return view.GetModel().Find(key) != nullptr; }

const std::vector<ReadableParts::Key>& ChartReading::Keys() {
  const std::vector<Shape*>& objects = Order().Objects();
  if (!keys.empty()) return keys;
  for (const Shape* shape : objects) {
    // In a damaged chart an id may stand for several objects.
    const Key key = shape->GetId();
    if (key != kNone && view.GetModel().Find(key) == shape) keys.push_back(key);
  }
  return keys;
}

bool ChartReading::Describe(Key key, ReadablePart& part) {
  const Shape* shape = view.GetModel().Find(key);
  if (shape == nullptr) return false;
  part = {KindOf(*shape), NameOfObject(*shape, Order()), TextOfObject(*shape),
          view.ToClient(shape->GetBounds()), shape->IsInSelection()};
  return true;
}

ReadableParts::Key ChartReading::Current() {
  const Shape* shape = view.GetWalk().Current();
  return shape != nullptr && view.GetModel().Find(shape->GetId()) == shape ? shape->GetId() : kNone;
}

ReadableParts::Key ChartReading::At(POINT client) {
  const Shape* shape = view.GetModel().ObjectAt(client);
  return shape != nullptr ? shape->GetId() : kNone;
}

void ChartReading::Choose(Key key) {
  Shape* shape = view.GetModel().Find(key);
  if (shape != nullptr && !view.IsBusy()) view.Reveal({shape});
}

void ChartReading::ShowMenu(Key key) {
  Choose(key);
  if (Current() == key) view.OnMenuKey();
}

}  // namespace morvane
