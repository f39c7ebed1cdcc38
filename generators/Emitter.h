#pragma once

#include <string>
#include <vector>

#include "machine/Problem.h"

namespace morvane {

struct Machine;

/// What an emitter is told beside the machine.
struct EmitOptions {
  bool debug = false;     ///< lines of the model file, names of states, and a trace
  std::string modelFile;  ///< its path, as lines of code shall name it
  std::string stem;       ///< its name without folder and ending
};

struct GeneratedFile {
  std::string name;  ///< without a folder
  std::string content;
};

struct Emission {
  std::vector<GeneratedFile> files;
  std::vector<Problem> problems;  ///< names that had to be changed for the language
};

/// Writes a machine in one language. The same machine gives the same bytes.
class Emitter {
 public:
  virtual ~Emitter() = default;
  virtual Emission Emit(const Machine& machine, const EmitOptions& options) const = 0;
};

}  // namespace morvane
