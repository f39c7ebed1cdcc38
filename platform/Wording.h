#pragma once

#include <array>
#include <string>
#include <string_view>

namespace morvane {

// What the platform's own windows and boxes say. The texts are English; the program puts them into
// the language of the user.

/// Gives what stands for an English text; the text itself where there is nothing else.
using Translator = std::string (*)(std::string_view english);

/// Sets what translates; null goes back to English.
void SetTranslator(Translator translator);

/// A text of the platform, a label or one of those below, in the language of the user.
std::string Worded(std::string_view english);

/// A label without the mark of its mnemonic, nor a mnemonic that was added behind it in brackets;
/// "&&" stands for "&".
std::string PlainLabel(std::string_view label);
/// The same without the colon at its end, for who listens.
std::string SpokenLabel(std::string_view label);

inline constexpr std::string_view kLineTooLong =
    "A line of this text is too long to be edited here";
inline constexpr std::string_view kDiscardTyped = "Discard what you typed?";
inline constexpr std::string_view kPageOfPages = "Page %1 of %2";
inline constexpr std::string_view kPrinterFails = "The printer does not take the chart";
inline constexpr std::string_view kNoPrinter =
    "There is no printer here. Charts are printed to PDF files.";
inline constexpr std::string_view kNoRoomToPrint =
    "The page has no room to print on.\n\nPlease choose another paper or smaller margins.";
inline constexpr std::string_view kTooManyPages =
    "The chart is too large for that many pages.\n\n"
    "Please choose \"Print to Fit\" in the print setup.";
inline constexpr std::string_view kNoSuchPages = "The chart does not have these pages";
inline constexpr std::string_view kSettingsUnsaved = "The settings cannot be saved";
inline constexpr std::string_view kSearchTooPlain = "Only a plain text can be looked for here";
inline constexpr std::string_view kOpenInAnotherProgram = "Another program has the file open";
inline constexpr std::string_view kNameOfDevice = "The name is that of a device, not of a file";

/// All of those.
inline constexpr std::array kPlatformTexts = {
    kLineTooLong,    kDiscardTyped,         kPageOfPages,  kPrinterFails,
    kNoRoomToPrint,  kTooManyPages,         kNoSuchPages,  kSettingsUnsaved,
    kSearchTooPlain, kOpenInAnotherProgram, kNameOfDevice, kNoPrinter};

}  // namespace morvane
