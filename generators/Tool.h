#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "generators/TargetLanguage.h"

namespace morvane {

struct ToolArguments;

/// One of the five generators as a program: mrv2cpp, mrv2c, mrv2cs, mrv2java, mrv2xml.
class Tool {
 public:
  static constexpr int kWrongUse = 2;

  explicit Tool(TargetLanguage language) : language(language) {}

  /// Does what the arguments behind the program's name ask for. Gives the exit status: 0, 1 for a
  /// chart with errors or a file that can't be read or written, 2 for a wrong use.
  int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) const;

 private:
  std::string Name() const;
  std::string Usage() const;
  std::string Help() const;
  int RunGenerate(const ToolArguments& arguments, std::ostream& out, std::ostream& err) const;
  int WrongUse(const ToolArguments& arguments, std::ostream& out, std::ostream& err) const;

  TargetLanguage language;
};

}  // namespace morvane
