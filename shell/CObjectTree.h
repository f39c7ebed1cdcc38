#pragma once

#include <string>
#include <vector>

#include "platform/CTreeCtrl.h"
#include "surface/ChartBrowser.h"

namespace morvane {

class Transition;

/// The object browser: a chart as a tree. Below the root stand its states, below a state the
/// transitions that leave it, and below a transition its target and its message. The datum of an
/// item is the shape that it stands for, that of the root the view.
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
  /// Ends the tie to the view: the tree is empty.
  void Detach();

  void OnLButtonDown(TreeItem* hit) override;
  bool OnRButtonDown(TreeItem* hit, POINT screen) override;

 private:
  /// Below `parent`, or with null where the object belongs.
  void AddNode(Shape* object, TreeItem* parent);
  void AddTransition(Transition& transition);
  TreeItem* NodeOfSource(const Shape* source) const;
  void FillTransitionNode(const Transition& transition, TreeItem& item);
  void UpdateTransition(Transition& transition, TreeItem& item);
  bool IsChartBusy() const;

  LayoutMgr* view = nullptr;  ///< not owned
};

}  // namespace morvane
