#pragma once

#include <string>

namespace morvane {

/// Gives the toolkit's own texts, such as those of its file dialog, a language, named by its two
/// letters. An application object has to be there. Where the desktop lacks these texts, they stay
/// English.
void LoadToolkitTexts(const std::string& locale);

}  // namespace morvane
