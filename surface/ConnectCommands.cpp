#include "surface/ConnectCommands.h"

#include <algorithm>
#include <map>
#include <string>

#include "model/Connectable.h"
#include "model/Editors.h"
#include "model/ModelMgr.h"
#include "platform/Service.h"
#include "resources/Texts.h"
#include "surface/LayoutMgr.h"
#include "surface/ObjectNames.h"
#include "surface/ReadingOrder.h"

namespace morvane {

namespace {

std::vector<Shape*> Selected(const LayoutMgr& chart) {
  std::vector<Shape*> shapes;
  for (Collectable* member : chart.GetSelection().Members()) {
    if (auto* shape = dynamic_cast<Shape*>(member)) shapes.push_back(shape);
  }
  return shapes;
}

/// What is drawn from one object to another one, if it has to be of a kind or not.
Joint JointOf(const Shape& from, const Shape& to, Joint wanted) {
  if (wanted == Joint::Line) return CanHaveLine(from, to) ? Joint::Line : Joint::None;
  const Joint joint = JointBetween(from, to);
  return wanted == Joint::None || joint == wanted ? joint : Joint::None;
}

/// What is to be drawn between two objects, from which to which.
struct Connection {
  Shape* from = nullptr;
  Shape* to = nullptr;
  Joint joint = Joint::None;
};

Connection BetweenSelected(const LayoutMgr& chart) {
  // Nobody needs to copy a selection of thousands for this.
  if (chart.GetSelection().Members().size() != 2) return {};
  const std::vector<Shape*> shapes = Selected(chart);
  if (shapes.size() != 2) return {};
  Connection wanted{shapes[0], shapes[1], JointBetween(*shapes[0], *shapes[1])};
  if (wanted.joint == Joint::None) {
    wanted = {shapes[1], shapes[0], JointBetween(*shapes[1], *shapes[0])};
  }
  return wanted;
}

Shape* SourceOf(const LayoutMgr& chart) {
  if (chart.GetSelection().Members().size() > 2) return nullptr;
  const std::vector<Shape*> shapes = Selected(chart);
  const auto source = std::ranges::find_if(
      shapes, [](Shape* shape) { return dynamic_cast<Connectable*>(shape) != nullptr; });
  return source != shapes.end() ? *source : nullptr;
}

/// The objects that something can be drawn to, in reading order.
std::vector<Shape*> TargetsOf(const Shape& source, const ReadingOrder& order, Joint joint) {
  std::vector<Shape*> targets;
  for (Shape* shape : order.Objects()) {
    if (JointOf(source, *shape, joint) != Joint::None) targets.push_back(shape);
  }
  return targets;
}

/// The names of objects, each different from the others.
std::vector<std::string> NamesOf(const std::vector<Shape*>& shapes, const ReadingOrder& order) {
  std::map<std::string, int> seen;
  std::vector<std::string> names;
  for (const Shape* shape : shapes) {
    std::string name = NameOfObject(*shape, order);
    const int count = ++seen[name];
    names.push_back(count == 1 ? name : name + " (" + std::to_string(count) + ")");
  }
  return names;
}

}  // namespace

bool CanConnect(const LayoutMgr& chart) { return BetweenSelected(chart).joint != Joint::None; }

void Connect(LayoutMgr& chart) {
  const Connection wanted = BetweenSelected(chart);
  if (wanted.joint == Joint::None) return;
  Shape* made = Join(chart.GetModel(), *wanted.from, *wanted.to, wanted.joint);
  if (made != nullptr) chart.Reveal({made});
  chart.TakeSnapshot();
}

bool CanConnectTo(const LayoutMgr& chart, Joint joint) {
  const Shape* source = SourceOf(chart);
  return source != nullptr && std::ranges::any_of(chart.GetModel().Objects(), [&](Shape* shape) {
           return JointOf(*source, *shape, joint) != Joint::None;
         });
}

bool ConnectTo(LayoutMgr& chart, Joint joint) {
  Shape* source = SourceOf(chart);
  if (source == nullptr) return false;
  ModelMgr& model = chart.GetModel();
  const ReadingOrder order(model);
  const std::vector<Shape*> targets = TargetsOf(*source, order, joint);
  if (targets.empty()) return false;
  const auto selected = std::ranges::find(targets, Selected(chart).back());
  // The state itself is seldom meant, unless there is nothing else.
  const bool isSelf = selected == targets.end() || *selected == source;
  std::vector<int> chosen{isSelf ? 0 : static_cast<int>(selected - targets.begin())};
  if (isSelf && targets.size() > 1 && targets.front() == source) chosen = {1};
  if (!Service<Editors>::Get().ChooseTargets(NameOfObject(*source, order), NamesOf(targets, order),
                                             chosen)) {
    return false;
  }
  // The chart may be another one when the dialog closes.
  if (&chart.GetModel() != &model || !model.Holds(source)) return false;
  std::vector<Shape*> made;
  for (const int at : chosen) {
    Shape* target = targets.at(static_cast<std::size_t>(at));
    if (!model.Holds(target)) continue;
    Shape* joined = Join(model, *source, *target, JointOf(*source, *target, joint));
    if (joined != nullptr) made.push_back(joined);
  }
  if (!made.empty()) chart.Reveal(made);
  chart.TakeSnapshot();
  return !made.empty();
}

}  // namespace morvane
