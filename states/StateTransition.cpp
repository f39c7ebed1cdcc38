#include "states/StateTransition.h"

#include "states/EndableState.h"
#include "states/StartableState.h"

namespace morvane {

bool StateTransition::IsLoop() const {
  const State* from = source;
  const State* to = target;
  return from != nullptr && from == to;
}

}  // namespace morvane
