#pragma once

namespace morvane {

/// Lets the user choose the language and what is reopened at the start, and stores what was
/// changed.
void EditPreferences();

}  // namespace morvane
