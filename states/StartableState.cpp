#include "states/StartableState.h"

#include <algorithm>
#include <utility>

#include "connectors/Transition.h"
#include "model/ChartView.h"

StartableState::~StartableState() {
  for (Transition* transition : std::exchange(outgoing, {})) transition->DetachSource();
}

void StartableState::AddTransition(Transition* transition) {
  outgoing.push_back(transition);
  view->UpdateNodes(transition);
}

void StartableState::RemoveTransition(Transition* transition) {
  const auto found = std::find(outgoing.begin(), outgoing.end(), transition);
  if (found == outgoing.end()) return;
  outgoing.erase(found);
  transition->SetSource(nullptr);
  view->UpdateNodes(transition);
}

void StartableState::UpdateOutgoing(bool sized) {
  for (Transition* transition : outgoing) {
    if (sized || !transition->IsInSelection()) transition->OnSourceMoved();
  }
}
