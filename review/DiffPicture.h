#pragma once

#include <span>
#include <string>
#include <vector>

#include "surface/Picture.h"

namespace morvane {

class ChartDiff;
class LayoutMgr;
class Shape;
struct CFont;
struct DescribedObject;
struct Ink;
struct ObjectChange;

/// Two versions of a chart in one picture: what both share in grey, what came in green, what went
/// in dashed red, what has changed in amber where it stands now, with the former place of what
/// moved dotted. A sign on each change and a legend tell the same without colours.
class DiffPicture : public Picture {
 public:
  /// The charts are placed, of the descriptions that were compared, and outlive the picture as the
  /// comparison does.
  DiffPicture(const LayoutMgr& before, const LayoutMgr& after, const ChartDiff& diff);

  void Paint(CDC& dc) const override;
  /// Where the picture shows a change, logical units.
  RECT PlaceOf(const ObjectChange& change) const;

  /// What stands on an object that has changed: a letter on a disc.
  struct Sign {
    COLORREF colour = 0;
    const char* letter = "";
  };
  static Sign SignOf(const ObjectChange& change);

 private:
  enum class Role { Unchanged, Added, Removed, Changed, Moved, Former };
  struct Item {
    Shape* shape;
    Role role;
    bool signs;  ///< a sign stands on it
  };
  struct Legend {
    Role role;
    const char* sign;
    const char* text;  ///< in English
  };

  static Role RoleOf(const ObjectChange& change);
  static const Ink& InkOf(Role role);
  static std::span<const Legend> Legends();
  static Shape* Find(const LayoutMgr& chart, const DescribedObject* object);
  void AddItems(const LayoutMgr& before, const LayoutMgr& after, const ChartDiff& diff);
  void AddSizes(const LayoutMgr& chart);
  std::vector<const Legend*> UsedLegends() const;
  void PaintSign(CDC& dc, const Item& item) const;
  static void PaintBadge(CDC& dc, POINT centre, const Sign& sign, const CFont& font);
  void PaintLegend(CDC& dc) const;

  const LayoutMgr& before;
  const LayoutMgr& after;
  std::vector<Item> items;  ///< in the order of painting
  SIZE charts;              ///< what both take, logical units
};

}  // namespace morvane
