#pragma once

class QWidget;

namespace morvane {

struct InstanceRequest;

// What desktops want of a program beyond what the toolkit does.

/// False if the session surely has no display, on which the toolkit would end the program.
bool IsDisplayNamed();
/// Tells the desktop to bring a window forward as the user wished by another start, of which it
/// knows by the start's tokens.
void AskDesktopForward(QWidget& window, const InstanceRequest& start);
/// The copy of the program that runs may take the place of this start before other windows.
void LetRunningCopyForward();
/// Has the desktop open charts with this program, unless the user chose another one, where programs
/// do that by themselves.
void RegisterFileTypes();

}  // namespace morvane
