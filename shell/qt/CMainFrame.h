#pragma once

#include <functional>
#include <memory>

#include <QMainWindow>
#include <QTimer>

#include "checks/ProblemChecker.h"
#include "codegen/DialogGenerators.h"
#include "dialogs/DialogEditors.h"
#include "persistence/DocumentManager.h"
#include "shell/FrameActions.h"
#include "shell/qt/CommandTarget.h"
#include "shell/qt/ToolImage.h"

class QLabel;
class QMdiArea;

namespace morvane {

class ChartBrowserPane;
class ChartProblems;
class ProblemsPane;
class RunDesk;
class CChildFrame;
class CommandBar;
class CommandMenu;
class ZoomBar;

/// The main window: the charts' windows inside it, menus, bars and keys, and the way of a command
/// to its target.
class CMainFrame : public QMainWindow, public FrameHost, public FrameActions, public CommandTarget {
  Q_OBJECT

 public:
  /// Hears what becomes of the charts' windows.
  class Listener {
   public:
    virtual ~Listener() = default;
    /// A window came, went, was named or brought forward.
    virtual void OnWindowsChanged() = 0;
    /// The main window closes as the user wished; its charts are still there.
    virtual void OnClosing() = 0;
  };

  /// What makes the document and the view of a chart.
  struct Factories {
    std::function<std::unique_ptr<CDocument>()> makeDocument;
    std::function<std::unique_ptr<CScrollView>()> makeView;
  };

  explicit CMainFrame(Factories factories);
  ~CMainFrame() override;

  DocumentManager& Manager() override { return *manager; }
  /// Null for none; not owned.
  void SetListener(Listener* other) { listener = other; }
  /// The chart that commands go to; null without one, and while it is still being opened.
  CChildFrame* ActiveChild() const;
  /// The user is in a dialog or message of the program.
  bool IsInDialog() const;
  /// The user is in a dialog, a menu or a gesture: no chart may come or go meanwhile.
  bool IsBusy() const;
  QMdiArea& Area() { return *area; }

  CommandState StateOf(unsigned id) override;
  bool RunCommand(unsigned id) override;
  const std::vector<std::string>& RecentPaths() const override;

  CDocument* ActiveDocument() const override;
  void CloseActive() override;
  void ShowComparison(CDocument& document, const std::string& file,
                      std::unique_ptr<ChartComparison> comparison) override;
  bool IsPartShown(unsigned id) const override;
  void ShowPart(unsigned id, bool show) override;
  void FocusPane(int step) override;
  CommandState RunStateOf(unsigned id) const override;
  void ExecuteRun(unsigned id) override;
  void ArrangeWindows(Arrangement arrangement) override;
  void ShowAbout() override;
  void Exit() override { close(); }

  void CreateFrame(CDocument& document) override;
  void ShowFrame(CDocument& document) override;
  void ActivateFrame(CDocument& document) override;
  void CloseFrame(CDocument& document) override;
  void UpdateTitle(CDocument& document) override;
  void UpdateNotices(CDocument& document) override;

  QMenu* createPopupMenu() override;

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void CreateMenus();
  void CreateKeys();
  void CreateBars();
  void CreateChartBrowser();
  void CreateProblems();
  /// Lists the problems of the active chart, and counts them in the status bar.
  void ShowProblems();
  /// Null without an active chart, and while the user is at something else.
  const ChartProblems* ReachableProblems() const;
  void ShowMenu(bool forChart);
  void FillWindowList();
  void OnActivated();
  /// Title, mark and status text of the active chart.
  void ShowTitle();
  void RefreshBars();
  void OnIdle();
  void TellListener();

  CChildFrame* FrameOf(const CDocument& document) const;
  QList<CChildFrame*> Children() const;
  bool IsAnyWaiting() const;
  void EndGestures();
  void OpenDropped(const QStringList& paths);
  QWidget* PartOf(unsigned id) const;
  void Cascade();
  void ArrangeIcons();

  /// The properties of the active chart; null without one.
  const ModelProperties* ActiveProperties() const;

  DialogEditors editors{[this] { return ActiveProperties(); }};
  DialogGenerators generators;
  ToolImage toolImage;
  QMdiArea* area;
  std::unique_ptr<DocumentManager> manager;
  Listener* listener = nullptr;
  QList<CommandMenu*> startMenus;
  QList<CommandMenu*> chartMenus;
  CommandMenu* windowMenu = nullptr;
  QList<QAction*> windowList;
  CommandBar* toolBar = nullptr;
  CommandBar* drawingBar = nullptr;
  ChartBrowserPane* chartBrowser = nullptr;
  ProblemChecker checker;
  ProblemsPane* problems = nullptr;
  RunDesk* runs = nullptr;
  QLabel* problemCount = nullptr;
  QLabel* statusText = nullptr;
  ZoomBar* zoomBar = nullptr;
  bool chartMenuShown = false;
  QTimer idleTimer;
  bool idleSeen = false;  ///< nothing happened since the bars were refreshed
};

}  // namespace morvane
