#include "platform/qt/CodeLexer.h"

#include <algorithm>

#include <QPalette>
#include <Qsci/qscilexercsharp.h>
#include <Qsci/qscilexerjava.h>
#include <Qsci/qscilexerjavascript.h>

namespace morvane {

namespace {

constexpr int kKeywordSet = 1;
/// The styles of code that no preprocessor takes out follow those of which it does.
constexpr int kStyles = 64;
constexpr int kDarkest = 128;

constexpr const char* kCWords =
    "alignas alignof auto bool break case char const constexpr continue default do double else "
    "enum extern false float for goto if inline int long nullptr register restrict return short "
    "signed sizeof static static_assert struct switch thread_local true typedef union unsigned "
    "void volatile while _Alignas _Alignof _Atomic _Bool _Complex _Generic _Imaginary _Noreturn "
    "_Static_assert _Thread_local NULL";

constexpr const char* kCppWords =
    "alignas alignof and and_eq asm auto bitand bitor bool break case catch char char16_t char32_t "
    "char8_t class co_await co_return co_yield compl concept const const_cast consteval constexpr "
    "constinit continue decltype default delete do double dynamic_cast else enum explicit export "
    "extern false final float for friend goto if inline int long mutable namespace new noexcept "
    "not not_eq nullptr operator or or_eq override private protected public register "
    "reinterpret_cast requires return short signed sizeof static static_assert static_cast struct "
    "switch template this thread_local throw true try typedef typeid typename union unsigned using "
    "virtual void volatile wchar_t while xor xor_eq";

/// The colours of a kind of letters on light and on dark paper.
struct Colour {
  QRgb light;
  QRgb dark;
};

constexpr Colour kComment{0xFF2E7D32, 0xFF7FC97F};
constexpr Colour kKeyword{0xFF0B4FB3, 0xFF7DB7FF};
constexpr Colour kNumber{0xFF8A3FA0, 0xFFD4A5F5};
constexpr Colour kText{0xFFA33B12, 0xFFF0A878};
constexpr Colour kPreProcessor{0xFF7A5A00, 0xFFD9C36A};

const Colour* ColourOf(int style) {
  using Lexer = QsciLexerCPP;
  switch (style) {
    case Lexer::Comment:
    case Lexer::CommentLine:
    case Lexer::CommentDoc:
    case Lexer::CommentLineDoc:
    case Lexer::CommentDocKeyword:
    case Lexer::CommentDocKeywordError:
    case Lexer::PreProcessorComment:
    case Lexer::PreProcessorCommentLineDoc:
    case Lexer::TaskMarker: return &kComment;
    case Lexer::Keyword:
    case Lexer::KeywordSet2: return &kKeyword;
    case Lexer::Number: return &kNumber;
    case Lexer::DoubleQuotedString:
    case Lexer::SingleQuotedString:
    case Lexer::UnclosedString:
    case Lexer::VerbatimString:
    case Lexer::RawString:
    case Lexer::TripleQuotedVerbatimString:
    case Lexer::HashQuotedString:
    case Lexer::Regex:
    case Lexer::EscapeSequence: return &kText;
    case Lexer::PreProcessor: return &kPreProcessor;
    default: return nullptr;
  }
}

}  // namespace

CodeLexer::CodeLexer(Syntax syntax, QObject* parent) : QsciLexerCPP(parent), syntax(syntax) {
  setFoldCompact(false);
}

const char* CodeLexer::keywords(int set) const {
  if (set != kKeywordSet) return nullptr;
  switch (syntax) {
    case Syntax::C: return kCWords;
    case Syntax::CSharp: return QsciLexerCSharp().keywords(set);
    case Syntax::Java: return QsciLexerJava().keywords(set);
    case Syntax::JavaScript: return QsciLexerJavaScript().keywords(set);
    default: return kCppWords;
  }
}

QColor CodeLexer::Ink(int style, const QColor& paper, const QColor& ink) {
  const Colour* colour = ColourOf(style % kStyles);
  if (colour == nullptr) return ink;
  return QColor(paper.lightness() < kDarkest ? colour->dark : colour->light);
}

void CodeLexer::Dress(const QPalette& palette, bool enabled, const QFont& font) {
  const auto group = enabled ? QPalette::Active : QPalette::Disabled;
  const QColor paper = palette.color(group, QPalette::Base);
  const QColor ink = palette.color(group, QPalette::Text);
  setDefaultPaper(paper);
  setDefaultColor(ink);
  setDefaultFont(font);
  for (int style = 0; style < 2 * kStyles; ++style) {
    if (description(style).isEmpty()) continue;
    setPaper(paper, style);
    setColor(enabled ? Ink(style, paper, ink) : ink, style);
    setFont(font, style);
    setEolFill(false, style);
  }
}

}  // namespace morvane
