#pragma once

#include <string>
#include <vector>

#include "generators/TargetLanguage.h"

namespace morvane {

/// A run of a generator.
struct GenerateRequest {
  enum class Output { Files, Nothing };  ///< `Nothing` checks the chart alone

  TargetLanguage language = TargetLanguage::Cpp;
  bool debug = false;  ///< lines of the model file, names of states, and a trace
  Output output = Output::Files;
  std::string folder;  ///< where the files go; empty: the current folder
  std::string model;   ///< the path of the model file
};

struct GenerateResult {
  static constexpr int kSuccess = 0;
  static constexpr int kFailure = 1;

  int exitCode = kSuccess;
  /// A line for each problem and one that sums them up; empty if there is none.
  std::string messages;
  /// The files that the code stands in, whether they had to be written or held it already.
  std::vector<std::string> files;
};

/// Turns a model file into code. An error in the chart writes nothing. Each file is replaced whole,
/// and one that holds the same already is left untouched.
GenerateResult Generate(const GenerateRequest& request);

}  // namespace morvane
