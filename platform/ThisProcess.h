#pragma once

#include <string>
#include <vector>

namespace morvane {

// What a program asks of the system about its own process.

/// A number that no other process has while this one runs.
long ProcessNumber();
/// What the program was started with behind its own name, as `main` was given it; in UTF-8 where
/// the system has it in letters.
std::vector<std::string> ProgramArguments(int count, const char* const* arguments);
/// The three standard streams carry bytes as they are: no line end becomes another one. Comes
/// before anything is read or written there.
void UseBytesInStandardStreams();
/// A path for standard input that `ReadWholeFile` and `TailFile` take.
std::string StandardInputPath();
/// The locale in which the system talks to the user, such as "de_AT.UTF-8": that of the
/// environment, else that of the desktop. Empty if neither says.
std::string SystemLocale();
/// That of the desktop, where it has one beside the environment.
std::string DesktopLocale();

}  // namespace morvane
