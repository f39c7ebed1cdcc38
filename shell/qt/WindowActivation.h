#pragma once

class QWidget;

namespace morvane {

struct InstanceRequest;

/// Brings a window, or the dialog in front of it, before the windows of other programs and gives it
/// the keyboard, as the user wished by another start. The desktop knows that start by its tokens.
void BringForward(QWidget& window, const InstanceRequest& start);

}  // namespace morvane
