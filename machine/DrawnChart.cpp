#include "machine/DrawnChart.h"

#include "resources/Texts.h"

namespace morvane {

std::string DrawnObject::Name() const {
  const std::string what = Translate(keyword);
  const std::string number = std::to_string(id);
  return kind == Kind::State ? Said(IDS_STATE_OF_NAME, {what, number, title})
                             : Said(IDS_OBJECT_OF_NUMBER, {what, number});
}

}  // namespace morvane
