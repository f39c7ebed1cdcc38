#include "machine/TextCheck.h"

#include "machine/MachineText.h"
#include "machine/ProblemList.h"
#include "machine/TextBalance.h"
#include "resources/Texts.h"

namespace morvane {

void CheckText(const DrawnObject& object, const MachineText& text, const std::string& which,
               ProblemList& problems) {
  const auto fault = TextBalance::Check(text.text);
  if (!fault) return;
  problems.Error(object,
                 fault->isOpen ? Said("has %1 in its %2 that is never closed", {fault->what, which})
                               : Said("has %1 in its %2 that closes nothing", {fault->what, which}),
                 text.line + fault->line);
}

}  // namespace morvane
