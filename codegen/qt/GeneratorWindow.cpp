#include "codegen/qt/GeneratorWindow.h"

#include <QApplication>
#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QStyle>

#include "codegen/qt/ToolOutput.h"
#include "drawing/qt/QtText.h"
#include "platform/Wording.h"
#include "platform/qt/DialogParent.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

/// How much smaller than at first the output box can get.
constexpr int kSmallest = 3;

/// A line of text that the user can copy but not change, as wide as there is room.
QLineEdit* MakeReadOnly(const std::string& label) {
  auto* box = new QLineEdit;
  box->setReadOnly(true);
  box->setAccessibleName(ToQString(SpokenLabel(Worded(label))));
  return box;
}

/// Shows a text from its beginning; the tool tip has the whole of one that is too long.
void Show(QLineEdit& box, const std::string& text) {
  const QString shown = ToQString(text);
  if (box.text() == shown) return;
  box.setText(shown);
  box.setToolTip(shown);
  box.setCursorPosition(0);
}

}  // namespace

GeneratorWindow::GeneratorWindow(CGenerateCppDlg& dialog, QWidget* parent)
    : QDialog(parent), dialog(dialog) {
  setWindowTitle(ToQString(Worded(dialog.Caption())));
  setSizeGripEnabled(true);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(MakeFields());
  const QSize growth = MakeOutput();
  layout->addWidget(output, 1);
  layout->addWidget(MakeButtons());
  resize(minimumSizeHint() + growth);
  generate->setFocus();
  GeneratorWindow::Refresh();
  dialog.SetWindow(this);
  dialog.SetOutputBox(this);
}

GeneratorWindow::~GeneratorWindow() {
  dialog.SetOutputBox(nullptr);
  dialog.SetWindow(nullptr);
}

QString GeneratorWindow::LabelOf(int id) const {
  return ToQString(Worded(dialog.Control(id).label));
}

QWidget* GeneratorWindow::MakeFields() {
  auto* fields = new QWidget;
  auto* layout = new QFormLayout(fields);
  layout->setContentsMargins(0, 0, 0, 0);
  using Dlg = CGenerateCppDlg;
  for (const int id : {Dlg::kDesignFileId, Dlg::kOutputFolderId, Dlg::kCommandId}) {
    boxes[id] = MakeReadOnly(dialog.Control(id).label);
    layout->addRow(LabelOf(id), boxes[id]);
  }
  debug = new QCheckBox(LabelOf(Dlg::kDebugId));
  connect(debug, &QCheckBox::toggled, this,
          [this](bool on) { this->dialog.Control(CGenerateCppDlg::kDebugId).checked = on; });
  layout->addRow(debug);
  status = new QLabel;
  status->setTextFormat(Qt::PlainText);
  layout->addRow(LabelOf(Dlg::kStatusId), status);
  return fields;
}

QSize GeneratorWindow::MakeOutput() {
  const DialogControl& control = dialog.Control(CGenerateCppDlg::kOutputId);
  output = new ToolOutput;
  output->setAccessibleName(ToQString(Translate("Output of the tool")));
  connect(output, &ToolOutput::LinkFollowed, this,
          [this](const QString& line) { this->dialog.FollowLine(line.toStdString()); });
  const QFontMetrics metrics = output->fontMetrics();
  const QSize room(metrics.averageCharWidth() * control.width,
                   metrics.lineSpacing() * control.lines);
  output->setMinimumSize(room / kSmallest);
  // The frame and the scroll bar come on top of the room for the text.
  const int bar = output->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  return room + QSize(2 * bar, bar) - output->minimumSize();
}

QWidget* GeneratorWindow::MakeButtons() {
  auto* buttons = new QWidget;
  auto* layout = new QHBoxLayout(buttons);
  layout->setContentsMargins(0, 0, 0, 0);
  for (const int id :
       {int{CGenerateCppDlg::kOpenFolderId}, int{CGenerateCppDlg::kGenerateId}, int{IDCANCEL}}) {
    const DialogControl& control = dialog.Control(id);
    auto* button = new QPushButton(LabelOf(id));
    button->setAutoDefault(false);
    button->setDefault(control.isDefault);
    if (control.isDefault) generate = button;
    connect(button, &QPushButton::clicked, this, [this, id] { this->dialog.Click(id); });
    layout->addWidget(button);
    // What has nothing to do with the run stands apart.
    if (id == CGenerateCppDlg::kOpenFolderId) layout->addStretch(1);
  }
  return buttons;
}

void GeneratorWindow::Refresh() {
  const DialogControl& control = dialog.Control(CGenerateCppDlg::kDebugId);
  debug->setEnabled(control.enabled);
  debug->setChecked(control.checked);
  for (const auto& [id, box] : boxes) Show(*box, dialog.Control(id).text);
  status->setText(ToQString(dialog.Control(CGenerateCppDlg::kStatusId).text));
}

void GeneratorWindow::FocusOn(int id) {
  if (id == CGenerateCppDlg::kOutputId) output->setFocus();
}

void GeneratorWindow::Clear() { output->Empty(); }

void GeneratorWindow::Append(std::string_view text) { output->Add(text); }

void GeneratorWindow::MakeRoomFor(const RECT& place) {
  const QRect wanted(QPoint(place.left, place.top), QPoint(place.right, place.bottom));
  const QRect present = frameGeometry();
  if (!present.intersects(wanted) || screen() == nullptr) return;
  const auto covered = [&wanted](const QRect& window) {
    const QRect both = window.intersected(wanted);
    return std::int64_t{both.width()} * both.height();
  };
  QRect best = present;
  const QRect all = screen()->availableGeometry();
  for (const Qt::Corner corner :
       {Qt::BottomRightCorner, Qt::TopRightCorner, Qt::BottomLeftCorner, Qt::TopLeftCorner}) {
    QRect window = present;
    const bool right = corner == Qt::BottomRightCorner || corner == Qt::TopRightCorner;
    const bool bottom = corner == Qt::BottomRightCorner || corner == Qt::BottomLeftCorner;
    right ? window.moveRight(all.right()) : window.moveLeft(all.left());
    bottom ? window.moveBottom(all.bottom()) : window.moveTop(all.top());
    if (covered(window) < covered(best)) best = window;
  }
  move(best.topLeft());
}

void GeneratorWindow::reject() { dialog.Click(IDCANCEL); }

void QtGeneratorHost::Run(CGenerateCppDlg& dialog) {
  {
    GeneratorWindow window(dialog, DialogParent());
    window.exec();
  }
  // The end of the tool takes a moment, in which nothing is painted: what the window covered comes
  // back first.
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace morvane
