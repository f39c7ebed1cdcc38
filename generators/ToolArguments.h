#pragma once

#include <string>
#include <vector>

namespace morvane {

/// What one of the generators was called with.
struct ToolArguments {
  enum class Job { Generate, Check, Help, Version, WrongUse };

  /// Reads the arguments behind the program's name. What stands behind the switches is one path: a
  /// caller without quotes gives a path with a blank in pieces.
  static ToolArguments Parse(const std::vector<std::string>& arguments);

  Job job = Job::Generate;
  bool fromDesigner = false;  ///< -d: into the folder of the model, all messages on one stream
  bool debug = false;         ///< -g
  std::string folder;         ///< -o
  std::string model;
};

}  // namespace morvane
