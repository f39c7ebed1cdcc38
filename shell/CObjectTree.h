#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/CTreeCtrl.h"
#include "surface/ChartBrowser.h"

namespace morvane {

class Transition;

/// The object browser: a chart as a tree. Below the root stand its states, each below the smallest
/// one that it lies in, below a state the transitions that leave it, and below a transition its
/// target and its message; behind them the notes and lines. The datum of an item is the shape that
/// it stands for, that of the root the view. The first item of a state is its own, any other one
/// shows it as a target.
class CObjectTree : public CTreeCtrl, public ChartBrowser {
 public:
  CObjectTree();

  void Attach(LayoutMgr* chart) override;
  void SetRootText(const std::string& text) override;
  void AddNode(Shape* object) override;
  void AddAllNodes(const std::vector<Shape*>& objects) override;
  void RemoveNodes(Shape* object) override;
  void UpdateNodes(Shape* object) override;
  void RemoveAllNodes() override;
  void OnSelectionChanged() override;
  void OnObjectsMoved() override;
  /// Ends the tie to the view: the tree is empty.
  void Detach();

  void OnLButtonDown(TreeItem* hit) override;
  bool OnRButtonDown(TreeItem* hit, POINT screen) override;
  void OnChosen(TreeItem& item) override;
  bool OnKeyDown(VirtualKey key) override;
  /// Nests the states as they lie now, and selects what is selected on the chart.
  void BringUpToDate() override;

 private:
  /// What of a model was open, by the ids of the object and of that above it, which outlive the
  /// object; 0 is the chart.
  using OpenItems = std::set<std::pair<std::int32_t, std::int32_t>>;

  /// Below `parent`, or with null where the object belongs.
  void AddNode(Shape* object, TreeItem* parent);
  void AddTransition(Transition& transition);
  void AddNested(const std::vector<Shape*>& states);
  void FillTransitionNode(const Transition& transition, TreeItem& item);
  void UpdateTransition(Transition& transition, TreeItem& item);
  /// The shape of an item; null for the root.
  Shape* ShapeOf(const TreeItem& item) const;
  std::int32_t IdOf(const TreeItem& item) const;
  OpenItems::value_type KeyOf(const TreeItem& item) const;
  OpenItems FindOpen() const;
  void OpenAgain(const OpenItems& items);
  void Nest();
  void FollowSelection();
  bool IsChartBusy() const;

  LayoutMgr* view = nullptr;                    ///< not owned
  std::optional<OpenItems> formerlyOpen;        ///< of the model that went last
  std::vector<std::pair<Shape*, RECT>> nested;  ///< the states as they lay when they were nested
  OpenItems waitingToOpen;  ///< what was open before it lost all that is below it, or went
  bool isNestingStale = false;
  bool isSelectionStale = false;
};

}  // namespace morvane
