#pragma once

namespace morvane {

class ProblemList;
struct Structure;

/// Gives states and events their names in code: identifiers that differ even when case is ignored,
/// as near to what the user wrote as can be. It warns of each that had to be changed.
class Names {
 public:
  static void Give(Structure& structure, ProblemList& problems);
};

}  // namespace morvane
