#pragma once

#include "connectors/SegmentLink.h"

namespace morvane {

/// A horizontal segment, which moves along y.
class HLink : public SegmentLink {
 public:
  HLink(Link* prev, Link* next, const Transition* owner);
};

}  // namespace morvane
