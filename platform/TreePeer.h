#pragma once

/// The real window of a `CTreeCtrl`, made by the toolkit. Between `OnTreeChanging` and its next
/// look at the tree it must hold on to no item.
class TreePeer {
 public:
  virtual ~TreePeer() = default;
  /// Items are about to come, change or go: the window looks anew when it is idle. There may be
  /// thousands of calls before that.
  virtual void OnTreeChanging() = 0;
  /// Another item is selected, or none: the window brings it into sight.
  virtual void OnTreeSelected() = 0;
};
