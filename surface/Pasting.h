#pragma once

#include <optional>
#include <string>

#include "drawing/Geometry.h"

namespace morvane {

class LayoutMgr;

/// Brings copies of objects to where the user sees them. They come to the place of their originals,
/// by a step of the grid beside what is there and beside the last ones of the same; or into the
/// middle of the window, if that place is out of sight; or to the pointer, from a context menu.
class Pasting {
 public:
  explicit Pasting(LayoutMgr& view) : view(view) {}

  /// A context menu is open at a screen point, and what is chosen there is done, as long as it
  /// lives.
  class MenuPlace {
   public:
    MenuPlace(Pasting& pasting, POINT screen);
    ~MenuPlace() { pasting.menuPlace.reset(); }
    MenuPlace(const MenuPlace&) = delete;
    MenuPlace& operator=(const MenuPlace&) = delete;

   private:
    Pasting& pasting;
  };

  /// Inserts what the clipboard holds.
  void Paste();
  /// Something was copied: the next copies come to the place of their originals, if that is free.
  void BeginAnew() { last = {}; }
  /// Inserts copies of the selection; the clipboard keeps what it has.
  void Duplicate();

 private:
  struct Last {
    std::string text;
    POINT way;
    std::int32_t id = 0;  ///< of one of the objects that came
  };

  POINT WayToPlace(POINT way) const;
  POINT WayToFree(POINT way) const;
  POINT Place(POINT way);

  LayoutMgr& view;
  Last last;
  std::optional<POINT> menuPlace;  ///< absolute model units
};

}  // namespace morvane
