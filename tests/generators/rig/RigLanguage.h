#pragma once

#include <string>
#include <vector>

#include "generators/TargetLanguage.h"

namespace morvane {

/// A chart in the rig: its number, what its code is called by, and what it is fed.
struct RigChart {
  std::string number;
  std::string name;
  std::vector<std::string> events;
};

/// How the code of a language is driven, compiled and run by the rig.
struct RigLanguage {
  TargetLanguage language;
  std::string folder;    ///< below that of the rig
  std::string mainFile;  ///< empty where a program of the rig runs the code
  /// Shell commands, run in the folder; the last one runs the code, and its output is the trace.
  std::vector<std::string> commands;
};

/// All five. `scxmlRunner` is the program that runs SCXML; with an empty one that is left out.
std::vector<RigLanguage> RigLanguages(const std::string& scxmlRunner);

/// The program that feeds each chart its events and prints a line with its number in front.
std::string RigProgram(TargetLanguage language, const std::vector<RigChart>& charts);

}  // namespace morvane
