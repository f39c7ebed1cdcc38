#pragma once

namespace morvane {

class ProblemList;
struct Structure;

/// Warns of what a machine has and never uses: states that no path leads to, and transitions that
/// are never tried.
class FlowCheck {
 public:
  static void Warn(const Structure& structure, ProblemList& problems);
};

}  // namespace morvane
