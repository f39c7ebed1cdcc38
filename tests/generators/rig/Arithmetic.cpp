#include "tests/generators/rig/Arithmetic.h"

#include <array>
#include <cctype>
#include <vector>

namespace morvane {

namespace {

/// The operators, those that bind least first. A longer one stands in front of its beginning.
const std::array<std::vector<std::string_view>, 6> kLevels = {
    {{"||"}, {"&&"}, {"==", "!="}, {"<=", ">=", "<", ">"}, {"+", "-"}, {"*", "/", "%"}}};

int Apply(std::string_view op, int a, int b) {
  if (op == "||") return a != 0 || b != 0 ? 1 : 0;
  if (op == "&&") return a != 0 && b != 0 ? 1 : 0;
  if (op == "==") return a == b ? 1 : 0;
  if (op == "!=") return a != b ? 1 : 0;
  if (op == "<=") return a <= b ? 1 : 0;
  if (op == ">=") return a >= b ? 1 : 0;
  if (op == "<") return a < b ? 1 : 0;
  if (op == ">") return a > b ? 1 : 0;
  if (op == "+") return a + b;
  if (op == "-") return a - b;
  if (op == "*") return a * b;
  if (b == 0) throw std::string("a division by nothing");
  return op == "/" ? a / b : a % b;
}

bool IsLetter(char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; }
bool IsDigit(char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; }

}  // namespace

int Arithmetic::Value(std::string_view expression) {
  Begin(expression);
  const int value = Binary(0);
  if (at != text.size()) throw "what is this: " + std::string(text.substr(at));
  return value;
}

void Arithmetic::Run(std::string_view statements) {
  Begin(statements);
  while (at < text.size()) Statement(true);
}

void Arithmetic::Begin(std::string_view code) {
  text = code;
  at = 0;
  SkipBlanks();
}

void Arithmetic::SkipBlanks() {
  while (at < text.size()) {
    if (text.substr(at).starts_with("//")) {
      at = std::min(text.find('\n', at), text.size());
    } else if (std::isspace(static_cast<unsigned char>(text[at])) != 0) {
      ++at;
    } else {
      return;
    }
  }
}

bool Arithmetic::Take(std::string_view token) {
  if (!text.substr(at).starts_with(token)) return false;
  at += token.size();
  SkipBlanks();
  return true;
}

void Arithmetic::Need(std::string_view token) {
  if (!Take(token)) throw "no " + std::string(token) + ": " + std::string(text.substr(at));
}

std::string Arithmetic::Word() {
  const std::size_t begin = at;
  while (at < text.size() && IsLetter(text[at])) ++at;
  std::string word(text.substr(begin, at - begin));
  SkipBlanks();
  return word;
}

void Arithmetic::Statement(bool does) {
  const std::string word = Word();
  if (word == "if") {
    Need("(");
    const bool holds = Binary(0) != 0;
    Need(")");
    Need("{");
    while (!Take("}")) Statement(does && holds);
    return;
  }
  if (word.empty()) throw "no statement: " + std::string(text.substr(at));
  Need("=");
  const int value = Binary(0);
  Need(";");
  if (does) variables[word] = value;
}

int Arithmetic::Binary(int level) {
  if (level == static_cast<int>(kLevels.size())) return Unary();
  int value = Binary(level + 1);
  for (bool more = true; more;) {
    more = false;
    for (const std::string_view op : kLevels[static_cast<std::size_t>(level)]) {
      if (!Take(op)) continue;
      value = Apply(op, value, Binary(level + 1));
      more = true;
      break;
    }
  }
  return value;
}

int Arithmetic::Unary() {
  if (Take("!")) return Unary() == 0 ? 1 : 0;
  if (Take("-")) return -Unary();
  if (Take("(")) {
    const int value = Binary(0);
    Need(")");
    return value;
  }
  if (at < text.size() && IsDigit(text[at])) {
    int value = 0;
    for (; at < text.size() && IsDigit(text[at]); ++at) value = value * 10 + (text[at] - '0');
    SkipBlanks();
    return value;
  }
  const std::string word = Word();
  if (word.empty()) throw "no value: " + std::string(text.substr(at));
  return variables[word];
}

}  // namespace morvane
