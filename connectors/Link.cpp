#include "connectors/Link.h"

#include "connectors/HandleSquare.h"
#include "connectors/Transition.h"

namespace morvane {

namespace {
constexpr std::int32_t kHandleReach = 2;
}

void Link::Offset(const POINT& delta) {
  start = start + delta;
  end = end + delta;
}

RECT Link::HandleAround(POINT model) const {
  return HandleSquare(owner->ToClient(model), kHandleReach);
}

}  // namespace morvane
