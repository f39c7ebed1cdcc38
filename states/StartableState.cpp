#include "states/StartableState.h"

#include <algorithm>
#include <utility>

#include "model/ChartView.h"
#include "model/GroupMove.h"
#include "states/EndableState.h"
#include "states/StateTransition.h"

namespace morvane {

StartableState::~StartableState() {
  for (StateTransition* transition : std::exchange(outgoing, {})) transition->DetachSource();
}

void StartableState::AddTransition(StateTransition* transition) {
  outgoing.push_back(transition);
  view->UpdateNodes(transition);
}

void StartableState::RemoveTransition(StateTransition* transition) {
  const auto found = std::find(outgoing.begin(), outgoing.end(), transition);
  if (found == outgoing.end()) return;
  outgoing.erase(found);
  transition->SetSource(nullptr);
  view->UpdateNodes(transition);
}

void StartableState::UpdateOutgoing(bool sized) {
  for (StateTransition* transition : outgoing) {
    if (!sized && transition->MovesAlong()) continue;
    transition->IsLoop() ? transition->OnBothEndsMoved() : transition->OnSourceMoved();
  }
}

void StartableState::AddCompanions(GroupMove& move) {
  for (StateTransition* transition : outgoing) {
    if (transition->GetTarget() != nullptr && move.Contains(transition->GetTarget()))
      move.Add(transition);
  }
}

}  // namespace morvane
