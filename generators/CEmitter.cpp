#include "generators/CEmitter.h"

#include "generators/CHeaderWriter.h"
#include "generators/CNames.h"
#include "generators/CSourceWriter.h"
#include "generators/CodePlan.h"

namespace morvane {

Emission CEmitter::Emit(const Machine& machine, const EmitOptions& options) const {
  const CodePlan plan(machine);
  const CNames names(machine, options.stem);
  const std::string header = options.stem + ".h";
  const std::string source = options.stem + ".c";
  Emission emission;
  emission.files.push_back({header, CHeaderWriter(machine, plan, names, options, header).Write()});
  emission.files.push_back(
      {source, CSourceWriter(machine, plan, names, options, header, source).Write()});
  return emission;
}

}  // namespace morvane
