#pragma once

#include <memory>
#include <span>
#include <string_view>

namespace morvane {

class Shape;

/// Makes objects by their keyword in the model text. What kinds there are it is told.
class Factory {
 public:
  /// A kind of object: its keyword and what makes an empty one.
  struct Maker {
    std::string_view keyword;
    std::unique_ptr<Shape> (*make)();
  };

  /// The makers have to outlive the factory.
  explicit Factory(std::span<const Maker> makers) : makers(makers) {}
  /// A new object, empty until its `Read`; null for an unknown keyword.
  std::unique_ptr<Shape> Create(std::string_view keyword) const;

 private:
  std::span<const Maker> makers;
};

}  // namespace morvane
