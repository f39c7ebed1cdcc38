#pragma once

#include <cstdint>
#include <unordered_map>

namespace morvane {

class Shape;

/// Every attached object by its id. It owns nothing.
class ShapeRegistry {
 public:
  virtual ~ShapeRegistry() = default;

  /// Registers under the id, in place of what stood there.
  virtual void AddShape(Shape* shape, std::int32_t id);
  /// Takes the shape out, unless another one has its id by now.
  virtual void RemoveShape(Shape* shape);

  /// Null if no object has the id. The id 0 refers to nothing.
  Shape* Find(std::int32_t id) const;
  /// It grows whenever an object comes or goes.
  std::uint64_t Changes() const { return changes; }
  /// A new id: one above the greatest seen or given out, or a free one when there is none above.
  std::int32_t NextId();

 private:
  static constexpr std::int32_t kFirstId = 100;

  std::unordered_map<std::int32_t, Shape*> shapes;
  std::uint64_t changes = 0;
  std::int32_t lastId = kFirstId;
  std::int32_t lastFreeId = kFirstId;
};

}  // namespace morvane
