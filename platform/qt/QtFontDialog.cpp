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
#include "resources/Texts.h"

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
      colorButton(new QToolButton(this)),
      color(static_cast<int>(GetRValue(start.color)), static_cast<int>(GetGValue(start.color)),
            static_cast<int>(GetBValue(start.color))) {
  setWindowTitle(ToQString(Translate("Font")));
  fonts->setWindowFlags(Qt::Widget);
  fonts->setOptions(QFontDialog::NoButtons | QFontDialog::DontUseNativeDialog);
  QFont font;
  font.setFamilies({ToQString(start.face)});
  font.setPointSize(std::clamp(start.tenths / kTenths, kLeastPoints, kMostPoints));
  fonts->setCurrentFont(font);
  shownFace = fonts->currentFont().family();
  fonts->setSizeGripEnabled(false);
  fonts->layout()->setContentsMargins(0, 0, 0, 0);

  auto* label = new QLabel(ToQString(Translate("&Color:")), this);
  label->setBuddy(colorButton);
  colorButton->setAccessibleName(ToQString(Translate("Color")));
  colorButton->setIconSize(kSwatch);
  ShowColor();
  auto* colorRow = new QHBoxLayout;
  colorRow->addWidget(label);
  colorRow->addWidget(colorButton);
  colorRow->addStretch(1);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(fonts, 1);
  layout->addLayout(colorRow);
  layout->addWidget(buttons);

  connect(colorButton, &QToolButton::clicked, this, &QtFontDialog::AskColor);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  // Return and Escape inside it end the whole.
  connect(fonts, &QDialog::accepted, this, &QDialog::accept);
  connect(fonts, &QDialog::rejected, this, &QDialog::reject);
}

void QtFontDialog::ShowColor() {
  QPixmap swatch(kSwatch * devicePixelRatioF());
  swatch.setDevicePixelRatio(devicePixelRatioF());
  swatch.fill(color);
  QPainter painter(&swatch);
  painter.setPen(palette().color(QPalette::Text));
  painter.drawRect(QRect(QPoint(0, 0), kSwatch).adjusted(0, 0, -1, -1));
  colorButton->setIcon(swatch);
}

void QtFontDialog::AskColor() {
  const QColor chosen = QColorDialog::getColor(color, this);
  if (!chosen.isValid()) return;
  color = chosen;
  ShowColor();
}

Dialogs::FontChoice QtFontDialog::Choice() const {
  const QFont font = fonts->currentFont();
  return {font.family() == shownFace ? startFace : ToBytes(font.family()),
          static_cast<std::int32_t>(std::lround(font.pointSizeF() * kTenths)),
          RGB(static_cast<unsigned>(color.red()), static_cast<unsigned>(color.green()),
              static_cast<unsigned>(color.blue()))};
}
