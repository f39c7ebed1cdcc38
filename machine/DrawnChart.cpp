#include "machine/DrawnChart.h"

namespace morvane {

std::string DrawnObject::Name() const {
  const std::string name = keyword + ' ' + std::to_string(id);
  return kind == Kind::State ? name + " \"" + title + '"' : name;
}

}  // namespace morvane
