#pragma once

#include <QDockWidget>

#include "shell/CObjectTree.h"

namespace morvane {

class LayoutMgr;
class QtTreeCtrl;

/// The pane of a chart's window that shows the chart as a tree.
class ObjectBrowserPane : public QDockWidget {
  Q_OBJECT

 public:
  /// Follows the chart from now on; null for a view that has none.
  ObjectBrowserPane(LayoutMgr* chart, QWidget* parent);
  ~ObjectBrowserPane() override;

  CObjectTree& Tree() { return tree; }
  QtTreeCtrl& Window() { return *window; }
  /// Lets the chart go.
  void Detach();

 private:
  CObjectTree tree;
  QtTreeCtrl* window;
  LayoutMgr* chart;
};

}  // namespace morvane
