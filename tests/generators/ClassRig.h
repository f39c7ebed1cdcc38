#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/generators/TraceCases.h"

namespace morvane {

struct ClassFacts;

/// Compiles the classes of many machines at once in one language, runs them and keeps what each
/// printed.
class ClassRig {
 public:
  /// `folder` is emptied. `compile` and `run` are shell commands that are given there.
  ClassRig(const ClassFacts& facts, const std::string& folder, const std::vector<RigCase>& cases);

  /// Gives a command to the shell in the folder; on failure what it printed.
  std::string Shell(const std::string& command) const;
  /// What a program printed for each case, by its package and name, with a | between the lines.
  std::map<std::string, std::string> Run(const std::string& command, std::string& failure) const;

  static constexpr const char* kTraced = "traced";  ///< the package of those with a trace
  static constexpr const char* kPlain = "plain";    ///< and of those without

 private:
  std::string Runner(const std::string& package, const RigCase& each) const;
  Machine Dressed(const std::string& package, const RigCase& each) const;
  void WriteMain(const std::string& runners) const;

  const ClassFacts& facts;
  std::string folder;
};

}  // namespace morvane
