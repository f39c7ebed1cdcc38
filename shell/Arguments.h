#pragma once

#include <cstddef>
#include <functional>
#include <limits>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace morvane {

/// What stands on a command line behind the name of a job: options, of which some have a value
/// ("--scale 2" or "--scale=2"), and operands, in any order. "--" ends the options; "-" alone is an
/// operand.
class Arguments {
 public:
  struct Option {
    std::string_view name;   ///< "--scale"
    std::string_view value;  ///< what stands for its value in a message, "NUMBER"; or empty
    bool TakesValue() const { return !value.empty(); }
  };
  /// What a job takes.
  struct Form {
    std::string_view job;  ///< "--export"; empty for the window
    std::span<const Option> options;
    std::string_view operands;  ///< as in a message: "OUT FILE"
    std::size_t fewest = 0;
    std::size_t most = std::numeric_limits<std::size_t>::max();
  };

  static Arguments Parse(const Form& form, std::span<const std::string> words);

  /// What is wrong with the words, in one line; empty if nothing is.
  const std::string& Problem() const { return problem; }
  /// Says what is wrong, if nothing else has been said.
  void Complain(const std::string& what);
  /// Says that a value is none that the option can have.
  void Refuse(std::string_view option, std::string_view wanted);

  bool Has(std::string_view option) const { return values.contains(option); }
  /// The value of an option; empty if it isn't there.
  std::string Value(std::string_view option) const;
  /// The value as a number from `least` to `most`; nothing if the option isn't there. What is no
  /// such number is refused.
  std::optional<double> Number(std::string_view option, double least, double most);
  const std::vector<std::string>& Operands() const { return operands; }

 private:
  void TakeOption(const Form& form, std::span<const std::string> words, std::size_t& at);
  void CheckOperands(const Form& form);

  std::map<std::string, std::string, std::less<>> values;
  std::vector<std::string> operands;
  std::string problem;
};

}  // namespace morvane
