#include "fuzz/qt/AnyHand.h"

#include <array>
#include <cstdlib>
#include <vector>

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenuBar>
#include <QMouseEvent>

#include "fuzz/ChartFaults.h"
#include "fuzz/FuzzTarget.h"
#include "persistence/CMorvaneDoc.h"
#include "platform/Files.h"
#include "platform/qt/QtTreeCtrl.h"
#include "platform/qt/QtView.h"
#include "resources/CommandIds.h"
#include "shell/AllCommands.h"
#include "shell/qt/CChildFrame.h"
#include "shell/qt/CMainFrame.h"
#include "shell/qt/ChartBrowserPane.h"
#include "shell/qt/ObjectBrowserPane.h"
#include "surface/LayoutMgr.h"

namespace morvane {

namespace {

/// A chart grows no further by pasting and no more charts are opened, so that no input takes long.
constexpr std::size_t kMostText = 40000;
constexpr std::size_t kMostCharts = 4;
/// A byte reaches over the window in steps of so many pixels.
constexpr int kStep = 3;
constexpr int kTextChecks = 16;
constexpr QSize kFrame(1000, 760);

struct Key {
  int key;
  const char* text;
};
constexpr std::array kKeys{
    Key{Qt::Key_Escape, ""}, Key{Qt::Key_Delete, ""},   Key{Qt::Key_Return, "\r"},
    Key{Qt::Key_Tab, "\t"},  Key{Qt::Key_Left, ""},     Key{Qt::Key_Right, ""},
    Key{Qt::Key_Up, ""},     Key{Qt::Key_Down, ""},     Key{Qt::Key_Home, ""},
    Key{Qt::Key_End, ""},    Key{Qt::Key_PageUp, ""},   Key{Qt::Key_PageDown, ""},
    Key{Qt::Key_Shift, ""},  Key{Qt::Key_A, "a"},       Key{Qt::Key_Z, "z"},
    Key{Qt::Key_Space, " "}, Key{Qt::Key_Backspace, ""}};

/// A smooth edge that is painted in two pieces may come out a little lighter or darker.
bool IsSame(const QImage& a, const QImage& b) {
  constexpr int shade = 32;
  if (a.size() != b.size()) return false;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      const QRgb p = a.pixel(x, y);
      const QRgb q = b.pixel(x, y);
      if (std::abs(qRed(p) - qRed(q)) > shade || std::abs(qGreen(p) - qGreen(q)) > shade ||
          std::abs(qBlue(p) - qBlue(q)) > shade) {
        return false;
      }
    }
  }
  return true;
}

}  // namespace

/// All folders there are: one drive with one folder and in it the chart.
class AnyHand::OneFolder : public Folders {
 public:
  explicit OneFolder(const std::string& path)
      : folder(FolderOf(path)), name(FileNameOf(path)), former(Service<Folders>::Set(this)) {}
  ~OneFolder() override { Service<Folders>::Set(former); }

  std::vector<std::string> Drives() override { return {folder}; }
  void Visit(const std::string& path, const Visitor& visitor) override {
    if (path != folder) return;
    if (visitor({name, false, false})) visitor({"empty", true, false});
  }
  bool IsFolder(const std::string& path) override { return path == folder; }

 private:
  std::string folder;
  std::string name;
  Folders* former;
};

class AnyHand::NoProcesses : public Processes {
 public:
  NoProcesses() : former(Service<Processes>::Set(this)) {}
  ~NoProcesses() override { Service<Processes>::Set(former); }
  std::unique_ptr<Process> Start(const std::string&, bool) override { return nullptr; }
  void Sleep(std::chrono::milliseconds) override {}

 private:
  Processes* former;
};

AnyHand::AnyHand(ByteSource& source, const std::string& path)
    : source(source),
      user(source),
      folder(std::make_unique<OneFolder>(path)),
      processes(std::make_unique<NoProcesses>()) {
  user.path = path;
  if (source.Flag()) Service<DialogHost>::Set(&realDialogs);
  frame = std::make_unique<CMainFrame>(
      CMainFrame::Factories{[] { return std::make_unique<CMorvaneDoc>(); },
                            [] { return std::make_unique<LayoutMgr>(); }});
  frame->resize(kFrame);
  frame->show();
  QApplication::setActiveWindow(frame.get());
  frame->Manager().OpenDocumentFile(path);
  // Whatever waits for the next event gets it.
  pump.setInterval(0);
  QObject::connect(&pump, &QTimer::timeout, frame.get(), [this] { GoOn(); });
  pump.start();
  Settle();
}

