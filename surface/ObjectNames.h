#pragma once

#include <string>

namespace morvane {

class ReadingOrder;
class Shape;

// What an object of a chart is called where it can't be seen, in the present language.

/// Kind and name, where it lies or runs, and what sets it off: "State Idle in Operating",
/// "Transition from Idle to Busy, coin [amount > 0]".
std::string NameOfObject(const Shape& object, const ReadingOrder& order);
/// What the object says at length: entry and exit text, the texts of a message, a note. Lines are
/// separated by LF.
std::string TextOfObject(const Shape& object);

}  // namespace morvane
