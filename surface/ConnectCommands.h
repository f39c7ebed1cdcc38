#pragma once

#include "connectors/Joining.h"

namespace morvane {

class LayoutMgr;

// Connections without a mouse. What is drawn goes from the object that was selected first; `joint`
// tells what it has to be, if it isn't `Joint::None`. What was made is selected.

/// Two objects are selected between which something can be drawn.
bool CanConnect(const LayoutMgr& chart);
/// Draws it, if need be in the other direction.
void Connect(LayoutMgr& chart);

/// One or two objects are selected, and from the first one something can be drawn somewhere.
bool CanConnectTo(const LayoutMgr& chart, Joint joint);
/// Lets the user choose where to draw it; false if nothing came of it.
bool ConnectTo(LayoutMgr& chart, Joint joint);

}  // namespace morvane
