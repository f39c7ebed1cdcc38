#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// Makes a model text out of a sketch, which has a line for each object:
///
///     initial 1
///     state 2 Idle
///     state 3 Busy
///       final 4
///     arrow 5 1 2
///     message 6 5 event | guard | effect
///     note 7
///
/// What is indented by two blanks more stands in the state before. Behind a state there may be
/// lines `history`, `entry TEXT`, `exit TEXT`, behind any box `at LEFT TOP RIGHT BOTTOM`. In the
/// texts \n is a line break.
std::string ChartSketch(std::string_view sketch, const std::string& header = "9999 4 1");

/// The section behind the objects of a chart named Sketch.
std::string SketchProperties();

/// A line of a text, counted from 1.
std::string LineOfText(const std::string& text, int number);

}  // namespace morvane
