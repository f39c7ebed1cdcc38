#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// Collects the lines of a source file, knows how deep they are indented and how many they are.
class CodeWriter {
 public:
  /// `indentWidth` blanks for each level.
  explicit CodeWriter(int indentWidth = 4) : indentWidth(indentWidth) {}

  /// One line at the present indentation; an empty one has no blanks.
  void Line(std::string_view text = {});
  /// An empty line, unless the last one is empty or opened a block.
  void Gap();
  /// A line, and what follows stands one level deeper.
  void Open(std::string_view text);
  /// One level back, and a line.
  void Close(std::string_view text);
  /// One level back, a line, and one level deeper again.
  void Reopen(std::string_view text);
  void Indent() { ++level; }
  void Outdent() { --level; }
  /// Several lines with LF between them, each at the present indentation in front of its own;
  /// blanks at the end of the text are left out.
  void Lines(std::string_view text);
  /// The same at no indentation, byte for byte.
  void Verbatim(std::string_view text);
  /// The number of the line that comes next, counted from 1.
  int NextLine() const { return lineCount + 1; }
  const std::string& Text() const { return text; }

 private:
  void Put(std::string_view line, int blanks);

  int indentWidth;
  int level = 0;
  int lineCount = 0;
  bool mayGap = false;
  std::string text;
};

}  // namespace morvane
