#pragma once

#include <QComboBox>

#include "drawing/qt/QtText.h"
#include "platform/qt/DialogWidget.h"

class QPainter;

namespace morvane {

/// A combo whose items the program paints, on a drawing context of its own.
class PaintedCombo : public QComboBox {
  Q_OBJECT

 public:
  PaintedCombo(const DialogControl& control, QWidget* parent);

  void PaintOn(QPainter& painter, const QRect& place, int index, bool selected);
  QSize ItemSize() const;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  DialogControl::PaintItem paintItem;
  QtFontCache fonts;
};

/// The combo as a control of a dialog.
class ComboWidget : public DialogWidget {
 public:
  ComboWidget(const DialogControl& control, QWidget* parent, OnClick onClick);

  QWidget* Widget() override { return combo; }
  void Take(DialogControl& control) override { control.selection = combo->currentIndex(); }
  void Show(const DialogControl& control) override { combo->setCurrentIndex(control.selection); }

 private:
  PaintedCombo* combo;
};

}  // namespace morvane
