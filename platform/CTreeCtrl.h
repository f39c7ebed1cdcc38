#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <list>
#include <memory_resource>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "drawing/Geometry.h"
#include "platform/Message.h"
#include "platform/TreeItem.h"

namespace morvane {

/// A tree of items, with a window before it or without. New items come behind their siblings. To
/// insert an item, or to find those of a datum, takes no longer in a large tree; to delete one
/// takes as long as what is below it is large.
class CTreeCtrl {
 public:
  /// `images` are the names of the pictures that items show.
  explicit CTreeCtrl(std::vector<std::string> images);
  virtual ~CTreeCtrl();
  CTreeCtrl(const CTreeCtrl&) = delete;
  CTreeCtrl& operator=(const CTreeCtrl&) = delete;

  /// What the real window hears, until it takes itself back with none before it goes. Between
  /// `changing` and its next look at the tree it must hold on to no item.
  struct Listener {
    /// Items are about to come, change or go. There may be thousands of calls before the window
    /// looks anew.
    std::function<void()> changing;
    /// Another item is selected, or none.
    std::function<void()> selected;
    /// `BringUpToDate` has something to do before the window looks at the tree again.
    std::function<void()> stale;
  };
  void SetListener(Listener window) { listener = std::move(window); }
  const std::vector<std::string>& Images() const { return images; }

  TreeItem* FirstItem() const { return top.FirstChild(); }
  /// The items below one, or at the top level if that is null, in their order. The list holds until
  /// something changes.
  const std::vector<TreeItem*>& Children(const TreeItem* parent) const;
  /// The place of an item among its siblings, from 0.
  std::size_t RowOf(const TreeItem& item) const;
  /// How many items the tree has, whether they can be seen or not.
  std::size_t Count() const { return items.size(); }
  TreeItem* Selected() const { return selected; }
  /// The item that was made first for a datum, from which `NextWithData` goes on; null if none.
  TreeItem* FirstWithData(const void* data) const;
  /// All items for a datum, each before those that come behind or below it.
  std::vector<TreeItem*> FindItems(const void* data) const;

  /// A new last child of `parent`, or of the top level if that is null.
  TreeItem* InsertItem(TreeItem* parent, std::string text, int image, int selectedImage,
                       void* data = nullptr);
  void SetText(TreeItem& item, std::string text);
  void SetImage(TreeItem& item, int image);
  /// Makes the item, with all below it, the last child of another one, which must not stand there.
  void MoveItem(TreeItem& item, TreeItem& parent);
  /// Deletes the item and all below it. A selection in there is gone.
  void DeleteItem(TreeItem& item);
  void DeleteChildren(TreeItem& item);
  void DeleteAllItems();

  /// Opens a closed item; without children it stays as it is.
  void Expand(TreeItem& item);
  /// Closes an open item and takes a selection below it up to it.
  void Collapse(TreeItem& item);
  /// Selects an item alone, or with null nothing.
  void Select(TreeItem* item);

  // The mouse, as the window reports it: `hit` is the item whose label or picture lies under the
  // pointer, null for none. The window goes on with its own handling unless told otherwise.
  virtual void OnLButtonDown(TreeItem* /*hit*/) {}
  /// Gives true when the press was used.
  virtual bool OnRButtonDown(TreeItem* /*hit*/, POINT /*screen*/) { return false; }
  virtual void OnLButtonDblClk() {}
  /// The user selected another item, by the keys or by a press that nobody else has used for it.
  virtual void OnChosen(TreeItem& /*item*/) {}
  /// Gives true when the key was used.
  virtual bool OnKeyDown(VirtualKey /*key*/) { return false; }
  /// The Return key, for what is selected; gives true when it was used.
  virtual bool OnReturn() { return false; }
  /// Does what may wait until somebody looks at the tree, who calls it before.
  virtual void BringUpToDate() {}

 protected:
  /// The tree has something to do in `BringUpToDate`.
  void GoStale();
  virtual void OnExpanded(TreeItem& /*item*/) {}
  virtual void OnCollapsed(TreeItem& /*item*/) {}

 private:
  struct Chain {
    TreeItem* first;
    TreeItem* last;
  };

  void Changing();
  void Link(TreeItem& item, TreeItem& parent);
  void Unlink(TreeItem& item);
  void AddToChain(TreeItem& item);
  void TakeFromChain(TreeItem& item);

  std::vector<std::string> images;
  Listener listener;
  TreeItem top;  ///< hidden, above the top level
  std::pmr::unsynchronized_pool_resource memory;
  std::pmr::list<TreeItem> items{&memory};
  std::pmr::unordered_map<const void*, Chain> chains{
      &memory};  ///< the items of each datum, as they were made
  /// Items aren't numbered; that is done for the parents that somebody looks into.
  mutable std::unordered_map<const TreeItem*, std::vector<TreeItem*>> rows;
  TreeItem* selected = nullptr;
  std::uint64_t lastSerial = 0;
};

}  // namespace morvane
