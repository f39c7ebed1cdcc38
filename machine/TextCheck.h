#pragma once

#include <string>

namespace morvane {

class ProblemList;
struct DrawnObject;
struct MachineText;

/// Reports a bracket, quote or comment that is left open in a text of an object. `which` is what
/// the user calls the text, in the language of the user: the entry text, the guard.
void CheckText(const DrawnObject& object, const MachineText& text, const std::string& which,
               ProblemList& problems);

}  // namespace morvane
