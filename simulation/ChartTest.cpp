#include "simulation/ChartTest.h"

#include <sstream>
#include <string_view>
#include <utility>

#include "resources/Texts.h"

namespace morvane {

namespace {

using Kind = ChartTest::Line::Kind;

constexpr std::string_view kBlanks = " \t\r";
constexpr const char* kEnding = ".mrvtest";

std::string_view Trimmed(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(kBlanks) - begin + 1);
}

/// The first word; the rest stays in `text`.
std::string_view TakeWord(std::string_view& text) {
  text = Trimmed(text);
  const std::string_view word = text.substr(0, text.find_first_of(kBlanks));
  text = Trimmed(text.substr(word.size()));
  return word;
}

/// Quotation marks keep blanks at the ends of a name.
std::string Unquoted(std::string_view text) {
  const bool quoted = text.size() > 1 && text.front() == '"' && text.back() == '"';
  return std::string(quoted ? text.substr(1, text.size() - 2) : text);
}

class Parser {
 public:
  ChartTestFile Parse(const std::string& text) {
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
      ++number;
      TakeLine(line);
    }
    return std::move(file);
  }

 private:
  void Fault(const std::string& what) {
    file.faults.push_back(std::to_string(number) + ": " + what);
  }

  void TakeLine(std::string_view line) {
    std::string_view rest = Trimmed(line);
    if (number == 1 && rest.starts_with("\xEF\xBB\xBF")) rest = Trimmed(rest.substr(3));
    if (rest.empty() || rest.front() == '#') return;
    const std::string_view word = TakeWord(rest);
    if (word == "case") {
      if (rest.empty()) return Fault(Said("a case has no name"));
      file.cases.push_back({Unquoted(rest), number});
      return;
    }
    if (file.cases.empty()) return Fault(Said("a case comes first: \"case NAME\""));
    if (rest.empty()) return Fault(Said("\"%1\" needs something behind it", {std::string(word)}));
    TakeStep(word, rest);
  }

  void TakeStep(std::string_view word, std::string_view rest) {
    if (word == "send") {
      Add({Kind::Send, Unquoted(rest)});
    } else if (word == "guard") {
      TakeGuard(rest);
    } else if (word == "set") {
      const std::string name(TakeWord(rest));
      if (rest.empty()) return Fault(Said("\"set %1\" needs a value", {name}));
      Add({Kind::Set, name, std::string(rest)});
    } else if (word == "expect") {
      TakeExpectation(rest);
    } else {
      Fault(Said("\"%1\" is not known", {std::string(word)}));
    }
  }

  void TakeGuard(std::string_view rest) {
    const std::size_t end = rest.find_last_of(kBlanks);
    const std::string_view answer = end == std::string_view::npos ? "" : rest.substr(end + 1);
    if (answer != "true" && answer != "false")
      return Fault(Said("a guard is \"true\" or \"false\""));
    Add({Kind::Guard, Unquoted(Trimmed(rest.substr(0, end))), {}, answer == "true"});
  }

  void TakeExpectation(std::string_view rest) {
    if (rest == "ignored") return Add({Kind::ExpectIgnored});
    std::string_view behind = rest;
    const std::string_view word = TakeWord(behind);
    if (word == "not" && !behind.empty()) return Add({Kind::ExpectNot, Unquoted(behind)});
    if (word == "that" && !behind.empty()) {
      return Add({Kind::ExpectThat, {}, std::string(behind)});
    }
    Add({Kind::Expect, Unquoted(rest)});
  }

  void Add(ChartTest::Line line) {
    line.number = number;
    file.cases.back().lines.push_back(std::move(line));
  }

  ChartTestFile file;
  int number = 0;
};

/// As it is read again.
std::string Quoted(const std::string& name) {
  const bool isPlain = name == Trimmed(name) && name != "ignored" && !name.starts_with("not ") &&
                       !name.starts_with("that ") && !name.starts_with('"');
  return isPlain ? name : '"' + name + '"';
}

std::string TextOfLine(const ChartTest::Line& line) {
  switch (line.kind) {
    case Kind::Send: return "send " + Quoted(line.name);
    case Kind::Guard: return "guard " + line.name + (line.holds ? " true" : " false");
    case Kind::Set: return "set " + line.name + ' ' + line.text;
    case Kind::Expect: return "expect " + Quoted(line.name);
    case Kind::ExpectNot: return "expect not " + Quoted(line.name);
    case Kind::ExpectIgnored: return "expect ignored";
    case Kind::ExpectThat: return "expect that " + line.text;
  }
  return {};
}

}  // namespace

ChartTestFile ChartTestFile::Parse(const std::string& text) { return Parser().Parse(text); }

std::string ChartTestFile::PathFor(const std::string& chart) {
  const std::size_t dot = chart.find_last_of("./\\");
  const bool hasEnding = dot != std::string::npos && chart[dot] == '.';
  return (hasEnding ? chart.substr(0, dot) : chart) + kEnding;
}

std::string ChartTestFile::TextOf(const ChartTest& test) {
  std::string text = "\ncase " + test.name + '\n';
  for (const ChartTest::Line& line : test.lines) text += TextOfLine(line) + '\n';
  return text;
}

}  // namespace morvane
