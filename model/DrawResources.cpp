#include "model/DrawResources.h"

const DrawResources& DrawResources::Instance() {
  static const DrawResources instance;
  return instance;
}
