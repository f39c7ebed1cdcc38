#pragma once

#include <string>
#include <vector>

namespace morvane {

class Shape;

/// Who follows the objects of a chart as they come, change and go: the tree beside the chart.
class ObjectBrowser {
 public:
  virtual ~ObjectBrowser() = default;
  virtual void SetRootText(const std::string& text) = 0;
  virtual void AddNode(Shape* object) = 0;
  /// A whole model was placed: each of its objects has come, in the order of placing. They show as
  /// they are now.
  virtual void AddAllNodes(const std::vector<Shape*>& objects) = 0;
  virtual void RemoveNodes(Shape* object) = 0;
  virtual void UpdateNodes(Shape* object) = 0;
  /// The whole model goes: everything below the root is void.
  virtual void RemoveAllNodes() = 0;
  /// Other objects are selected now. It may be called for thousands of them, one by one.
  virtual void OnSelectionChanged() = 0;
  /// Objects may have moved.
  virtual void OnObjectsMoved() = 0;
};

}  // namespace morvane
