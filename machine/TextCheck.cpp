#include "machine/TextCheck.h"

#include "machine/MachineText.h"
#include "machine/ProblemList.h"
#include "machine/TextBalance.h"

namespace morvane {

void CheckText(const DrawnObject& object, const MachineText& text, const char* which,
               ProblemList& problems) {
  const auto fault = TextBalance::Check(text.text);
  if (!fault) return;
  const std::string place = fault->what + " in its " + which;
  problems.Error(object,
                 fault->isOpen ? "never closes " + place : "closes " + place + " that is not open",
                 text.line + fault->line);
}

}  // namespace morvane
