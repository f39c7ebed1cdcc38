#pragma once

class QWidget;

namespace morvane {

/// The window that a new dialog belongs to: the dialog that is open now, or else the active window,
/// or else the main window.
QWidget* DialogParent();

}  // namespace morvane
