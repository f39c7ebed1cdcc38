#pragma once

#include <string_view>

#include <QPlainTextEdit>

#include "codegen/ScreenText.h"

namespace morvane {

/// The box with the output of a tool: what came last, up to its limits, with each message about a
/// place of the chart as a link.
class ToolOutput : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit ToolOutput(QWidget* parent = nullptr);

  /// Forgets all text.
  void Empty();
  /// Adds bytes as they come. The end stays in sight unless the user looks elsewhere.
  void Add(std::string_view bytes);

 signals:
  /// The user wants to follow a line that is a link.
  void LinkFollowed(const QString& line);

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Forget(QTextCursor& cursor) const;
  /// The link at a point of the viewport; empty if there is none.
  QString LinkAt(QPoint point) const;

  ScreenText screenText;
  QString pressed;  ///< the link that the mouse went down on
};

}  // namespace morvane
