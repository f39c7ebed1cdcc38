#pragma once

/// Gives the toolkit's own texts, such as those of its file dialog, the language of the program. An
/// application object has to be there, and the language has to be loaded. Where the desktop lacks
/// these texts, they stay English.
void LoadToolkitTexts();
