#include "simulation/ScriptText.h"

#include <algorithm>
#include <array>
#include <unordered_set>

#include "simulation/CodeTokens.h"

namespace morvane {

using Kind = CodeToken::Kind;

namespace {

/// Words in front of the name of a new variable.
const std::unordered_set<std::string_view> kTypes{
    "auto",     "bool",     "boolean",  "byte",     "char",    "const",    "double",
    "final",    "float",    "int",      "int8_t",   "int16_t", "int32_t",  "int64_t",
    "let",      "long",     "private",  "public",   "sbyte",   "short",    "signed",
    "size_t",   "static",   "string",   "String",   "uint",    "uint8_t",  "uint16_t",
    "uint32_t", "uint64_t", "unsigned", "volatile", "var",     "protected"};

/// Words that are never a variable.
const std::unordered_set<std::string_view> kReserved{
    "break",     "case",     "catch",   "continue", "default", "delete",   "do",         "else",
    "false",     "finally",  "for",     "function", "if",      "in",       "instanceof", "new",
    "null",      "return",   "switch",  "this",     "throw",   "true",     "try",        "typeof",
    "undefined", "void",     "while",   "with",     "self",    "Event",    "Math",       "JSON",
    "NaN",       "Infinity", "console", "nullptr",  "NULL",    "Dispatch", "dispatch"};

constexpr std::array<std::string_view, 13> kAssignments{
    "=", "+=", "-=", "*=", "/=", "%=", "&=", "|=", "^=", "<<=", ">>=", "++", "--"};

}  // namespace

/// The tokens of a text, without its gaps.
class ScriptText::Pieces {
 public:
  explicit Pieces(std::string_view code) : all(CodeTokens(code)) {
    for (std::size_t i = 0; i < all.size(); ++i) {
      if (all[i].kind != Kind::Gap) solid.push_back(i);
    }
  }

  std::size_t Count() const { return solid.size(); }
  /// A mark without text in front of the text and behind it.
  const CodeToken& At(std::size_t piece) const {
    static const CodeToken none{Kind::Gap, {}};
    return piece < solid.size() ? all[solid[piece]] : none;
  }
  const CodeToken& Before(std::size_t piece) const { return At(piece - 1); }
  const CodeToken& After(std::size_t piece) const { return At(piece + 1); }

  bool IsMember(std::size_t piece) const {
    const CodeToken& before = Before(piece);
    const bool follows = before.Is(".") || before.Is("->") || before.Is("::");
    // What belongs to the machine itself is a variable like others.
    return follows && At(piece - 2).text != "self" && At(piece - 2).text != "this";
  }
  bool IsCall(std::size_t piece) const { return After(piece).Is("("); }
  bool IsAssigned(std::size_t piece) const {
    const CodeToken& before = Before(piece);
    const std::string_view after = After(piece).kind == Kind::Mark ? After(piece).text : "";
    return before.Is("++") || before.Is("--") ||
           std::ranges::find(kAssignments, after) != kAssignments.end();
  }
  bool BeginsStatement(std::size_t piece) const {
    const CodeToken& before = Before(piece);
    return before.text.empty() || before.Is(";") || before.Is("{") || before.Is("}") ||
           before.Is(")") || before.text == "else";
  }
  bool IsVariable(std::size_t piece) const {
    const CodeToken& token = At(piece);
    return token.kind == Kind::Word && !kTypes.contains(token.text) &&
           !kReserved.contains(token.text) && !IsMember(piece) && !After(piece).Is("::");
  }
  /// Something of it is asked for.
  bool IsObject(std::size_t piece) const { return IsStep(piece + 1); }
  /// "motor.Start" where that is called from here on; empty where nothing is.
  std::string CallFrom(std::size_t piece) const {
    std::string chain(At(piece).text);
    for (; IsStep(piece + 1) && At(piece + 2).kind == Kind::Word; piece += 2) {
      chain += '.';
      chain += At(piece + 2).text;
    }
    return IsCall(piece) ? chain : std::string();
  }
  const std::vector<CodeToken>& All() const { return all; }

