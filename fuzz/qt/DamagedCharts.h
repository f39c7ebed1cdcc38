#pragma once

#include <memory>
#include <string>

#include <QTimer>

namespace morvane {

class CMainFrame;
class LayoutMgr;

/// Opens damaged charts one after another in one main window, beside a chart that is open all the
/// time. The message boxes are real: each is answered after its loop has painted the windows,
/// resized them and moved the mouse over them.
class DamagedCharts {
 public:
  /// `good` is the text of the chart that stays open; `folder` is where the files are written.
  DamagedCharts(std::string good, std::string folder);
  ~DamagedCharts();
  DamagedCharts(const DamagedCharts&) = delete;
  DamagedCharts& operator=(const DamagedCharts&) = delete;

  /// Opens a file with these bytes and closes it again. Ends the process where a chart is unsound.
  void Open(const std::string& bytes);

  int Opened() const { return opened; }
  int Refused() const { return refused; }
  int Boxes() const { return boxes; }

 private:
  LayoutMgr* ViewAt(std::size_t index) const;
  void Use(LayoutMgr& chart);
  void CheckGood();
  /// What goes on while a box waits, one thing at each tick.
  void Tick();
  void Hover(double part);

  std::string folder;
  std::unique_ptr<CMainFrame> frame;
  std::string goodText;
  QTimer pump;
  int step = 0;
  int opened = 0;
  int refused = 0;
  int boxes = 0;
};

}  // namespace morvane
