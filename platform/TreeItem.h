#pragma once

#include <cstdint>
#include <list>
#include <memory_resource>
#include <string>

namespace morvane {

/// One item of a `CTreeCtrl`, which makes, changes and owns it.
class TreeItem {
 public:
  const std::string& Text() const { return text; }
  /// The place of a picture in the tree's list, and of the one that stands for it while the item is
  /// selected.
  int Image() const { return image; }
  int SelectedImage() const { return selectedImage; }
  /// What the item stands for; not owned.
  void* Data() const { return data; }
  /// Null at the top level.
  TreeItem* Parent() const { return parent->parent != nullptr ? parent : nullptr; }
  TreeItem* FirstChild() const { return firstChild; }
  /// The sibling behind this one.
  TreeItem* Next() const { return next; }
  /// The item that was made next for the same data.
  TreeItem* NextWithData() const { return nextWithData; }
  int ChildCount() const { return childCount; }
  /// The item was made before the other one. Siblings stand in that order.
  bool IsOlder(const TreeItem& other) const { return serial < other.serial; }
  bool IsExpanded() const { return expanded; }
  /// The item lies below the other one, at any depth.
  bool IsBelow(const TreeItem& other) const;
  /// The item comes before the other one of its tree, where each stands before its children.
  bool IsBefore(const TreeItem& other) const;

 private:
  friend class CTreeCtrl;

  int Depth() const;

  std::string text;
  int image = 0;
  int selectedImage = 0;
  void* data = nullptr;
  TreeItem* parent = nullptr;  ///< for an item at the top level, the tree's own hidden item
  TreeItem* firstChild = nullptr;
  TreeItem* lastChild = nullptr;
  TreeItem* previous = nullptr;
  TreeItem* next = nullptr;
  TreeItem* previousWithData = nullptr;
  TreeItem* nextWithData = nullptr;
  std::pmr::list<TreeItem>::iterator place;  ///< in the owning list
  std::uint64_t serial = 0;                  ///< of the making
  int childCount = 0;
  bool expanded = false;
};

}  // namespace morvane
