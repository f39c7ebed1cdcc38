#pragma once

#include <string>

#include "platform/qt/QtTreeCtrl.h"
#include "platform/qt/QtView.h"
#include "shell/CObjectTree.h"
#include "surface/LayoutMgr.h"

namespace morvane {

/// A chart in a window of its own, read and placed, with its object browser in another one.
class OpenChart {
 public:
  static constexpr SIZE kWindow{1200, 800};  ///< device pixels

  explicit OpenChart(const std::string& text);
  ~OpenChart();

  LayoutMgr& View() { return view; }
  /// Paints all of the window.
  void PaintAll();
  /// Lets the browser's window look at what has changed.
  void ShowTree() { treeWindow.Sync(); }
  /// Selects the first state and drags it over `steps` positions and back to where it was.
  void DragFirstState(int steps);

  /// What of a chart such a window shows at normal size, model units.
  static RECT VisibleRect();
  static void Read(const std::string& text, LayoutMgr& into);

 private:
  LayoutMgr view;
  QtView window;
  CObjectTree tree;
  QtTreeCtrl treeWindow;
};

}  // namespace morvane
