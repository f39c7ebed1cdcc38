#pragma once

#include <functional>
#include <string>

#include <QDockWidget>

#include "shell/CDirTreeCtrl.h"

namespace morvane {

class QtTreeCtrl;

/// The pane of the main window that shows the folders of the machine with the charts in them.
class ChartBrowserPane : public QDockWidget {
  Q_OBJECT

 public:
  /// `open` gets the path of what is double clicked.
  ChartBrowserPane(std::function<void(const std::string& path)> open, QWidget* parent);
  ~ChartBrowserPane() override;

  CDirTreeCtrl& Tree() { return tree; }
  QtTreeCtrl& Window() { return *window; }
  /// Goes to the folder of the last run, or at first to an example.
  void SelectStoredFolder();
  /// Keeps the selected item for the next run; with no selection what was kept stays.
  void StoreFolder() const;

 private:
  CDirTreeCtrl tree;
  QtTreeCtrl* window;
};

}  // namespace morvane
