#pragma once

namespace morvane {

// What a piece of script may take, known to the program that runs it and to the one that waits.

/// A piece that runs longer is interrupted.
constexpr int kScriptMilliseconds = 1000;
/// Whoever waits longer than that gives the whole process up.
constexpr int kScriptGraceMilliseconds = 3000;
/// All memory of the process.
constexpr unsigned long kScriptBytes = 512UL * 1024 * 1024;
/// Of an answer; a longer one is a fault.
constexpr int kScriptAnswerBytes = 4 * 1024 * 1024;

}  // namespace morvane
