#pragma once

#include <string>

class LayoutMgr;
class Shape;

/// Who follows the objects of a chart as they come, change and go: the tree beside the chart.
class ObjectBrowser {
 public:
  virtual ~ObjectBrowser() = default;
  /// Shows the chart of a view from now on.
  virtual void Attach(LayoutMgr* view) = 0;
  virtual void SetRootText(const std::string& text) = 0;
  virtual void AddNode(Shape* object) = 0;
  virtual void RemoveNodes(Shape* object) = 0;
  virtual void UpdateNodes(Shape* object) = 0;
  /// The whole model goes: everything below the root is void.
  virtual void RemoveAllNodes() = 0;
};
