#pragma once

#include <string>
#include <string_view>

#include <Qsci/qsciscintilla.h>

#include "platform/BoxMenu.h"
#include "platform/Syntax.h"

namespace morvane {

class CodeLexer;

/// An editor of code: colours of the language, matching braces, indentation by Tab and Shift+Tab
/// and after Return. Ctrl+Tab, Ctrl+Shift+Tab and Escape are left to the dialog around it. It has
/// room for so many letters and lines.
class CodeBox : public QsciScintilla {
  Q_OBJECT

 public:
  CodeBox(Syntax syntax, int letters, int lines, QWidget* parent);

  /// Shows a text of UTF-8 in the place of the former one, which undo doesn't bring back.
  void ShowText(std::string_view utf8);
  /// What it shows, in UTF-8 with CR LF between the lines.
  std::string ShownText() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void changeEvent(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  bool canInsertFromMimeData(const QMimeData* source) const override;
  QByteArray fromMimeData(const QMimeData* source, bool& rectangular) const override;

 private:
  void SetUp();
  void ForgetKeys();
  void Dress();
  void IndentLike(std::string_view utf8);
  void UnindentLine();
  void ShiftSelectedLines(bool back);
  void ColourToCaret();
  bool CanDo(BoxCommand command) const;
  void Do(BoxCommand command);
  QSize SizeFor(int letterCount, int lineCount) const;

  int roomyLetters;  ///< that have room at first
  int roomyLines;
  CodeLexer* colours;
};

}  // namespace morvane
