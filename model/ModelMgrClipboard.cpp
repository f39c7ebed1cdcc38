#include <algorithm>
#include <limits>
#include <sstream>

#include "model/ChartView.h"
#include "model/GroupMove.h"
#include "model/ModelClipboard.h"
#include "model/ModelMgr.h"
#include "model/ModelStream.h"
#include "platform/MessageBox.h"
#include "resources/Texts.h"

namespace morvane {

// Copying and pasting of objects: the selected records as text, closed by a NUL.

void ModelMgr::Copy() {
  if (selection.IsEmpty()) return;
  std::string bytes = SelectionText();
  bytes.push_back('\0');
  clipboard->Put(bytes);
}

void ModelMgr::Cut() {
  Copy();
  DeleteSelected(false);
}

bool ModelMgr::CanPaste() const { return clipboard->IsAvailable(); }

std::string ModelMgr::SelectionText() const {
  std::ostringstream text;
  ModelStream stream(text);
  for (const Collectable* member : selection.Members())
    stream << dynamic_cast<const Shape*>(member);
  return text.str();
}

void ModelMgr::Paste() {
  const std::optional<std::string> bytes = clipboard->Get();
  if (!bytes || bytes->empty()) return;
  pasteList.clear();
  try {
    ReadPasted(bytes->substr(0, bytes->find('\0')));
  } catch (const std::string& reason) {
    pasteList.clear();
    ShowMessage(reason);
    return;
  }
  MendIds();
  if (pasteList.empty()) {
    ShowMessage(LoadText(IDS_CANNOT_PASTE));
    return;
  }
  AdoptPasted();
}

void ModelMgr::ReadPasted(const std::string& text) {
  std::istringstream records(text);
  ModelStream stream(records);
  stream.supportedVersion = ModelStream::kSupportedVersion;
  stream.fileVersion = ModelStream::kSupportedVersion;
  while (HasMore(records)) {
    std::string first;
    std::string second;
    records >> first >> second;
    SkipLine(records);
    if (first != "BEGIN") continue;
    std::unique_ptr<Shape> shape = factory.Create(second);
    if (shape == nullptr) return;
    stream >> shape.get();
    if (records.fail()) throw LoadText(IDS_INVALID_FILE);
    pasteList.push_back(std::move(shape));
  }
}

void ModelMgr::MendIds() {
  Shape::IdMap map;
  for (const auto& shape : pasteList) map[shape->GetId()] = NextId();
  std::vector<std::unique_ptr<Shape>> kept;
  for (auto& shape : pasteList) {
    const std::int32_t oldId = shape->GetId();
    if (shape->RemapIds(map)) {
      kept.push_back(std::move(shape));
    } else {
      map.erase(oldId);
    }
  }
  pasteList = std::move(kept);
}

void ModelMgr::AdoptPasted() {
  std::vector<Shape*> pasted;
  for (const auto& shape : pasteList) pasted.push_back(shape.get());
  Place(pasted);
  for (auto& shape : pasteList) data.Append(std::move(shape));
  pasteList.clear();

  DeselectAll();
  POINT corner{std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::max()};
  for (Shape* shape : pasted) {
    selection.Add(shape);
    const RECT bounds = shape->GetBounds();
    corner = {std::min(corner.x, bounds.left), std::min(corner.y, bounds.top)};
  }
  GroupMove(*this).Move(view->AddScroll(POINT{1, 1}) - corner);
}

}  // namespace morvane
