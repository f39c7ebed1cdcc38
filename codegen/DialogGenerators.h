#pragma once

#include "platform/UseService.h"
#include "surface/Generators.h"

namespace morvane {

/// Shows the sheet of the generators' texts and the dialog of their run, as long as it lives.
class DialogGenerators : public Generators {
 public:
  bool EditProperties(ModelProperties& properties) override;
  void Run(unsigned command, LayoutMgr& chart) override;

 private:
  const UseService<Generators> use{*this};
};

}  // namespace morvane
