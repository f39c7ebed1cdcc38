#include "platform/qt/PaintedCombo.h"

#include <cmath>
#include <utility>

#include <QPainter>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <QStyledItemDelegate>

#include "drawing/qt/QtDC.h"

namespace morvane {

namespace {

constexpr int kItemLetters = 18;
/// What an item is higher than a letter.
constexpr int kItemMargin = 8;

class ItemPainter : public QStyledItemDelegate {
 public:
  explicit ItemPainter(PaintedCombo* combo) : QStyledItemDelegate(combo), combo(combo) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    const bool selected = (option.state & QStyle::State_Selected) != 0;
    combo->PaintOn(*painter, option.rect, index.row(), selected);
  }
  QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
    return combo->ItemSize();
  }

 private:
  PaintedCombo* combo;
};

}  // namespace

PaintedCombo::PaintedCombo(const DialogControl& control, QWidget* parent)
    : QComboBox(parent), paintItem(control.paintItem) {
  setItemDelegate(new ItemPainter(this));
  for (const std::string& item : control.items) addItem(ToQString(item));
}

QSize PaintedCombo::ItemSize() const {
  const QFontMetrics metrics = fontMetrics();
  return {metrics.averageCharWidth() * kItemLetters, metrics.height() + kItemMargin};
}

QSize PaintedCombo::sizeHint() const {
  QStyleOptionComboBox option;
  initStyleOption(&option);
  return style()->sizeFromContents(QStyle::CT_ComboBox, &option, ItemSize(), this);
}

void PaintedCombo::PaintOn(QPainter& painter, const QRect& place, int index, bool selected) {
  if (place.isEmpty()) return;
  const double scale = painter.device()->devicePixelRatioF();
  QImage image(static_cast<int>(std::ceil(place.width() * scale)),
               static_cast<int>(std::ceil(place.height() * scale)), QImage::Format_RGB32);
  image.fill(palette().color(QPalette::Base));
  {
    QtDC dc(image, scale, fonts);
    paintItem(dc, index, {0, 0, place.width(), place.height()}, selected);
  }
  image.setDevicePixelRatio(scale);
  painter.drawImage(place.topLeft(), image);
}

void PaintedCombo::paintEvent(QPaintEvent* /*event*/) {
  QStylePainter painter(this);
  QStyleOptionComboBox option;
  initStyleOption(&option);
  painter.drawComplexControl(QStyle::CC_ComboBox, option);
  if (currentIndex() < 0) return;
  const QRect place =
      style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
  PaintOn(painter, place, currentIndex(), hasFocus());
}

ComboWidget::ComboWidget(const DialogControl& control, QWidget* parent, OnClick onClick)
    : combo(new PaintedCombo(control, parent)) {
  QObject::connect(combo, &QComboBox::activated, combo, std::move(onClick));
}

}  // namespace morvane
