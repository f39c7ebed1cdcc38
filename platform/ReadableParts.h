#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "drawing/Geometry.h"

namespace morvane {

/// One of the things that a window paints itself, as a screen reader tells of it.
struct ReadablePart {
  enum class Kind { Node, Connection, Label, Comment };
  Kind kind = Kind::Node;
  std::string name;  ///< what it is, and what it is called
  std::string text;  ///< what it says at length
  RECT place;        ///< device pixels of the client area; it may lie outside
  bool selected = false;
};

/// What a window paints itself, for those who can't look at it. A part has a key that it keeps for
/// as long as it lives; a key whose part is gone is answered, too.
class ReadableParts {
 public:
  using Key = std::int32_t;
  static constexpr Key kNone = 0;

  virtual ~ReadableParts() = default;
  /// What the whole is called.
  virtual std::string Name() = 0;
  /// All parts in reading order.
  virtual const std::vector<Key>& Keys() = 0;
  virtual bool Has(Key key) = 0;
  /// False if there is no such part any more.
  virtual bool Describe(Key key, ReadablePart& part) = 0;
  /// The part that the keyboard is on.
  virtual Key Current() = 0;
  /// The part on top at a client point.
  virtual Key At(POINT client) = 0;
  /// Selects a part alone and scrolls it into sight.
  virtual void Choose(Key key) = 0;
  /// Opens the menu of a part.
  virtual void ShowMenu(Key key) = 0;
};

}  // namespace morvane
