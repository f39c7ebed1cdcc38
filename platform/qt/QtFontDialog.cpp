#include "platform/qt/QtFontDialog.h"

#include <algorithm>
#include <cmath>

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFontDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QToolButton>
#include <QVBoxLayout>

#include "drawing/qt/QtText.h"
#include "platform/Wording.h"

namespace morvane {

namespace {

constexpr int kTenths = 10;
constexpr int kLeastPoints = 1;
constexpr int kMostPoints = 512;
constexpr QSize kSwatch(32, 16);

}  // namespace

QtFontDialog::QtFontDialog(const Dialogs::FontChoice& start, QWidget* parent)
    : QDialog(parent),
      fonts(new QFontDialog(this)),
      startFace(start.face),
      colourButton(new QToolButton(this)),
      colour(static_cast<int>(GetRValue(start.colour)), static_cast<int>(GetGValue(start.colour)),
             static_cast<int>(GetBValue(start.colour))) {
  setWindowTitle(ToQString(Worded("Font")));
  fonts->setWindowFlags(Qt::Widget);
  fonts->setOptions(QFontDialog::NoButtons | QFontDialog::DontUseNativeDialog);
  QFont font;
  font.setFamilies({ToQString(start.face)});
  font.setPointSize(std::clamp(start.tenths / kTenths, kLeastPoints, kMostPoints));
  fonts->setCurrentFont(font);
  shownFace = fonts->currentFont().family();
  fonts->setSizeGripEnabled(false);
  fonts->layout()->setContentsMargins(0, 0, 0, 0);

  auto* label = new QLabel(ToQString(Worded("&Color:")), this);
  label->setBuddy(colourButton);
  colourButton->setAccessibleName(ToQString(Worded("Color")));
  colourButton->setIconSize(kSwatch);
  ShowColour();
  auto* colourRow = new QHBoxLayout;
  colourRow->addWidget(label);
  colourRow->addWidget(colourButton);
  colourRow->addStretch(1);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(fonts, 1);
  layout->addLayout(colourRow);
  layout->addWidget(buttons);

  connect(colourButton, &QToolButton::clicked, this, &QtFontDialog::AskColour);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  // Return and Escape inside it end the whole.
  connect(fonts, &QDialog::accepted, this, &QDialog::accept);
  connect(fonts, &QDialog::rejected, this, &QDialog::reject);
}

void QtFontDialog::ShowColour() {
  QPixmap swatch(kSwatch * devicePixelRatioF());
  swatch.setDevicePixelRatio(devicePixelRatioF());
  swatch.fill(colour);
  QPainter painter(&swatch);
  painter.setPen(palette().color(QPalette::Text));
  painter.drawRect(QRect(QPoint(0, 0), kSwatch).adjusted(0, 0, -1, -1));
  colourButton->setIcon(swatch);
}

void QtFontDialog::AskColour() {
  const QColor chosen = QColorDialog::getColor(colour, this);
  if (!chosen.isValid()) return;
  colour = chosen;
  ShowColour();
}

Dialogs::FontChoice QtFontDialog::Choice() const {
  const QFont font = fonts->currentFont();
  return {font.family() == shownFace ? startFace : ToBytes(font.family()),
          static_cast<std::int32_t>(std::lround(font.pointSizeF() * kTenths)),
          RGB(static_cast<unsigned>(colour.red()), static_cast<unsigned>(colour.green()),
              static_cast<unsigned>(colour.blue()))};
}

}  // namespace morvane
