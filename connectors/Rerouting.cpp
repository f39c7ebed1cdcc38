#include "connectors/Rerouting.h"

#include "connectors/ChartRouter.h"
#include "connectors/Transition.h"
#include "model/ModelMgr.h"
#include "states/EndableState.h"
#include "states/StartableState.h"

namespace morvane {

std::vector<Transition*> SelectedRoutes(const ModelMgr& model) {
  const auto isSelected = [](const Shape* shape) {
    return shape != nullptr && shape->IsInSelection();
  };
  std::vector<Transition*> routes = AllRoutes(model);
  std::erase_if(routes, [&](const Transition* route) {
    return !isSelected(route) && !isSelected(route->GetSource()) && !isSelected(route->GetTarget());
  });
  return routes;
}

std::vector<Transition*> AllRoutes(const ModelMgr& model) {
  std::vector<Transition*> routes;
  for (Shape* shape : model.Objects()) {
    if (auto* transition = dynamic_cast<Transition*>(shape)) routes.push_back(transition);
  }
  return routes;
}

void Reroute(const ModelMgr& model, const std::vector<Transition*>& transitions) {
  const ChartRouter router(model);
  for (Transition* transition : transitions) transition->Reroute(router);
}

}  // namespace morvane
