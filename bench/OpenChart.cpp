#include "bench/OpenChart.h"

#include <memory>
#include <sstream>

#include <QApplication>
#include <QMouseEvent>

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
  const auto mouse = [&](QEvent::Type type, QPoint at, Qt::MouseButtons buttons) {
    const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    return new QMouseEvent(type, at, window.viewport()->mapToGlobal(at), button, buttons,
                           Qt::NoModifier);
  };
  const auto post = [&](QMouseEvent* event) { QApplication::postEvent(window.viewport(), event); };
  constexpr int stride = 6;
  constexpr int reach = 40;
  for (int i = 0; i < steps; ++i) {
    const int distance = i % reach * stride;
    post(mouse(QEvent::MouseMove, start + QPoint(distance, distance), Qt::LeftButton));
  }
  post(mouse(QEvent::MouseMove, start, Qt::LeftButton));
  post(mouse(QEvent::MouseButtonRelease, start, Qt::NoButton));
  // The gesture takes its further messages from the queue while the press is handled.
  const std::unique_ptr<QMouseEvent> press(mouse(QEvent::MouseButtonPress, start, Qt::LeftButton));
  QApplication::sendEvent(window.viewport(), press.get());
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
