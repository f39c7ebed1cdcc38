#pragma once

#include <string>
#include <vector>

#include "model/ObjectBrowser.h"
#include "model/Shape.h"

/// Stands in for the tree beside a chart and notes what it is told of changes.
class NotingBrowser : public ObjectBrowser {
 public:
  void Attach(LayoutMgr*) override {}
  void SetRootText(const std::string& text) override { root = text; }
  void AddNode(Shape*) override {}
  void AddAllNodes(const std::vector<Shape*>&) override {}
  void RemoveNodes(Shape*) override {}
  void UpdateNodes(Shape* object) override { updated.push_back(object->GetId()); }
  void RemoveAllNodes() override {}

  std::string root;
  std::vector<int> updated;  ///< ids of objects
};
