#include "connectors/VLink.h"

namespace morvane {

VLink::VLink(Link* prev, Link* next, const Transition* owner)
    : SegmentLink(LINK_V, prev, next, owner) {}

}  // namespace morvane
