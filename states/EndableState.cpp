#include "states/EndableState.h"

#include <algorithm>
#include <utility>

#include "model/ChartView.h"
#include "states/StateTransition.h"

namespace morvane {

EndableState::~EndableState() {
  for (StateTransition* transition : std::exchange(incoming, {})) transition->DetachTarget();
}

void EndableState::AddTransition(StateTransition* transition) {
  incoming.push_back(transition);
  view->UpdateNodes(transition);
}

void EndableState::RemoveTransition(StateTransition* transition) {
  const auto found = std::find(incoming.begin(), incoming.end(), transition);
  if (found == incoming.end()) return;
  incoming.erase(found);
  transition->SetTarget(nullptr);
  view->UpdateNodes(transition);
}

void EndableState::UpdateIncoming(bool sized) {
  for (StateTransition* transition : incoming) {
    // Of a loop both ends have moved already.
    if (!transition->IsLoop() && (sized || !transition->MovesAlong())) transition->OnTargetMoved();
  }
}

}  // namespace morvane
