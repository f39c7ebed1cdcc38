#pragma once

#include <functional>
#include <memory>

#include <QMdiSubWindow>

namespace morvane {

class DocumentManager;
class CDocument;
class ChartProblems;
class ChartRun;
class CScrollView;
class ObjectBrowserPane;
class ProblemChecker;
class NoticeBar;
class QtView;

/// The window of one chart.
class CChildFrame : public QMdiSubWindow {
  Q_OBJECT

 public:
  CChildFrame(CDocument& document, DocumentManager& manager);
  ~CChildFrame() override;

  /// Null once the document is closed.
  CDocument* Document() const { return document; }
  CScrollView* View() const;
  QtView* Window() const { return viewWidget; }
  /// From now on knows what is wrong with the chart, and calls back whenever that changes. The
  /// checker has to outlive this window.
  void FollowProblems(ProblemChecker& checker, std::function<void()> changed);
  /// Null where nothing is known.
  const ChartProblems* Problems() const { return problems.get(); }
  /// The run that the chart shows; null for none.
  const std::shared_ptr<ChartRun>& GetRun() const { return run; }
  void SetRun(std::shared_ptr<ChartRun> other);
  std::shared_ptr<ChartRun> TakeRun();
  ObjectBrowserPane& ObjectBrowser() { return *objectBrowser; }
  /// Shows the title of the document.
  void UpdateTitle();
  /// Shows the notices of the document above its view, as soon as no gesture runs there.
  void UpdateNotices();
  /// The chart is whole and shown: from now on commands reach it.
  void SetReady() { ready = true; }
  bool IsReady() const { return ready && document != nullptr; }
  /// Lets document and view go.
  void Detach();
  QSize sizeHint() const override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  CDocument* document;
  DocumentManager& manager;
  QtView* viewWidget;
  NoticeBar* notices;
  ObjectBrowserPane* objectBrowser;
  std::unique_ptr<ChartProblems> problems;
  std::shared_ptr<ChartRun> run;  ///< shared with what waits for its end
  bool ready = false;
};

}  // namespace morvane
