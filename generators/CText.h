#pragma once

#include <string>
#include <string_view>

#include "machine/MachineText.h"

namespace morvane {

class CodeWriter;
struct EmitOptions;
struct Machine;

/// What both files of C code do alike: comments, and the user's own code with the line of the model
/// in front of it.
class CText {
 public:
  CText(CodeWriter& out, const EmitOptions& options, std::string file)
      : out(out), options(options), file(std::move(file)) {}

  /// A comment of one or more lines for what stands below.
  void Comment(std::string_view text);
  /// Who wrote the file, and from what.
  void FileComment(const Machine& machine);
  /// The user's code at the present indentation, or with none where it isn't in a function.
  void Code(const MachineText& code);
  void CodeOutside(std::string_view code, int line);
  /// The user's list of headers: what is no line of the preprocessor already becomes one.
  void Includes(std::string_view list, int line);

 private:
  void LineOfModel(int line);
  void LineOfFile();

  CodeWriter& out;
  const EmitOptions& options;
  std::string file;
};

}  // namespace morvane
