#pragma once

#include <string>

#include "machine/Problem.h"

namespace morvane {

class GenericState;
class LayoutMgr;

/// Puts right what is wrong with an open chart, where there is one plain way.
class QuickFix {
 public:
  /// The chart has to outlive this object.
  explicit QuickFix(LayoutMgr& chart) : chart(chart) {}

  /// What would be done, for a menu, in the user's language; empty where nothing plain can be done.
  std::string OfferFor(const Problem& problem) const;
  /// Does it, as one step to undo. False if the chart has changed so that it can't be done any
  /// more.
  bool Apply(const Problem& problem);

 private:
  bool CanAttachEnds(std::int32_t id) const;
  bool AddInitialState(std::int32_t holder);
  bool AttachEnds(std::int32_t id);
  bool MakeNameUnique(std::int32_t id);
  bool DeleteMessage(std::int32_t id);

  LayoutMgr& chart;
};

}  // namespace morvane
