#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "machine/Problem.h"
#include "platform/SharedText.h"

namespace morvane {

class LayoutMgr;
class ProblemChecker;

/// What is wrong with one open chart. It follows the chart's changes, a little behind them, and
/// puts marks on the objects.
class ChartProblems {
 public:
  /// Both have to outlive this object. `changed` is called whenever other problems are known.
  ChartProblems(LayoutMgr& chart, ProblemChecker& checker, std::function<void()> changed);
  ~ChartProblems();
  ChartProblems(const ChartProblems&) = delete;
  ChartProblems& operator=(const ChartProblems&) = delete;

  /// In the order of the model text. There are none as long as nothing is drawn.
  const std::vector<Problem>& Problems() const { return problems; }
  /// Selects the object of a problem and scrolls to it; false if it isn't there any more.
  bool Show(const Problem& problem) const;
  /// What would put a problem right, in the user's language; empty where nothing plain would.
  std::string FixFor(const Problem& problem) const;
  /// Puts it right, as one step to undo.
  void Fix(const Problem& problem) const;

 private:
  void Check(const SharedText& text);
  void Take(std::vector<Problem> found);

  LayoutMgr& chart;
  ProblemChecker& checker;
  std::function<void()> changed;
  std::vector<Problem> problems;
  /// Gone with this object: what the checker finds afterwards has nobody to go to.
  std::shared_ptr<ChartProblems*> self = std::make_shared<ChartProblems*>(this);
};

}  // namespace morvane