 private:
  bool IsStep(std::size_t piece) const { return At(piece).Is(".") || At(piece).Is("->"); }

  std::vector<CodeToken> all;
  std::vector<std::size_t> solid;
};

namespace {

bool IsType(const CodeToken& token) {
  return token.kind == Kind::Word && kTypes.contains(token.text);
}

/// Without what tells its type: 10u, 1.5f.
std::string_view PlainNumber(std::string_view number) {
  if (number.starts_with("0x") || number.starts_with("0X")) return number;
  const std::size_t last = number.find_last_not_of("fFuUlLdDmM");
  return number.substr(0, last + 1);
}

}  // namespace

/// A piece in words of ECMAScript.
std::string ScriptText::Translated(const Pieces& pieces, std::size_t piece) {
  const CodeToken& token = pieces.At(piece);
  if (token.Is("::") || token.Is("->")) return ".";
  if (token.kind == Kind::Number) return std::string(PlainNumber(token.text));
  if (token.kind != Kind::Word) return std::string(token.text);
  if (token.text == "nullptr" || token.text == "NULL") return "null";
  if (token.text.ends_with("_Dispatch")) return "Dispatch";
  if (const std::size_t at = token.text.find("_Event_"); at != std::string_view::npos) {
    return "Event." + std::string(token.text.substr(at + std::string_view("_Event_").size()));
  }
  const bool beginsType = IsType(token) && !IsType(pieces.Before(piece));
  if (!IsType(token)) return std::string(token.text);
  // Of several words the first one stands for all, if a name follows the last.
  std::size_t end = piece;
  while (IsType(pieces.At(end))) ++end;
  if (pieces.At(end).kind != Kind::Word) return std::string(token.text);
  return beginsType ? "var" : "";
}

ScriptText::ScriptText(std::string_view utf8) {
  const Pieces pieces(utf8);
  std::size_t piece = 0;
  for (const CodeToken& token : pieces.All()) {
    if (token.kind == Kind::Gap) {
      program += token.text;
      continue;
    }
    program += Translated(pieces, piece);
    TakeName(pieces, piece++);
  }
}

/// Notes what a piece is the name of, if it is one.
void ScriptText::TakeName(const Pieces& pieces, std::size_t piece) {
  const std::string name(pieces.At(piece).text);
  const bool isOwn = name.ends_with("_Dispatch") || name.find("_Event_") != std::string::npos;
  if (!pieces.IsVariable(piece) || isOwn) return;
  const std::string chain = pieces.CallFrom(piece);
  if (!chain.empty() && pieces.BeginsStatement(piece)) called.emplace(name, chain);
  if (!chain.empty() || pieces.IsCall(piece) || pieces.IsObject(piece)) return;
  (pieces.IsAssigned(piece) ? assigned : read).insert(name);
}

std::vector<ScriptText::Declared> ScriptText::DeclaredIn(std::string_view utf8) {
  std::vector<Declared> declared;
  const Pieces pieces(utf8);
  for (std::size_t i = 1; i < pieces.Count(); ++i) {
    const CodeToken& name = pieces.At(i);
    if (name.kind != Kind::Word || kTypes.contains(name.text)) continue;
    // An object of a class has no literal, and nothing to calculate with.
    if (!IsType(pieces.Before(i))) continue;
    if (pieces.After(i).Is(";")) declared.push_back({std::string(name.text), ""});
    if (!pieces.After(i).Is("=") || !pieces.At(i + 3).Is(";")) continue;
    const CodeToken& value = pieces.At(i + 2);
    const bool isLiteral = value.kind == Kind::Number || value.kind == Kind::Quote ||
                           value.text == "true" || value.text == "false";
    if (!isLiteral) continue;
    const std::string_view plain =
        value.kind == Kind::Number ? PlainNumber(value.text) : value.text;
    declared.push_back({std::string(name.text), std::string(plain)});
  }
  return declared;
}

}  // namespace morvane
