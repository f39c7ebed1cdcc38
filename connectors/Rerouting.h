#pragma once

#include <vector>

namespace morvane {

class ModelMgr;
class Transition;

/// The transitions of a chart that are selected or have an end at a selected state, in list order.
std::vector<Transition*> SelectedRoutes(const ModelMgr& model);
/// All transitions of a chart.
std::vector<Transition*> AllRoutes(const ModelMgr& model);
/// Lays new routes for transitions of a chart.
void Reroute(const ModelMgr& model, const std::vector<Transition*>& transitions);

}  // namespace morvane
