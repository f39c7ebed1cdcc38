#pragma once

#include <memory>
#include <string_view>

class Shape;

/// Makes objects by their keyword in the model text.
class Factory {
 public:
  virtual ~Factory() = default;
  /// A new object, empty until its `Read`; null for an unknown keyword.
  virtual std::unique_ptr<Shape> Create(std::string_view keyword) const;
};
