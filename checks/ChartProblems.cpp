#include "checks/ChartProblems.h"

#include <utility>

#include "checks/ProblemChecker.h"
#include "checks/QuickFix.h"
#include "model/ModelMgr.h"
#include "surface/LayoutMgr.h"
#include "surface/ObjectMarks.h"

namespace morvane {

ChartProblems::ChartProblems(LayoutMgr& chart, ProblemChecker& checker,
                             std::function<void()> changed)
    : chart(chart), checker(checker), changed(std::move(changed)) {
  chart.SetTextListener([this](const SharedText& text) { Check(text); });
  if (const SharedText text = chart.SnapshotText()) Check(text);
}

ChartProblems::~ChartProblems() {
  chart.SetTextListener(nullptr);
  chart.GetMarks().Set({});
}

void ChartProblems::Check(const SharedText& text) {
  checker.Check(this, text, [there = std::weak_ptr(self)](std::vector<Problem> found) {
    if (const auto problemsOfChart = there.lock()) {
      (*problemsOfChart)->Take(std::move(found));
    }
  });
}

void ChartProblems::Take(std::vector<Problem> found) {
  // A sheet on which nobody has begun is no mistake.
  if (chart.GetModel().Objects().empty()) found.clear();
  problems = std::move(found);
  std::vector<ObjectMarks::Mark> marks;
  for (const Problem& problem : problems) {
    const bool isError = problem.severity == Problem::Severity::Error;
    if (problem.id != 0) marks.push_back({problem.id, isError, problem.message});
  }
  chart.GetMarks().Set(std::move(marks));
  changed();
}

std::string ChartProblems::FixFor(const Problem& problem) const {
  return QuickFix(chart).OfferFor(problem);
}

void ChartProblems::Fix(const Problem& problem) const { QuickFix(chart).Apply(problem); }

bool ChartProblems::Show(const Problem& problem) const {
  Shape* shape = chart.GetModel().Find(problem.id);
  if (shape != nullptr) chart.Reveal({shape});
  return shape != nullptr;
}

}  // namespace morvane
