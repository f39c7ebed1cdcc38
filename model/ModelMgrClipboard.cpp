#include <sstream>

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
  for (const Shape* object : Objects()) {
    if (selection.Contains(object)) stream << object;
  }
  return text.str();
}

std::optional<std::string> ModelMgr::CopiedText() const {
  const std::optional<std::string> bytes = clipboard->Get();
  if (!bytes || bytes->empty()) return std::nullopt;
  return bytes->substr(0, bytes->find('\0'));
}

bool ModelMgr::Paste(const std::string& records) {
  pasteList.clear();
  try {
    ReadPasted(records);
  } catch (const std::string& reason) {
    pasteList.clear();
    ShowMessage(reason);
    return false;
  }
  MendIds();
  if (pasteList.empty()) {
    ShowMessage(LoadText(IDS_CANNOT_PASTE));
    return false;
  }
  AdoptPasted();
  return true;
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

/// The new ids follow each other as the old ones did: the order of transitions has a meaning.
void ModelMgr::MendIds() {
  Shape::IdMap map;
  for (const auto& shape : pasteList) map[shape->GetId()] = 0;
  for (auto& [oldId, newId] : map) newId = NextId();
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

  Select(pasted);
}

}  // namespace morvane
