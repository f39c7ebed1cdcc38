#pragma once

namespace morvane {

/// Starts the toolkit without a screen, once, for as long as the process lives.
void StartToolkit();

}  // namespace morvane
