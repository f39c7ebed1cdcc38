#include "shell/Arguments.h"

#include <algorithm>
#include <charconv>
#include <sstream>

namespace morvane {

namespace {

bool IsOption(std::string_view word) { return word.size() > 1 && word[0] == '-'; }

std::string Quoted(std::string_view word) { return "'" + std::string(word) + "'"; }

std::string ShortText(double number) {
  std::ostringstream text;
  text << number;
  return text.str();
}

}  // namespace

Arguments Arguments::Parse(const Form& form, std::span<const std::string> words) {
  Arguments result;
  bool optionsEnded = false;
  for (std::size_t at = 0; at < words.size() && result.problem.empty(); ++at) {
    if (!optionsEnded && words[at] == "--") {
      optionsEnded = true;
    } else if (!optionsEnded && IsOption(words[at])) {
      result.TakeOption(form, words, at);
    } else {
      result.operands.push_back(words[at]);
    }
  }
  if (result.problem.empty()) result.CheckOperands(form);
  return result;
}

void Arguments::TakeOption(const Form& form, std::span<const std::string> words, std::size_t& at) {
  const std::string& word = words[at];
  const std::size_t equals = word.starts_with("--") ? word.find('=') : std::string::npos;
  const std::string name = word.substr(0, equals);
  const auto known = std::ranges::find(form.options, name, &Option::name);
  const std::string job = form.job.empty() ? std::string() : std::string(form.job) + ": ";
  if (known == form.options.end()) {
    problem = job + "unknown option " + Quoted(name);
  } else if (values.contains(name)) {
    problem = job + "option " + Quoted(name) + " is given twice";
  } else if (!known->TakesValue() && equals != std::string::npos) {
    problem = job + "option " + Quoted(name) + " takes no value";
  } else if (!known->TakesValue()) {
    values[name];
  } else if (equals != std::string::npos) {
    values[name] = word.substr(equals + 1);
  } else if (at + 1 < words.size()) {
    values[name] = words[++at];
  } else {
    problem = job + "option " + Quoted(name) + " needs a " + std::string(known->value);
  }
}

void Arguments::CheckOperands(const Form& form) {
  const std::string job = form.job.empty() ? std::string() : std::string(form.job) + ": ";
  if (operands.size() > form.most) {
    problem = job + "too many arguments, from " + Quoted(operands[form.most]) + " on";
  } else if (operands.size() < form.fewest) {
    problem = job + "needs " + std::string(form.operands);
  }
}

void Arguments::Complain(const std::string& what) {
  if (problem.empty()) problem = what;
}

void Arguments::Refuse(std::string_view option, std::string_view wanted) {
  Complain(std::string(option) + ": " + Quoted(Value(option)) + " is not " + std::string(wanted));
}

std::string Arguments::Value(std::string_view option) const {
  const auto found = values.find(option);
  return found != values.end() ? found->second : std::string();
}

std::optional<double> Arguments::Number(std::string_view option, double least, double most) {
  if (!Has(option)) return std::nullopt;
  const std::string text = Value(option);
  double number = 0;
  const char* end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number);
  if (error == std::errc() && rest == end && number >= least && number <= most) return number;
  Refuse(option, "a number from " + ShortText(least) + " to " + ShortText(most));
  return std::nullopt;
}

}  // namespace morvane
