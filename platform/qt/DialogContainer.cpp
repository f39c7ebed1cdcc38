#include "platform/qt/DialogContainer.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSpacerItem>
#include <QTabWidget>

#include "platform/qt/DialogWidget.h"

namespace morvane {

namespace {

using Kind = DialogControl::Kind;

constexpr int kLabelColumn = 0;
constexpr int kFieldColumn = 1;
constexpr int kBothColumns = 2;

QLabel* MakeLabel(const DialogControl& control, QWidget* parent, QWidget* focus) {
  const bool labelled = control.kind == Kind::Edit || control.kind == Kind::MultiEdit ||
                        control.kind == Kind::Combo || control.kind == Kind::List ||
                        control.kind == Kind::Row;
  if (!labelled || control.label.empty()) return nullptr;
  auto* label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setText(ShownLabel(control));
  label->setBuddy(focus);
  return label;
}

}  // namespace

DialogContainer::DialogContainer(const DialogControl& control, QWidget* parent) {
  switch (control.kind) {
    case Kind::Row:
      widget = new QWidget(parent);
      row = new QHBoxLayout(widget);
      row->setContentsMargins(0, 0, 0, 0);
      break;
    case Kind::Tabs: widget = tabs = new QTabWidget(parent); break;
    case Kind::Group:
      widget = new QGroupBox(ShownLabel(control), parent);
      MakeColumn(false);
      break;
    default: widget = new QWidget(parent); MakeColumn(control.kind == Kind::Column);
  }
}

DialogContainer::DialogContainer(QWidget* window) : widget(window) { MakeColumn(false); }

void DialogContainer::MakeColumn(bool inner) {
  column = new QGridLayout(widget);
  column->setColumnStretch(kFieldColumn, 1);
  if (inner) column->setContentsMargins(0, 0, 0, 0);
}

void DialogContainer::Add(const DialogControl& control, QWidget* child, QWidget* focus,
                          Growth growth) {
  hasTall |= growth.tall;
  hasWide |= growth.wide;
  if (tabs != nullptr) {
    tabs->addTab(child, ShownLabel(control));
    return;
  }
  QLabel* label = MakeLabel(control, widget, focus);
  if (row != nullptr) {
    AddToRow(control, child, label, growth);
  } else {
    AddToColumn(control, child, label, growth);
  }
}

void DialogContainer::AddToColumn(const DialogControl& control, QWidget* child, QLabel* label,
                                  Growth growth) {
  if (label != nullptr && !growth.tall) {
    column->addWidget(label, lines, kLabelColumn);
    column->addWidget(child, lines++, kFieldColumn);
    return;
  }
  if (label != nullptr) column->addWidget(label, lines++, kLabelColumn, 1, kBothColumns);
  column->setRowStretch(lines, growth.tall ? 1 : 0);
  const bool own = control.kind == Kind::CheckBox;
  column->addWidget(child, lines++, kLabelColumn, 1, kBothColumns,
                    own ? Qt::AlignLeft | Qt::AlignVCenter : Qt::Alignment());
}

void DialogContainer::AddToRow(const DialogControl& control, QWidget* child, QLabel* label,
                               Growth growth) {
  // Buttons stand at the right.
  if (control.kind == Kind::Button && !hasButton && !hasWide) row->addStretch(1);
  hasButton |= control.kind == Kind::Button;
  if (label != nullptr) row->addWidget(label);
  row->addWidget(child, growth.wide ? 1 : 0);
}

void DialogContainer::SetLeastWidth(int pixels) {
  column->addItem(new QSpacerItem(pixels, 0), 0, kLabelColumn, 1, kBothColumns);
}

void DialogContainer::Finish() {
  if (column != nullptr && !hasTall) column->setRowStretch(lines, 1);
  if (row != nullptr && !hasWide && !hasButton) row->addStretch(1);
}

}  // namespace morvane
