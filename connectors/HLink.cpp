#include "connectors/HLink.h"

namespace morvane {

HLink::HLink(Link* prev, Link* next, const Transition* owner)
    : SegmentLink(LINK_H, prev, next, owner) {}

}  // namespace morvane
