#include "states/EndableState.h"

#include <algorithm>
#include <utility>

#include "connectors/Transition.h"
#include "model/ChartView.h"

EndableState::~EndableState() {
  for (Transition* transition : std::exchange(incoming, {})) transition->DetachTarget();
}

void EndableState::AddTransition(Transition* transition) {
  incoming.push_back(transition);
  view->UpdateNodes(transition);
}

void EndableState::RemoveTransition(Transition* transition) {
  const auto found = std::find(incoming.begin(), incoming.end(), transition);
  if (found == incoming.end()) return;
  incoming.erase(found);
  transition->SetTarget(nullptr);
  view->UpdateNodes(transition);
}

void EndableState::UpdateIncoming(bool sized) {
  for (Transition* transition : incoming) {
    if (sized || !transition->IsInSelection()) transition->OnTargetMoved();
  }
}