AnyHand::~AnyHand() {
  pump.stop();
  frame->Manager().CloseAllDocuments();
  frame.reset();
}

void AnyHand::DoEverything() {
  while (!source.IsEmpty()) {
    DoAnything();
    Settle();
    CheckCharts();
  }
  EndWaiting();
  Settle();
  CheckCharts();
  CheckPictures();
  CheckHistories();
}

void AnyHand::Settle() {
  QApplication::processEvents();
  QApplication::processEvents();
}

bool AnyHand::IsAnyWaiting() const {
  const auto windows = frame->findChildren<QtView*>();
  return QApplication::activeModalWidget() != nullptr ||
         QApplication::activePopupWidget() != nullptr ||
         std::any_of(windows.begin(), windows.end(),
                     [](const QtView* window) { return window->IsWaiting(); });
}

void AnyHand::GoOn() {
  if (!IsAnyWaiting()) return;
  if (source.IsEmpty()) {
    EndWaiting();
  } else {
    DoAnything();
  }
}

void AnyHand::EndWaiting() {
  if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
  if (QWidget* dialog = QApplication::activeModalWidget()) dialog->close();
  for (QtView* window : frame->findChildren<QtView*>()) window->EndLoop();
}

CChildFrame* AnyHand::Child() const { return frame->ActiveChild(); }

QPoint AnyHand::AnyPoint(const QWidget& target) {
  const int x = source.Byte() * kStep;
  const int y = source.Byte() * kStep;
  return {x % std::max(target.width() + kStep, 1), y % std::max(target.height() + kStep, 1)};
}

Qt::KeyboardModifiers AnyHand::AnyModifiers() {
  const int pick = source.Byte();
  Qt::KeyboardModifiers modifiers;
  if (pick % 8 == 1) modifiers |= Qt::ShiftModifier;
  if (pick % 8 == 2) modifiers |= Qt::ControlModifier;
  return modifiers;
}

void AnyHand::DoAnything() {
  ++moves;
  QWidget* modal = QApplication::activeModalWidget();
  CChildFrame* child = Child();
  if (modal != nullptr) {
    source.Flag() ? PressKey() : UseMouse(*modal);
    return;
  }
  const int pick = source.Below(24);
  if (pick < 4) {
    RunCommand();
  } else if (pick < 6) {
    PressKey();
  } else if (pick == 6) {
    ChangeWindow();
  } else if (child == nullptr) {
    frame->RunCommand(ID_FILE_NEW);
  } else if (pick < 9) {
    PlaceTool();
  } else if (pick == 9) {
    UseWheel(*child->Window()->viewport());
  } else if (pick == 10) {
    UseMouse(*child->ObjectBrowser().Window().viewport());
  } else if (pick == 11) {
    UseMouse(*frame->findChild<ChartBrowserPane*>()->Window().viewport());
  } else {
    UseMouse(*child->Window()->viewport());
  }
}

void AnyHand::SendMouse(QWidget& target, QEvent::Type type, QPoint p) {
  const Qt::KeyboardModifiers modifiers = AnyModifiers();
  const bool isMove = type == QEvent::MouseMove;
  const Qt::MouseButton button = isMove ? Qt::NoButton : Qt::LeftButton;
  const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
  QMouseEvent event(type, p, target.mapToGlobal(p), button, held, modifiers);
  QCoreApplication::sendEvent(&target, &event);
}

void AnyHand::UseMouse(QWidget& target) {
  QPoint p = AnyPoint(target);
  QWidget* hit = &target;
  if (QWidget* below = target.childAt(p)) {
    p = below->mapFrom(&target, p);
    hit = below;
  }
  switch (source.Below(8)) {
    case 0: SendMouse(*hit, QEvent::MouseButtonPress, p); break;
    case 1: SendMouse(*hit, QEvent::MouseButtonRelease, p); break;
    case 2: SendMouse(*hit, QEvent::MouseButtonDblClick, p); break;
    case 3: {
      QContextMenuEvent event(QContextMenuEvent::Mouse, p, hit->mapToGlobal(p));
      QCoreApplication::sendEvent(hit, &event);
      break;
    }
    case 4: {
      QEvent leave(QEvent::Leave);
      QCoreApplication::sendEvent(hit, &leave);
      break;
    }
    case 5: {
      // A press that drags to the next point: what is pressed waits for the moves that follow.
      SendMouse(*hit, QEvent::MouseMove, p);
      SendMouse(*hit, QEvent::MouseButtonPress, p);
      break;
    }
    default: SendMouse(*hit, QEvent::MouseMove, p);
  }
}

