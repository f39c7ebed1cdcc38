#include "machine/ChartIndex.h"

#include <algorithm>
#include <vector>

#include "machine/DrawnChart.h"
#include "machine/ProblemList.h"
#include "resources/Texts.h"

namespace morvane {

ChartIndex::ChartIndex(const DrawnChart& chart, ProblemList& problems) {
  std::vector<const DrawnObject*> all;
  const auto add = [&all](const auto& list) {
    for (const auto& object : list) all.push_back(&object);
  };
  add(chart.states);
  add(chart.transitions);
  add(chart.messages);
  add(chart.annotations);
  std::ranges::sort(all, {}, &DrawnObject::line);
  for (const DrawnObject* object : all) {
    const auto [first, isNew] = objects.emplace(object->id, object);
    if (!isNew) problems.Error(*object, Said("has the same id as %1", {first->second->Name()}));
  }
}

const DrawnObject* ChartIndex::Find(std::int32_t id) const {
  const auto found = objects.find(id);
  return id != 0 && found != objects.end() ? found->second : nullptr;
}

}  // namespace morvane
