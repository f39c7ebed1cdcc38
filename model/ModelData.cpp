#include "model/ModelData.h"

#include <utility>

#include "model/Factory.h"
#include "model/ModelStream.h"
#include "model/RecordLine.h"
#include "model/Shape.h"
#include "resources/Texts.h"

namespace morvane {

ModelData::~ModelData() { DeleteAll(); }

void ModelData::DeleteAll() {
  // From the back: what hangs on another object mostly stands behind it. A transition may take its
  // message along, which then leaves the list by itself.
  while (!objects.empty()) {
    Shape* last = objects.back();
    objects.pop_back();
    last->ForgetModel();
    delete last;
  }
}

void ModelData::Append(std::unique_ptr<Shape> shape) {
  objects.push_back(nullptr);  // may fail, and then the shape still has its owner
  objects.back() = shape.release();
}

void ModelData::Release(const Shape* shape) {
  // From both ends: new objects stand at the back, and a selection is mostly deleted from the
  // front.
  for (std::size_t front = 0, back = objects.size(); front < back; ++front) {
    --back;
    if (objects[back] == shape) std::swap(front, back);
    if (objects[front] != shape) continue;
    objects.erase(objects.begin() + static_cast<std::ptrdiff_t>(front));
    return;
  }
}

void ModelData::Insert(std::size_t position, Shape* shape) {
  objects.insert(objects.begin() + static_cast<std::ptrdiff_t>(position), shape);
}

void ModelData::Write(ModelStream& stream) const {
  stream << "BEGIN DATA\n";
  for (const Shape* object : objects) stream << object;
  stream << "END DATA\n";
}

void ModelData::SkipToRecords(ModelStream& stream) {
  for (;;) {
    if (!HasMore(stream.In())) throw LoadText(IDS_INVALID_FILE);
    const RecordLine line = RecordLine::Parse(ReadLine(stream.In()));
    if (line.first == "BEGIN" && line.second == "DATA") break;
  }
}

void ModelData::Read(ModelStream& stream, const RecordHook& onRecord) {
  complete = false;
  for (;;) {
    if (!HasMore(stream.In())) throw LoadText(IDS_INVALID_FILE);
    const RecordLine line = RecordLine::Parse(ReadLine(stream.In()));
    if (line.first.empty()) throw LoadText(IDS_INVALID_FILE);
    if (line.first == "END" && line.second == "DATA") break;
    if (line.first != "BEGIN") continue;
    std::unique_ptr<Shape> shape = factory.Create(line.second);
    if (shape == nullptr) throw LoadText(IDS_INVALID_FILE);
    Shape* made = shape.get();
    Append(std::move(shape));
    if (onRecord) onRecord(*made);
    stream >> made;
  }
  complete = true;
}

}  // namespace morvane
