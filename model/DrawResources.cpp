#include "model/DrawResources.h"

namespace morvane {

const DrawResources& DrawResources::Instance() {
  static const DrawResources instance;
  return instance;
}

}  // namespace morvane
