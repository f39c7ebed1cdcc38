#pragma once

#include <string>

/// Makes the library of the language that the profile names the source of all texts of the
/// program, until it ends. The value is one of "eng", "fra", "ger" and "esp"; English needs no
/// library. What is wrong with the value or its library is shown in a message box, and the program
/// speaks English. The libraries are looked for beside the program.
void LoadLanguage();
/// The same with libraries from a folder.
void LoadLanguage(const std::string& folder);
