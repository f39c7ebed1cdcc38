#include "codegen/ChartPlaces.h"

#include "codegen/PlacedMessage.h"
#include "codegen/RecordAt.h"
#include "model/ModelMgr.h"
#include "persistence/CDocument.h"
#include "persistence/ModelFile.h"
#include "surface/LayoutMgr.h"

namespace morvane {

std::optional<RECT> ChartPlaces::Show(const PlacedMessage& message) const {
  if (chart.GetDocument() == nullptr || !chart.GetDocument()->BringForward()) return std::nullopt;
  Shape* shape = Find(message);
  if (shape == nullptr) return std::nullopt;
  chart.Reveal({shape});
  const RECT client = chart.ToClient(shape->GetBounds());
  const POINT start = chart.ClientToScreen(TopLeft(client));
  const POINT end = chart.ClientToScreen(BottomRight(client));
  return RECT{start.x, start.y, end.x, end.y};
}

Shape* ChartPlaces::Find(const PlacedMessage& message) const {
  const ModelMgr& model = chart.GetModel();
  Shape* named = model.Find(message.id);
  if (named != nullptr && named->GetTypeName() == message.kind) return named;
  // The line is one of the file, which the tool has read.
  std::string text;
  if (!ModelFile::ReadText(chart.GetDocument()->GetPathName(), text).empty()) return nullptr;
  return model.Find(RecordAt(text, message.line));
}

}  // namespace morvane
