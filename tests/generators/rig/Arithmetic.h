#pragma once

#include <map>
#include <string>
#include <string_view>

namespace morvane {

/// Runs the texts of made-up charts: whole numbers, assignments and `if`. Anything else throws
/// std::string.
class Arithmetic {
 public:
  int Value(std::string_view expression);
  void Run(std::string_view statements);

 private:
  void Begin(std::string_view code);
  void SkipBlanks();
  bool Take(std::string_view token);
  void Need(std::string_view token);
  std::string Word();
  void Statement(bool does);
  int Binary(int level);
  int Unary();

  std::map<std::string, int> variables;
  std::string_view text;
  std::size_t at = 0;
};

}  // namespace morvane
