#pragma once

#include "connectors/SegmentLink.h"

namespace morvane {

/// A vertical segment, which moves along x.
class VLink : public SegmentLink {
 public:
  VLink(Link* prev, Link* next, const Transition* owner);
};

}  // namespace morvane