void AnyHand::UseWheel(QWidget& target) {
  const QPoint p = AnyPoint(target);
  const QPoint angle{source.Byte() - 128, (source.Byte() - 128) * 2};
  QWheelEvent event(p, target.mapToGlobal(p), {}, angle, Qt::NoButton, AnyModifiers(),
                    Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&target, &event);
}

void AnyHand::PressKey() {
  const Key& key = kKeys[static_cast<std::size_t>(source.Below(static_cast<int>(kKeys.size())))];
  QWidget* target = QApplication::focusWidget();
  // A desktop keeps keys from the windows behind a dialog, also before the dialog has the focus.
  QWidget* modal = QApplication::activeModalWidget();
  if (modal != nullptr && (target == nullptr || target->window() != modal)) target = modal;
  if (target == nullptr) target = frame.get();
  const Qt::KeyboardModifiers modifiers = AnyModifiers();
  QKeyEvent press(QEvent::KeyPress, key.key, modifiers, key.text);
  QCoreApplication::sendEvent(target, &press);
}

void AnyHand::RunCommand() {
  const std::span<const Command* const> commands = AllCommands();
  const unsigned id =
      commands[static_cast<std::size_t>(source.Below(static_cast<int>(commands.size())))]->id;
  const CChildFrame* child = Child();
  if (id == ID_FILE_NEW && frame->Manager().Documents().size() >= kMostCharts) return;
  if (child != nullptr && (id == ID_EDIT_PASTE || id == ID_EDIT_COPY)) {
    auto* chart = dynamic_cast<LayoutMgr*>(child->View());
    if (chart->ModelText().size() > kMostText) return;
  }
  frame->RunCommand(id);
}

void AnyHand::PlaceTool() {
  constexpr int tools = ID_TOOL_LINE - ID_TOOL_STATE + 1;
  if (!frame->RunCommand(ID_TOOL_STATE + static_cast<unsigned>(source.Below(tools)))) return;
  frame->RunCommand(ID_TOOL_DRAG_STARTED);
  QWidget& target = *Child()->Window()->viewport();
  const QPoint p = AnyPoint(target);
  SendMouse(target, QEvent::MouseMove, p);
  SendMouse(target, QEvent::MouseButtonRelease, p);
}

void AnyHand::ChangeWindow() {
  CChildFrame* child = Child();
  switch (source.Below(8)) {
    case 0: frame->close(); break;
    case 1: frame->show(); break;
    case 2: frame->resize(QSize{300 + source.Byte() * kStep, 200 + source.Byte() * kStep}); break;
    case 3:
      if (child != nullptr) child->close();
      break;
    case 4:
      if (child != nullptr) child->showMinimized();
      break;
    case 5:
      if (child != nullptr) child->showNormal();
      break;
    case 6:
      if (child != nullptr) child->showMaximized();
      break;
    default: frame->menuBar()->setFocus();
  }
}

void AnyHand::CheckCharts() {
  for (CChildFrame* child : frame->findChildren<CChildFrame*>()) {
    if (child->Document() == nullptr) continue;
    const auto* chart = dynamic_cast<LayoutMgr*>(child->View());
    Require(ChartFault(*chart));
    Require(TreeFault(*chart, child->ObjectBrowser().Tree()));
    if (moves % kTextChecks == 0) Require(TextFault(*chart));
  }
}

void AnyHand::CheckHistories() {
  for (CChildFrame* child : frame->findChildren<CChildFrame*>()) {
    if (child->Document() == nullptr) continue;
    auto* chart = dynamic_cast<LayoutMgr*>(child->View());
    Require(TextFault(*chart));
    Require(HistoryFault(*chart));
    Require(ChartFault(*chart));
  }
}

/// What follows the pointer is gone, and all else on the screen is as a repaint shows it.
void AnyHand::CheckPictures() {
  for (CChildFrame* child : frame->findChildren<CChildFrame*>()) {
    if (child->Document() == nullptr || !child->Window()->isVisible()) continue;
    auto* chart = dynamic_cast<LayoutMgr*>(child->View());
    chart->OnKeyDown(VirtualKey::Escape, 0);
    chart->OnMouseLeave();
    Settle();
    chart->UpdateWindow();
    Require(chart->ShownFeedback().empty(), "a gesture leaves feedback behind");
    const QImage shown = child->Window()->Picture().copy();
    chart->Invalidate();
    chart->UpdateWindow();
    Require(IsSame(shown, child->Window()->Picture()), "something is left on the screen");
  }
}

}  // namespace morvane
