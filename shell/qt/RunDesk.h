#pragma once

#include <functional>
#include <memory>
#include <string>

#include <QTimer>

#include "platform/Command.h"
#include "platform/TailFile.h"

class QMainWindow;

namespace morvane {

class CChildFrame;
class ChartRun;
class CommandTarget;
class RunPane;

/// The runs of the charts in a main window: it begins and ends them, and shows that of the active
/// chart in a pane.
class RunDesk : public QObject {
  Q_OBJECT

 public:
  using ActiveChild = std::function<CChildFrame*()>;

  RunDesk(CommandTarget& target, ActiveChild active, QMainWindow* frame);
  ~RunDesk() override;

  CommandState StateOf(unsigned id) const;
  void Execute(unsigned id);
  /// Another chart is active, or none.
  void OnActivated();
  RunPane& Pane() { return *pane; }

 private:
  ChartRun* Active() const;
  /// Puts a new run into the active chart's window; null without a chart.
  ChartRun* Begin();
  void End(CChildFrame* child);
  void Simulate();
  void Replay();
  void ReplayPasted();
  void Follow();
  void StopFollowing();
  void ReadMore();
  bool BeginReplay();
  void ShowReason(const std::string& reason);
  void RunTests();

  CommandTarget& target;
  ActiveChild active;
  QMainWindow* frame;
  RunPane* pane;
  QTimer tailTimer;
  std::unique_ptr<TailFile> tail;  ///< what the run follows; null for nothing
  std::weak_ptr<ChartRun> follower;
};

}  // namespace morvane
