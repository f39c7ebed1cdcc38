#include "bench/OpenChart.h"

#include <sstream>

#include <QApplication>
#include <QMouseEvent>
#include <QTimer>

#include "model/ModelMgr.h"
#include "model/ModelStream.h"
#include "model/Shape.h"

namespace morvane {

namespace {

constexpr int kTreeWidth = 150;

}  // namespace

OpenChart::OpenChart(const std::string& text) : window(view), treeWindow(tree, kTreeWidth) {
  view.SetObjectTree(&tree);
  treeWindow.resize(kTreeWidth, kWindow.cy);
  treeWindow.show();
  Read(text, view);
  window.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  window.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  window.setFrameShape(QFrame::NoFrame);
  window.resize(kWindow.cx, kWindow.cy);
  window.show();
  view.OnInitialUpdate();
  QApplication::processEvents();
}

OpenChart::~OpenChart() {
  view.SetObjectTree(nullptr);
  window.Detach();
}

void OpenChart::PaintAll() {
  view.Invalidate();
  view.UpdateWindow();
}

void OpenChart::DragFirstState(int steps) {
  Shape* state = view.GetModel().Objects().front();
  view.GetModel().SelectOnly(state);
  const RECT box = view.ToClient(state->GetBounds());
  const QPoint start((box.left + box.right) / 2, (box.top + box.bottom) / 2);
  const auto send = [&](QEvent::Type type, int distance) {
    const QPoint at = start + QPoint(distance, distance);
    const bool moves = type == QEvent::MouseMove;
    QMouseEvent event(
        type, at, window.viewport()->mapToGlobal(at), moves ? Qt::NoButton : Qt::LeftButton,
        type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.viewport(), &event);
  };
  constexpr int stride = 6;
  constexpr int reach = 40;
  // The gesture waits for its messages while the press is handled; each step is shown before the
  // next one comes.
  int step = 0;
  QTimer hand;
  QObject::connect(&hand, &QTimer::timeout, &window, [&] {
    if (step < steps) send(QEvent::MouseMove, step % reach * stride);
    if (step == steps) send(QEvent::MouseMove, 0);
    if (step > steps) send(QEvent::MouseButtonRelease, 0);
    ++step;
  });
  hand.start(0);
  send(QEvent::MouseButtonPress, 0);
}

RECT OpenChart::VisibleRect() {
  return {0, 0, kWindow.cx / LayoutMgr::kNormalZoom, kWindow.cy / LayoutMgr::kNormalZoom};
}

void OpenChart::Read(const std::string& text, LayoutMgr& into) {
  std::istringstream in(text);
  ModelStream stream(in);
  stream >> into;
}

}  // namespace morvane
