#pragma once

#include <Qsci/qscilexercpp.h>

#include "platform/Syntax.h"

class QPalette;

namespace morvane {

/// Tells the words and marks of a language apart, and gives them colours that can be read on the
/// paper of the box, be it light or dark.
class CodeLexer : public QsciLexerCPP {
  Q_OBJECT

 public:
  CodeLexer(Syntax syntax, QObject* parent);

  /// Takes the colours for that palette, those of a box that can be used or not, and the font.
  void Dress(const QPalette& palette, bool enabled, const QFont& font);
  /// The colour of a style of letters on paper of the lightness of `paper`; `ink` is that of
  /// everything that has no colour of its own.
  static QColor Ink(int style, const QColor& paper, const QColor& ink);

  const char* keywords(int set) const override;

 private:
  Syntax syntax;
};

}  // namespace morvane
