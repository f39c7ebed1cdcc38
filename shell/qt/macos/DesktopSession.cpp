#include "shell/qt/DesktopSession.h"

namespace morvane {

bool IsDisplayNamed() { return true; }

// The toolkit and the bundle do all of it.
void AskDesktopForward(QWidget& /*window*/, const InstanceRequest& /*start*/) {}
void LetRunningCopyForward() {}
void RegisterFileTypes() {}

}  // namespace morvane
