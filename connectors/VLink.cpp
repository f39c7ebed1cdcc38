#include "connectors/VLink.h"

VLink::VLink(Link* prev, Link* next, const Transition* owner)
    : SegmentLink(LINK_V, prev, next, owner) {}
