#include "fuzz/qt/DamagedCharts.h"

#include <utility>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QMouseEvent>

#include "fuzz/ChartFaults.h"
#include "fuzz/FuzzTarget.h"
#include "persistence/CMorvaneDoc.h"
#include "platform/Files.h"
#include "platform/qt/QtTreeCtrl.h"
#include "platform/qt/QtView.h"
#include "resources/CommandIds.h"
#include "shell/qt/CChildFrame.h"
#include "shell/qt/CMainFrame.h"
#include "shell/qt/ObjectBrowserPane.h"
#include "surface/LayoutMgr.h"

namespace morvane {

namespace {

constexpr QSize kFrame(1000, 760);
constexpr QSize kSmaller(31, 17);
/// Larger charts are opened and painted, but not cut and undone, so that no input takes long.
constexpr std::size_t kMostText = 200'000;

}  // namespace

DamagedCharts::DamagedCharts(std::string good, std::string folder)
    : folder(std::move(folder)),
      frame(std::make_unique<CMainFrame>(
          CMainFrame::Factories{[] { return std::make_unique<CMorvaneDoc>(); },
                                [] { return std::make_unique<LayoutMgr>(); }})) {
  pump.setInterval(0);
  QObject::connect(&pump, &QTimer::timeout, frame.get(), [this] { Tick(); });
  pump.start();
  frame->resize(kFrame);
  frame->show();
  const std::string path = this->folder + "/good.mrv";
  Require(WriteWholeFile(path, good).Ok(), "the chart cannot be written");
  Require(frame->Manager().OpenDocumentFile(path) != nullptr, "the good chart is refused");
  QApplication::processEvents();
  // It has a history too, of a step that was undone.
  LayoutMgr& chart = *ViewAt(0);
  chart.OnCommand(ID_EDIT_SELECT_ALL);
  chart.OnCommand(ID_EDIT_CUT);
  chart.OnCommand(ID_EDIT_UNDO);
  goodText = chart.ModelText();
}

DamagedCharts::~DamagedCharts() {
  pump.stop();
  frame->Manager().CloseAllDocuments();
}

LayoutMgr* DamagedCharts::ViewAt(std::size_t index) const {
  const auto& documents = frame->Manager().Documents();
  return index < documents.size() ? dynamic_cast<LayoutMgr*>(documents[index]->GetView()) : nullptr;
}

void DamagedCharts::Open(const std::string& bytes) {
  const std::string path = folder + "/damaged.mrv";
  Require(WriteWholeFile(path, bytes).Ok(), "the chart cannot be written");
  const int boxesBefore = boxes;
  CDocument* document = frame->Manager().OpenDocumentFile(path);
  if (document == nullptr) {
    ++refused;
    Require(boxes > boxesBefore, "a chart is refused without a word");
    Require(frame->Manager().Documents().size() == 1, "a chart that is refused stays open");
  } else {
    ++opened;
    Use(*ViewAt(1));
    frame->Manager().CloseDocument(*document);
  }
  QApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  CheckGood();
}

void DamagedCharts::Use(LayoutMgr& chart) {
  QApplication::processEvents();
  chart.UpdateWindow();
  Hover(0.3);
  const std::string text = chart.ModelText();
  if (text.size() > kMostText) return;
  chart.OnCommand(ID_EDIT_SELECT_ALL);
  chart.UpdateWindow();
  chart.OnCommand(ID_EDIT_CUT);
  QApplication::processEvents();
  chart.OnCommand(ID_EDIT_UNDO);
  Require(chart.ModelText() == text, "an undo shows another text");
  QApplication::processEvents();
  Require(HistoryFault(chart));
}

/// The chart that was open before has its text, and goes back and forth in its history.
void DamagedCharts::CheckGood() {
  LayoutMgr& chart = *ViewAt(0);
  Require(chart.ModelText() == goodText, "a chart that was open has another text");
  if ((opened + refused) % 8 != 0) return;
  Require(chart.OnCommand(ID_EDIT_REDO), "a chart that was open has lost its history");
  QApplication::processEvents();
  Require(chart.OnCommand(ID_EDIT_UNDO), "a chart that was open has lost its history");
  Require(chart.ModelText() == goodText, "a chart that was open has another text");
}

void DamagedCharts::Hover(double part) {
  for (QtView* view : frame->findChildren<QtView*>()) {
    QWidget& target = *view->viewport();
    const QPoint p(static_cast<int>(target.width() * part),
                   static_cast<int>(target.height() * part));
    QMouseEvent move(QEvent::MouseMove, p, target.mapToGlobal(p), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(&target, &move);
    QCursor::setPos(target.mapToGlobal(p));
  }
}

void DamagedCharts::Tick() {
  auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  if (box == nullptr || !box->isVisible()) {
    step = 0;
    return;
  }
  switch (step++) {
    case 0: frame->resize(frame->size() - kSmaller); break;
    case 1:
      for (QtView* view : frame->findChildren<QtView*>()) view->InvalidateAll();
      frame->repaint();
      break;
    case 2: Hover(0.5); break;
    case 3:
      // A key that the desktop sends to the window behind the box.
      for (const unsigned id : {ID_EDIT_UNDO, ID_FILE_NEW, ID_FILE_CLOSE}) {
        Require(!frame->RunCommand(id), "a command reaches a chart behind a box");
      }
      frame->close();
      Hover(0.7);
      break;
    case 4: frame->resize(frame->size() + kSmaller); break;
    default:
      ++boxes;
      step = 0;
      box->buttons().constFirst()->click();
  }
}

}  // namespace morvane
