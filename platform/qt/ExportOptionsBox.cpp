#include "platform/qt/ExportOptionsBox.h"

#include <cmath>

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSpinBox>

#include "drawing/qt/QtText.h"
#include "platform/Wording.h"

namespace morvane {

namespace {

constexpr int kPercent = 100;
constexpr int kPercentStep = 10;
/// The margin that is offered where none was chosen yet.
constexpr int kUsualMargin = 10;

QSpinBox* AddNumber(QHBoxLayout& row, const char* label, int least, int most) {
  auto* box = new QSpinBox(row.parentWidget());
  box->setRange(least, most);
  auto* text = new QLabel(ToQString(Worded(label)), row.parentWidget());
  text->setBuddy(box);
  row.addWidget(text);
  row.addWidget(box);
  return box;
}

QCheckBox* AddCheck(QHBoxLayout& row, const char* label, bool checked) {
  auto* box = new QCheckBox(ToQString(Worded(label)), row.parentWidget());
  box->setChecked(checked);
  row.addWidget(box);
  return box;
}

}  // namespace

ExportOptionsBox::ExportOptionsBox(const PictureOptions& options, bool hasSelection,
                                   QWidget* parent)
    : QWidget(parent) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins({});
  scale = AddNumber(*row, "Sc&ale:", std::lround(PictureOptions::kLeastScale * kPercent),
                    std::lround(PictureOptions::kMostScale * kPercent));
  scale->setSuffix(QStringLiteral(" %"));
  scale->setSingleStep(kPercentStep);
  scale->setValue(static_cast<int>(std::lround(options.scale * kPercent)));
  transparent = AddCheck(*row, "&Transparent", options.transparent);
  trimmed = AddCheck(*row, "&Crop to drawing", options.margin.has_value());
  margin = AddNumber(*row, "&Margin:", 0, PictureOptions::kMostMargin);
  margin->setValue(options.margin.value_or(kUsualMargin));
  margin->setEnabled(trimmed->isChecked());
  connect(trimmed, &QCheckBox::toggled, margin, &QWidget::setEnabled);
  selectionOnly = AddCheck(*row, "Selection &only", false);
  selectionOnly->setVisible(hasSelection);
  row->addStretch();
}

void ExportOptionsBox::OfferTransparency(bool offered) { transparent->setEnabled(offered); }

PictureOptions ExportOptionsBox::Options() const {
  PictureOptions options;
  options.scale = 1.0 * scale->value() / kPercent;
  options.transparent = transparent->isChecked();
  options.selectionOnly = selectionOnly->isChecked() && !selectionOnly->isHidden();
  if (trimmed->isChecked()) options.margin = margin->value();
  return options;
}

}  // namespace morvane
