#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/Command.h"

namespace morvane {

class DocumentManager;
class CDocument;
class ChartComparison;

/// The main window as its commands know it.
class FrameActions {
 public:
  enum class Arrangement { Cascade, Tile, Icons };

  virtual ~FrameActions() = default;
  virtual DocumentManager& Manager() = 0;
  /// The files of the recent file list, newest first.
  virtual const std::vector<std::string>& RecentPaths() const = 0;
  /// The document of the chart that commands go to; null without one.
  virtual CDocument* ActiveDocument() const = 0;
  /// Closes the window of that chart, if the user agrees.
  virtual void CloseActive() = 0;
  /// Opens a window on what differs between a file, the older version, and the chart of a document.
  virtual void ShowComparison(CDocument& document, const std::string& file,
                              std::unique_ptr<ChartComparison> comparison) = 0;
  /// A bar or a pane, which is named by the command that shows and hides it.
  virtual bool IsPartShown(unsigned id) const = 0;
  virtual void ShowPart(unsigned id, bool show) = 0;
  /// Moves the keyboard by so many panes: the chart, its object browser, the chart browser.
  virtual void FocusPane(int step) = 0;
  /// Whether a command of the menu "Run" can be given, and what it does.
  virtual CommandState RunStateOf(unsigned id) const = 0;
  virtual void ExecuteRun(unsigned id) = 0;
  virtual void ArrangeWindows(Arrangement arrangement) = 0;
  virtual void ShowAbout() = 0;
  /// Closes the main window, if the user agrees.
  virtual void Exit() = 0;
};

}  // namespace morvane
