#pragma once

namespace morvane {

class LayoutMgr;

/// Puts what the chosen tool makes on the chart without a mouse: in the selected state if there is
/// room in its visible part, else at a free place near the middle of the window. The tools that
/// connect go on from what is selected. False if no tool is chosen.
bool InsertByKeyboard(LayoutMgr& chart);

}  // namespace morvane
