#pragma once

#include <cstddef>
#include <vector>

#include "drawing/Geometry.h"
#include "model/AnchorKey.h"

namespace morvane {

/// The anchors of one shape in the order of their keys. They lie side by side in one block: a chart
/// has hundreds of thousands of them, and an undo makes each anew.
class AnchorMap {
 public:
  struct Anchor {
    AnchorKey key;
    POINT point;  ///< model units
  };
  using const_iterator = std::vector<Anchor>::const_iterator;

  /// Adds an anchor, whose key comes behind all others.
  void Add(const AnchorKey& key, POINT point);
  /// The point of a key; null if there is none.
  const POINT* Find(const AnchorKey& key) const;

  const_iterator begin() const { return anchors.begin(); }
  const_iterator end() const { return anchors.end(); }
  std::size_t size() const { return anchors.size(); }
  void clear() { anchors.clear(); }

 private:
  std::vector<Anchor> anchors;
};

}  // namespace morvane
