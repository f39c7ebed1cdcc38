#include "platform/qt/QtDialogWindow.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include <QAbstractItemView>
#include <QComboBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QScopedValueRollback>
#include <QScreen>

#include "drawing/qt/QtText.h"
#include "platform/MessageBox.h"
#include "platform/Wording.h"

namespace morvane {

namespace {

using Kind = DialogControl::Kind;

constexpr int kWholeDialog = 0;
constexpr double kScreenPart = 0.9;
/// What stands beside the caption in a title bar, in heights of a letter.
constexpr int kBarButtons = 9;
constexpr int kMostLetters = 48;

bool IsContainer(Kind kind) {
  return kind == Kind::Column || kind == Kind::Row || kind == Kind::Group || kind == Kind::Tabs ||
         kind == Kind::Page;
}

/// A box between the fixed texts around it.
QWidget* WithFixedTexts(const DialogControl& control, QWidget* box, QWidget* parent) {
  if (control.prefix.empty() && control.suffix.empty()) return box;
  auto* frame = new QWidget(parent);
  auto* layout = new QHBoxLayout(frame);
  layout->setContentsMargins(0, 0, 0, 0);
  const bool lines = control.kind == Kind::MultiEdit;
  const auto addText = [&](const std::string& text) {
    if (text.empty()) return;
    auto* label = new QLabel(ToQString(text), frame);
    label->setTextFormat(Qt::PlainText);
    if (control.code) label->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    layout->addWidget(label, 0, lines ? Qt::AlignTop : Qt::AlignVCenter);
  };
  addText(control.prefix);
  layout->addWidget(box, 1);
  addText(control.suffix);
  return frame;
}

}  // namespace

QtDialogWindow::QtDialogWindow(Dialog& dialog, QWidget* parent) : QDialog(parent), dialog(dialog) {
  MarkGrowth();
  Build();
  SetTabOrder();
  FitToScreen();
  dialog.SetWindow(this);
  QtDialogWindow::Refresh();
  if (!widgets.empty()) QtDialogWindow::FocusOn(widgets.front().id);
}

QtDialogWindow::~QtDialogWindow() { dialog.SetWindow(nullptr); }

void QtDialogWindow::MarkGrowth() {
  for (const DialogControl& control : dialog.Controls()) {
    const bool isTall = control.kind == Kind::MultiEdit || control.kind == Kind::List;
    if (!isTall && control.kind != Kind::Edit && control.kind != Kind::Text) continue;
    for (int id = control.id; id != kWholeDialog; id = dialog.Control(id).parent) {
      wide.insert(id);
      if (isTall) tall.insert(id);
    }
  }
}

DialogContainer::Growth QtDialogWindow::GrowthOf(int id) const {
  return {wide.count(id) != 0, tall.count(id) != 0};
}

void QtDialogWindow::Build() {
  containers[kWholeDialog] = std::make_unique<DialogContainer>(this);
  for (const DialogControl& control : dialog.Controls()) {
    if (IsContainer(control.kind)) {
      AddContainer(control);
    } else {
      AddWidget(control);
    }
  }
  for (const auto& [id, container] : containers) container->Finish();
}

void QtDialogWindow::AddContainer(const DialogControl& control) {
  DialogContainer& parent = *containers.at(control.parent);
  auto made = std::make_unique<DialogContainer>(control, parent.Widget());
  parent.Add(control, made->Widget(), nullptr, GrowthOf(control.id));
  containers[control.id] = std::move(made);
}

void QtDialogWindow::AddWidget(const DialogControl& control) {
  DialogContainer& parent = *containers.at(control.parent);
  const int id = control.id;
  auto made = DialogWidget::Make(control, parent.Widget(), [this, id] { OnClick(id); });
  QWidget* widget = made->Widget();
  if (control.kind != Kind::Text) {
    widget->setObjectName(QStringLiteral("control%1").arg(id));
    widget->setAccessibleName(SpokenName(control));
    widget->installEventFilter(this);
    if (auto* combo = qobject_cast<QComboBox*>(widget)) {
      combo->view()->setAccessibleName(widget->accessibleName());
    }
  }
  parent.Add(control, WithFixedTexts(control, widget, parent.Widget()), widget, GrowthOf(id));
  widgets.push_back({id, std::move(made)});
}

/// The control's own label, or else that of the group around it.
QString QtDialogWindow::SpokenName(const DialogControl& control) const {
  if (!control.spoken.empty()) return ToQString(Worded(control.spoken));
  const DialogControl* named = &control;
  while (named->label.empty() && named->parent != kWholeDialog) {
    named = &dialog.Control(named->parent);
  }
  return ToQString(named->label.empty() ? dialog.Caption() : SpokenLabel(Worded(named->label)));
}

void QtDialogWindow::SetTabOrder() {
  for (std::size_t i = 1; i < widgets.size(); ++i) {
    setTabOrder(widgets[i - 1].widget->Widget(), widgets[i].widget->Widget());
  }
}

void QtDialogWindow::FitToScreen() {
  // The title bar has to have room for the caption between its buttons, but not for any length.
  const int caption =
      fontMetrics().horizontalAdvance(ToQString(dialog.Caption()).left(kMostLetters));
  containers.at(kWholeDialog)->SetLeastWidth(caption + fontMetrics().height() * kBarButtons);
  if (tall.empty()) layout()->setSizeConstraint(QLayout::SetFixedSize);
  resize(sizeHint().boundedTo(screen()->availableSize() * kScreenPart));
}

void QtDialogWindow::Refresh() {
  setWindowTitle(ToQString(Worded(dialog.Caption())));
  for (const Entry& entry : widgets) {
    const DialogControl& control = dialog.Control(entry.id);
    entry.widget->Show(control);
    entry.widget->Widget()->setEnabled(control.enabled);
  }
}

void QtDialogWindow::OnClick(int id) {
  for (const Entry& entry : widgets) entry.widget->Take(dialog.Control(entry.id));
  dialog.Click(id);
}

void QtDialogWindow::FocusOn(int id) {
  const auto entry = std::ranges::find(widgets, id, &Entry::id);
  if (entry == widgets.end()) return;
  entry->widget->Widget()->setFocus();
  entry->widget->SelectAll();
}

/// Moves no further than it has to; where there is no room to clear the place, to the edge of the
/// screen that leaves most of it free.
void QtDialogWindow::KeepOff(const RECT& place) {
  constexpr int margin = 8;
  const QRect shown = QRect(QPoint(place.left, place.top), QPoint(place.right, place.bottom))
                          .adjusted(-margin, -margin, margin, margin);
  const QRect frame = frameGeometry();
  if (!frame.intersects(shown)) return;
  const QRect room = screen()->availableGeometry();
  const std::array corners{
      QPoint(shown.left() - frame.width(), frame.top()), QPoint(shown.right() + 1, frame.top()),
      QPoint(frame.left(), shown.top() - frame.height()), QPoint(frame.left(), shown.bottom() + 1)};
  QPoint best = frame.topLeft();
  std::pair<int, int> least{std::numeric_limits<int>::max(), 0};  // what is hidden, and how far
  for (const QPoint& corner : corners) {
    const QPoint kept(
        std::max(room.left(), std::min(corner.x(), room.right() - frame.width() + 1)),
        std::max(room.top(), std::min(corner.y(), room.bottom() - frame.height() + 1)));
    const QRect hidden = QRect(kept, frame.size()) & shown;
    const std::pair cost{hidden.width() * hidden.height(),
                         (kept - frame.topLeft()).manhattanLength()};
    if (cost >= least) continue;
    least = cost;
    best = kept;
  }
  move(best);
}

void QtDialogWindow::End() { done(QDialog::Accepted); }

void QtDialogWindow::PressDefault() {
  const auto button = std::ranges::find(dialog.Controls(), true, &DialogControl::isDefault);
  if (button != dialog.Controls().end() && button->enabled) OnClick(button->id);
}

bool QtDialogWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
  const auto& key = static_cast<const QKeyEvent&>(*event);
  if ((key.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) != Qt::ControlModifier) {
    return false;
  }
  switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: PressDefault(); return true;
    case Qt::Key_Tab: focusNextPrevChild(true); return true;
    case Qt::Key_Backtab: focusNextPrevChild(false); return true;
    default: return false;
  }
}

bool QtDialogWindow::MayDiscard() {
  const bool canTake = std::ranges::count(dialog.Controls(), int{IDOK}, &DialogControl::id) > 0;
  const auto typed = [](const Entry& entry) { return entry.widget->HasTyped(); };
  if (!canTake || std::ranges::none_of(widgets, typed)) return true;
  const QScopedValueRollback<bool> guard(asking, true);
  constexpr unsigned flags = MB_YESNO | MB_ICONEXCLAMATION | MB_DEFBUTTON2;
  return ShowMessage(Worded(kDiscardTyped), flags) == MessageAnswer::Yes;
}

void QtDialogWindow::reject() {
  if (!asking && MayDiscard()) OnClick(IDCANCEL);
}

}  // namespace morvane
