#pragma once

class QDockWidget;

namespace morvane {

/// Keeps a pane, whose window has been set, so wide that its title is not cut off.
void KeepTitleWhole(QDockWidget& pane);

}  // namespace morvane
