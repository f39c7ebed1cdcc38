#include "model/AnchorMap.h"

#include <algorithm>

namespace {

/// So many anchors has a state.
constexpr std::size_t kUsualSize = 12;

bool IsBefore(const AnchorMap::Anchor& anchor, const AnchorKey& key) { return anchor.key < key; }

}  // namespace

POINT& AnchorMap::operator[](const AnchorKey& key) {
  if (anchors.capacity() == 0) anchors.reserve(kUsualSize);
  // Mostly they come in the order of their keys.
  if (anchors.empty() || anchors.back().key < key)
    return anchors.emplace_back(Anchor{key, {}}).point;
  auto place = std::lower_bound(anchors.begin(), anchors.end(), key, IsBefore);
  if (place->key != key) place = anchors.insert(place, {key, {}});
  return place->point;
}

const POINT* AnchorMap::Find(const AnchorKey& key) const {
  const auto place = std::lower_bound(anchors.begin(), anchors.end(), key, IsBefore);
  return place != anchors.end() && place->key == key ? &place->point : nullptr;
}
