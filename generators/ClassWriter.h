#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "generators/CodeWriter.h"

namespace morvane {

struct ClassFacts;
struct EmitOptions;

/// Writes a file in the syntax of its language.
class ClassWriter {
 public:
  /// `fileName` is the one that lines of generated code shall be reported in.
  ClassWriter(const ClassFacts& facts, const EmitOptions& options, std::string fileName);

  void Line(std::string_view text = {}) { code.Line(text); }
  void Gap() { code.Gap(); }
  void Indent() { code.Indent(); }
  void Outdent() { code.Outdent(); }
  /// A line with an opening brace; what follows stands inside.
  void Block(const std::string& head);
  /// The closing brace, with what has to stand right behind it.
  void End(std::string_view behind = {});
  /// Ends a block, and the next one goes with it.
  void EndAndBlock(const std::string& head);
  /// A comment that tools read, in front of what it describes; nothing for an empty text.
  void Doc(const std::vector<std::string>& lines);
  void Doc(std::string_view line);
  /// Statements or declarations of the user, which stand in `line` of the model file.
  void UserText(std::string_view text, int line);
  /// An expression of the user, which is the result of a function.
  void UserResult(std::string_view text, int line);
  const std::string& Text() const { return code.Text(); }

 private:
  void LineOfModel(int line);
  void LineOfCode(int line);

  CodeWriter code;
  const ClassFacts& facts;
  const EmitOptions& options;
  std::string fileName;
};

}  // namespace morvane
