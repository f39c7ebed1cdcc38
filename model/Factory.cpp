#include "model/Factory.h"

#include <algorithm>

#include "model/Shape.h"

namespace morvane {

std::unique_ptr<Shape> Factory::Create(std::string_view keyword) const {
  const auto found = std::ranges::find(makers, keyword, &Maker::keyword);
  return found != makers.end() ? found->make() : nullptr;
}

}  // namespace morvane
