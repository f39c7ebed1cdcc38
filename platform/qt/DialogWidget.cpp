#include "platform/qt/DialogWidget.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

#include "drawing/qt/QtText.h"
#include "platform/Wording.h"
#include "platform/qt/CodeWidget.h"
#include "platform/qt/LineBox.h"
#include "platform/qt/LinesBox.h"
#include "platform/qt/PaintedCombo.h"
#include "platform/qt/RowList.h"
#include "platform/qt/TextCombo.h"

namespace morvane {

namespace {

class CheckWidget : public DialogWidget {
 public:
  CheckWidget(const DialogControl& control, QWidget* parent, const OnClick& onClick)
      : box(new QCheckBox(ShownLabel(control), parent)) {
    QObject::connect(box, &QCheckBox::clicked, box, onClick);
  }
  QWidget* Widget() override { return box; }
  void Take(DialogControl& control) override { control.checked = box->isChecked(); }
  void Show(const DialogControl& control) override { box->setChecked(control.checked); }

 private:
  QCheckBox* box;
};

class ButtonWidget : public DialogWidget {
 public:
  ButtonWidget(const DialogControl& control, QWidget* parent, const OnClick& onClick)
      : button(new QPushButton(ShownLabel(control), parent)) {
    button->setDefault(control.isDefault);
    QObject::connect(button, &QPushButton::clicked, button, onClick);
  }
  QWidget* Widget() override { return button; }
  void Take(DialogControl&) override {}
  void Show(const DialogControl&) override {}

 private:
  QPushButton* button;
};

/// A text that comes and goes, with room for two lines.
class TextWidget : public DialogWidget {
 public:
  explicit TextWidget(QWidget* parent) : label(new QLabel(parent)) {
    constexpr int lines = 2;
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setMinimumHeight(label->fontMetrics().lineSpacing() * lines);
  }
  QWidget* Widget() override { return label; }
  void Take(DialogControl&) override {}
  void Show(const DialogControl& control) override {
    label->setText(ToQString(control.text));
    // Who listens instead of looking hears it.
    label->setAccessibleName(label->text());
  }

 private:
  QLabel* label;
};

}  // namespace

QString ShownLabel(const DialogControl& control) { return ToQString(Worded(control.label)); }

std::unique_ptr<DialogWidget> DialogWidget::Make(const DialogControl& control, QWidget* parent,
                                                 OnClick onClick) {
  using Kind = DialogControl::Kind;
  switch (control.kind) {
    case Kind::Edit: return std::make_unique<LineBox>(control, parent);
    case Kind::MultiEdit:
      if (control.code) return std::make_unique<CodeWidget>(control, parent);
      return std::make_unique<LinesBox>(control, parent);
    case Kind::CheckBox: return std::make_unique<CheckWidget>(control, parent, onClick);
    case Kind::Combo:
      if (!control.paintItem) return std::make_unique<TextCombo>(control, parent, onClick);
      return std::make_unique<ComboWidget>(control, parent, std::move(onClick));
    case Kind::List: return std::make_unique<RowList>(control, parent, std::move(onClick));
    case Kind::Text: return std::make_unique<TextWidget>(parent);
    default: return std::make_unique<ButtonWidget>(control, parent, onClick);
  }
}

}  // namespace morvane
