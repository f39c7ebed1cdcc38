#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

/// A text of a chart, which may be written for any of the languages that code is generated in, read
/// as ECMAScript. What the languages share, and that is most of what stands in a chart, is taken as
/// it is; where they only write it differently ("Event::go", "self->n", "int n = 0;") it is put
/// into words of ECMAScript. What is beyond that stays, and is then a fault when it is run.
class ScriptText {
 public:
  explicit ScriptText(std::string_view utf8);

  const std::string& Program() const { return program; }
  /// Names that the text gives a value to.
  const std::set<std::string>& Assigned() const { return assigned; }
  /// Names that the text reads and that are no calls.
  const std::set<std::string>& Read() const { return read; }
  /// Names that are called by a statement of their own, so that what they give doesn't matter.
  const std::set<std::string>& Called() const { return called; }

  /// A variable as the declarations of a chart have it.
  struct Declared {
    std::string name;
    std::string value;  ///< the literal that it begins with; empty for none
  };
  static std::vector<Declared> DeclaredIn(std::string_view utf8);

 private:
  std::string program;
  std::set<std::string> assigned;
  std::set<std::string> read;
  std::set<std::string> called;
};

}  // namespace morvane
