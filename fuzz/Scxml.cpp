#include "exchange/ScxmlImport.h"
#include "fuzz/FuzzTarget.h"
#include "machine/MachineBuilder.h"

namespace morvane {

// A document of SCXML, of whatever origin: there is a reason why it can't be read, or a chart that
// means something.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const ImportResult result = ImportScxml(TextOf(data, size), "Fuzz.scxml");
  Require(result.failure.empty() != result.modelText.empty(), "neither a chart nor a reason");
  if (result.modelText.empty()) return 0;
  const BuiltMachine built = MachineBuilder::FromText(result.modelText);
  Require(built.machine.has_value() != HasErrors(built.problems), "neither machine nor errors");
  for (const Problem& problem : built.problems) {
    // What was never said stays unsaid: a chart without a beginning, an arrow that is never taken.
    // But what is drawn nests, and every arrow has its ends.
    Require(problem.message.find("overlaps") == std::string::npos, "states overlap");
    Require(problem.message.find("border") == std::string::npos, "a mark stands on a border");
  }
  return 0;
}

}  // namespace morvane
