#pragma once

namespace morvane {

/// How the user wants moves to be, kept in the profile for all charts.
namespace MoveSettings {

/// A state that moves takes along what lies inside it.
bool MovesContents();
void SetMovesContents(bool moves);

}  // namespace MoveSettings

}  // namespace morvane
