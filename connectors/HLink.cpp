#include "connectors/HLink.h"

HLink::HLink(Link* prev, Link* next, const Transition* owner)
    : SegmentLink(LINK_H, prev, next, owner) {}
