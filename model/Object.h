#pragma once

#include <cstdint>

namespace morvane {

class ModelStream;

/// Something with an identity in a model. An id is also its reference in the model text; 0 as a
/// reference means no object.
class Object {
 public:
  Object() = default;
  explicit Object(std::int32_t id) : id(id) {}
  virtual ~Object() = default;
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

  /// Writes the object's record, from the top of the class tree to the leaf.
  virtual void Write(ModelStream& stream) const = 0;
  /// Reads the object's record behind its first line. Throws a text for the user when the record
  /// is damaged.
  virtual void Read(ModelStream& stream) = 0;

  std::int32_t GetId() const { return id; }

 protected:
  std::int32_t id = 0;
};

}  // namespace morvane
