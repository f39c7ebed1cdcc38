#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "surface/ChartWatcher.h"

namespace morvane {

class Coverage;
class LayoutMgr;
class Replay;
class Run;
class Simulation;
struct Machine;
struct MachineTransition;

/// A run that an open chart shows, on its own objects: a simulation, or the replay of a trace. As
/// long as there is one the chart can't be changed; what the run knows is never part of the chart.
class ChartRun : private ChartWatcher {
 public:
  struct Callbacks {
    std::function<void()> changed;  ///< there is something else to show
    /// The run is over: another chart comes, or the user wishes so. The chart has been let go; the
    /// callee destroys this object as soon as no menu and no message of it is open any more.
    std::function<void()> ended;
  };

  /// The chart has to outlive this object.
  ChartRun(LayoutMgr& chart, Callbacks callbacks);
  ~ChartRun() override;

  /// Begins. The reason if the chart is no machine as it stands, otherwise empty.
  std::string Simulate();
  /// The same, or takes the place of what ran here so far.
  std::string BeginReplay();
  /// The next part of the trace that is replayed.
  void FeedTrace(std::string_view part);
  /// All that is known of the trace is there.
  void FinishTrace();
  /// All that is there of it for now.
  void CatchUpTrace();

  /// Lets the chart go, which is then as it was before. Nothing else may be asked of the run
  /// afterwards.
  void End() { LetGo(); }

  const Machine& TheMachine() const { return *machine; }
  Run& Shown() const { return *run; }
  /// Null for a replay.
  Simulation* AsSimulation() const { return simulation; }
  /// Null for a simulation.
  Replay* AsReplay() const { return replay; }
  std::string ChartPath() const;

  // What the user does. Each shows what comes of it.
  void Restart();
  void Send(int event);
  void GoTo(std::size_t place);
  void StepBack();
  void StepForward();
  void Continue();
  void ToggleBreakpoint(std::int32_t id);
  /// The reason if it fails.
  std::string Assign(const std::string& name, const std::string& expression);
  /// Selects an object, which may be gone, and scrolls to it.
  void Reveal(std::int32_t id);

  /// Name and value of each variable; no value for one that nothing has given one yet.
  std::vector<std::pair<std::string, std::string>> Variables() const;
  /// "event, event" that wait; empty for none.
  std::string QueueText() const;
  /// All that this run and those before it on this chart have reached, as far as it is shown.
  Coverage Reached() const;
  /// Tints what was never reached.
  void TintUnreached(bool tint);
  bool IsTinting() const { return isTinting; }
  /// Shows the marks of the run, and tells.
  void Refresh();

 private:
  void OnDoubleClick(Shape* shape) override;
  void OnMenu(Shape* shape, POINT screen) override;
  void OnReplacing() override;

  std::string Build();
  void KeepReached();
  void LetGo();
  bool Ask(const MachineTransition& transition, const std::string& reason);
  void ShowMarks() const;
  void KeepActiveInSight();
  /// The first event of a transition, or of the one that a message belongs to; -1 for none.
  int EventOf(const Shape* shape) const;

  LayoutMgr& chart;
  Callbacks callbacks;
  std::unique_ptr<Machine> machine;
  std::unique_ptr<Run> run;
  Simulation* simulation = nullptr;
  Replay* replay = nullptr;
  std::unique_ptr<Coverage> before;  ///< what earlier runs have reached
  int shownActive = -1;              ///< the state that was brought in sight last
  bool isTinting = false;
  bool isOver = false;  ///< the chart has been let go
};

}  // namespace morvane
