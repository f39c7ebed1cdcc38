#pragma once

#include <QColor>
#include <QDialog>

#include "platform/Dialogs.h"

class QFontDialog;
class QToolButton;

namespace morvane {

/// The choice of a font together with its colour.
class QtFontDialog : public QDialog {
  Q_OBJECT

 public:
  QtFontDialog(const Dialogs::FontChoice& start, QWidget* parent);
  Dialogs::FontChoice Choice() const;

 private:
  void ShowColour();
  void AskColour();

  QFontDialog* fonts;
  std::string startFace;
  QString shownFace;  ///< another one where the machine lacks the face to start from
  QToolButton* colourButton;
  QColor colour;
};

}  // namespace morvane
