#pragma once

#include <string>

namespace morvane {

// What a program of the desktop does with its own process.

/// What ends a process elsewhere is here the error of the call that caused it: a file that grows
/// over its limit, a reader that has gone, a drive without a disk.
void LetCallsReportFailures();
/// Gives the standard streams the console from which a program of windows was started, unless they
/// lead somewhere already.
void JoinConsole();
/// Starts another process of this program, on a file if one is named. It goes on when this process
/// ends.
void StartProgramAnew(const std::string& file);

}  // namespace morvane
