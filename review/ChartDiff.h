#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "drawing/Geometry.h"
#include "review/DescribedObject.h"

namespace morvane {

struct ChartDescription;

/// A fact that two versions of an object don't share.
struct FactChange {
  const Fact* before = nullptr;
  const Fact* after = nullptr;
};

/// An object that two versions of a chart don't share as it is.
struct ObjectChange {
  enum class Kind { Added, Removed, Changed };

  Kind kind = Kind::Changed;
  const DescribedObject* before = nullptr;  ///< null for one that was added
  const DescribedObject* after = nullptr;   ///< null for one that was removed
  std::vector<FactChange> facts{};          ///< of one that was changed
  /// How far it moved as it is, model units.
  std::optional<POINT> shift{};
  std::size_t held = 0;       ///< what stood in it before and is still there
  std::size_t heldAlong = 0;  ///< of that what moved as it did
  bool movesAlong = false;    ///< what it stands in moved as it did, and tells of it

  const DescribedObject& Object() const { return after != nullptr ? *after : *before; }
  bool HasMeaning() const;
  /// It was moved, resized, rerouted or looks otherwise, beyond what the state around it tells.
  bool HasLook() const;
};

/// What two versions of a chart don't share, object by object. Objects are the same by id and
/// class; the order in which they are stored is no difference.
class ChartDiff {
 public:
  /// Both have to outlive it.
  ChartDiff(const ChartDescription& before, const ChartDescription& after);

  /// By id.
  const std::vector<ObjectChange>& Objects() const { return changes; }
  const std::vector<FactChange>& Properties() const { return properties; }
  /// All that both versions have moved by this, model units; there are several.
  std::optional<POINT> WholeShift() const { return wholeShift; }
  bool IsSame() const { return changes.empty() && properties.empty(); }

 private:
  std::vector<ObjectChange> changes;
  std::vector<FactChange> properties;
  std::optional<POINT> wholeShift;
};

}  // namespace morvane
