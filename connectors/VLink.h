#pragma once

#include "connectors/SegmentLink.h"

/// A vertical segment, which moves along x.
class VLink : public SegmentLink {
 public:
  VLink(Link* prev, Link* next, const Transition* owner);
};
