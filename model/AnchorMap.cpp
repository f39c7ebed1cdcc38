#include "model/AnchorMap.h"

#include <algorithm>

namespace morvane {

namespace {

/// So many anchors has a state.
constexpr std::size_t kUsualSize = 12;

}  // namespace

void AnchorMap::Add(const AnchorKey& key, POINT point) {
  if (anchors.capacity() == 0) anchors.reserve(kUsualSize);
  anchors.push_back({key, point});
}

const POINT* AnchorMap::Find(const AnchorKey& key) const {
  const auto found = std::find_if(anchors.begin(), anchors.end(),
                                  [&](const Anchor& anchor) { return anchor.key == key; });
  return found != anchors.end() ? &found->point : nullptr;
}

}  // namespace morvane
