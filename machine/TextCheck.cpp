#include "machine/TextCheck.h"

#include "machine/MachineText.h"
#include "machine/ProblemList.h"
#include "machine/TextBalance.h"

namespace morvane {

void CheckText(const DrawnObject& object, const MachineText& text, const char* which,
               ProblemList& problems) {
  const auto fault = TextBalance::Check(text.text);
  if (!fault) return;
  problems.Error(object,
                 "has " + fault->what + " in its " + which +
                     (fault->isOpen ? " that is never closed" : " that closes nothing"),
                 text.line + fault->line);
}

}  // namespace morvane
