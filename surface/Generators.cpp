#include "surface/Generators.h"

namespace morvane {

namespace {

class NoGenerators : public Generators {
 public:
  bool EditProperties(ModelProperties& /*properties*/) override { return false; }
  void Run(unsigned /*command*/, LayoutMgr& /*chart*/) override {}
};

}  // namespace

Generators& Generators::Default() {
  static NoGenerators none;
  return none;
}

}  // namespace morvane
