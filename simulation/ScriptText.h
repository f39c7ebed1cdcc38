#pragma once

#include <map>
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
  /// Names that the text reads as they are: neither calls nor objects that something is asked of.
  const std::set<std::string>& Read() const { return read; }
  /// Names that a statement calls, or calls something of, and what it calls: {"motor",
  /// "motor.Start"}. What such a call gives doesn't matter.
  const std::map<std::string, std::string>& Called() const { return called; }

  /// A variable as the declarations of a chart have it.
  struct Declared {
    std::string name;
    std::string value;  ///< the literal that it begins with; empty for none
  };
  static std::vector<Declared> DeclaredIn(std::string_view utf8);

 private:
  class Pieces;
  static std::string Translated(const Pieces& pieces, std::size_t piece);
  void TakeName(const Pieces& pieces, std::size_t piece);

  std::string program;
  std::set<std::string> assigned;
  std::set<std::string> read;
  std::map<std::string, std::string> called;
};

}  // namespace morvane
