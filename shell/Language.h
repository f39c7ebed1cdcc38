#pragma once

#include <string>
#include <vector>

namespace morvane {

/// Makes the library of a language the source of all texts of the program, until it ends. The
/// profile names the language by one of "eng", "fra", "ger", "esp" and "jpn"; one that names none
/// leaves it to the locale of the system, so far as there is a library for that. English needs no
/// library. What is wrong with the profile, its value or the library of that is shown in a message
/// box, and the program speaks English. The libraries are looked for beside the program.
void LoadLanguage();
/// The same with libraries from a folder.
void LoadLanguage(const std::string& folder);

/// A language that can be chosen.
struct LanguageChoice {
  std::string code;  ///< as the profile names it
  std::string name;  ///< as it calls itself, in UTF-8
};

/// The languages that the program can speak: English, and those whose library is beside it.
std::vector<LanguageChoice> AvailableLanguages();
/// The same with libraries from a folder.
std::vector<LanguageChoice> AvailableLanguages(const std::string& folder);
/// The code in the profile; empty if the system's locale chooses, or if the program doesn't know
/// the value.
std::string ChosenLanguage();
/// Stores a code for the next start; an empty one leaves the choice to the system's locale.
void ChooseLanguage(const std::string& code);

}  // namespace morvane
