#include "model/ShapeRegistry.h"

#include <algorithm>
#include <limits>

#include "model/Shape.h"

namespace morvane {

void ShapeRegistry::AddShape(Shape* shape, std::int32_t id) {
  ++changes;
  shapes[id] = shape;
  lastId = std::max(lastId, id);
}

void ShapeRegistry::RemoveShape(Shape* shape) {
  ++changes;
  const auto found = shapes.find(shape->GetId());
  if (found != shapes.end() && found->second == shape) shapes.erase(found);
}

Shape* ShapeRegistry::Find(std::int32_t id) const {
  if (id == 0) return nullptr;
  const auto found = shapes.find(id);
  return found == shapes.end() ? nullptr : found->second;
}

std::int32_t ShapeRegistry::NextId() {
  if (lastId < std::numeric_limits<std::int32_t>::max()) return ++lastId;
  do {
    ++lastFreeId;
  } while (shapes.count(lastFreeId) != 0);
  return lastFreeId;
}

}  // namespace morvane
