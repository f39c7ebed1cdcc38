#include "shell/qt/DesktopSession.h"

#include <QtGlobal>

namespace morvane {

bool IsDisplayNamed() { return true; }

void UseNoScreen() { qputenv("QT_QPA_PLATFORM", "offscreen"); }

// The toolkit and the bundle do all of it.
void AskDesktopForward(QWidget& /*window*/, const InstanceRequest& /*start*/) {}
void LetRunningCopyForward() {}
void RegisterFileTypes() {}

}  // namespace morvane
