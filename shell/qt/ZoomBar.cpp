#include "shell/qt/ZoomBar.h"

#include <cmath>

#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSlider>

#include "drawing/qt/QtText.h"
#include "model/ChartView.h"
#include "resources/CommandIds.h"
#include "resources/Texts.h"
#include "shell/qt/CommandTarget.h"

namespace morvane {

namespace {

constexpr int kWidth = 110;

QString PerCent(int zoom) {
  return QStringLiteral("%1 %").arg(std::lround(100.0 * zoom / ChartView::kNormalZoom));
}

/// The zoom of the active chart; 0 without one.
int ZoomOf(CommandTarget& target) {
  for (unsigned zoom = ChartView::kLeastShownZoom; zoom <= ChartView::kMaxZoom; ++zoom) {
    if (target.StateOf(ID_ZOOM_LEVEL + zoom).checked) return static_cast<int>(zoom);
  }
  return 0;
}

}  // namespace

ZoomBar::ZoomBar(CommandTarget& target, QWidget* parent)
    : QWidget(parent),
      target(target),
      slider(new QSlider(Qt::Horizontal, this)),
      number(new QLabel(this)) {
  const QString name = ToQString(Translate("Zoom"));
  slider->setRange(ChartView::kMinZoom, ChartView::kMaxZoom);
  slider->setPageStep(1);
  slider->setFixedWidth(kWidth);
  // The keys stay with the chart.
  slider->setFocusPolicy(Qt::NoFocus);
  slider->setAccessibleName(name);
  slider->setToolTip(name);
  number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  number->setMinimumWidth(number->fontMetrics().horizontalAdvance(PerCent(ChartView::kMaxZoom)));
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(slider);
  row->addWidget(number);
  connect(slider, &QSlider::valueChanged, this, [this](int zoom) {
    this->target.RunCommand(ID_ZOOM_LEVEL + static_cast<unsigned>(zoom));
    Refresh();
  });
  Refresh();
}

void ZoomBar::Refresh() {
  const int zoom = ZoomOf(target);
  const QSignalBlocker quiet(slider);
  slider->setEnabled(zoom != 0);
  if (zoom != 0) slider->setValue(zoom);
  number->setText(zoom != 0 ? PerCent(zoom) : QString());
}

}  // namespace morvane
