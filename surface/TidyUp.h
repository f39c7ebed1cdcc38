#pragma once

namespace morvane {

class LayoutMgr;

/// Lays out a whole chart, or what is selected of it among itself, in the place where it stands.
/// What stands inside what stays as it is: if it can't, nothing changes, and the user is told.
void TidyUp(LayoutMgr& chart);

}  // namespace morvane
