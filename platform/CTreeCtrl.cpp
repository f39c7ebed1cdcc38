#include "platform/CTreeCtrl.h"

#include <algorithm>
#include <utility>

namespace morvane {

CTreeCtrl::CTreeCtrl(std::vector<std::string> images) : images(std::move(images)) {}

CTreeCtrl::~CTreeCtrl() = default;

void CTreeCtrl::Changing() {
  rows.clear();
  if (listener.changing) listener.changing();
}

const std::vector<TreeItem*>& CTreeCtrl::Children(const TreeItem* parent) const {
  const auto [found, isNew] = rows.try_emplace(parent);
  if (isNew) {
    TreeItem* child = parent != nullptr ? parent->FirstChild() : FirstItem();
    for (; child != nullptr; child = child->Next()) found->second.push_back(child);
  }
  return found->second;
}

std::size_t CTreeCtrl::RowOf(const TreeItem& item) const {
  const std::vector<TreeItem*>& siblings = Children(item.Parent());
  const auto older = [](const TreeItem* a, const TreeItem* b) { return a->IsOlder(*b); };
  return static_cast<std::size_t>(std::ranges::lower_bound(siblings, &item, older) -
                                  siblings.begin());
}

TreeItem* CTreeCtrl::FirstWithData(const void* data) const {
  const auto found = chains.find(data);
  return found != chains.end() ? found->second.first : nullptr;
}

std::vector<TreeItem*> CTreeCtrl::FindItems(const void* data) const {
  std::vector<TreeItem*> found;
  for (TreeItem* item = FirstWithData(data); item != nullptr; item = item->nextWithData) {
    found.push_back(item);
  }
  std::sort(found.begin(), found.end(),
            [](const TreeItem* a, const TreeItem* b) { return a->IsBefore(*b); });
  return found;
}

TreeItem* CTreeCtrl::InsertItem(TreeItem* parent, std::string text, int image, int selectedImage,
                                void* data) {
  Changing();
  TreeItem& item = items.emplace_back();
  item.place = std::prev(items.end());
  item.serial = ++lastSerial;
  item.text = std::move(text);
  item.image = image;
  item.selectedImage = selectedImage;
  item.data = data;
  Link(item, parent != nullptr ? *parent : top);
  AddToChain(item);
  return &item;
}

void CTreeCtrl::Link(TreeItem& item, TreeItem& parent) {
  item.parent = &parent;
  item.previous = parent.lastChild;
  (parent.lastChild != nullptr ? parent.lastChild->next : parent.firstChild) = &item;
  parent.lastChild = &item;
  ++parent.childCount;
}

void CTreeCtrl::Unlink(TreeItem& item) {
  TreeItem& parent = *item.parent;
  (item.previous != nullptr ? item.previous->next : parent.firstChild) = item.next;
  (item.next != nullptr ? item.next->previous : parent.lastChild) = item.previous;
  --parent.childCount;
}

void CTreeCtrl::AddToChain(TreeItem& item) {
  if (item.data == nullptr) return;
  const auto [found, isNew] = chains.try_emplace(item.data, Chain{&item, &item});
  if (isNew) return;
  item.previousWithData = found->second.last;
  item.previousWithData->nextWithData = &item;
  found->second.last = &item;
}

void CTreeCtrl::TakeFromChain(TreeItem& item) {
  if (item.data == nullptr) return;
  TreeItem* previous = item.previousWithData;
  TreeItem* next = item.nextWithData;
  if (previous != nullptr) previous->nextWithData = next;
  if (next != nullptr) next->previousWithData = previous;
  if (previous != nullptr && next != nullptr) return;
  const auto found = chains.find(item.data);
  if (previous == nullptr && next == nullptr) {
    chains.erase(found);
  } else if (previous == nullptr) {
    found->second.first = next;
  } else {
    found->second.last = previous;
  }
}

void CTreeCtrl::SetText(TreeItem& item, std::string text) {
  if (item.text == text) return;
  Changing();
  item.text = std::move(text);
}

void CTreeCtrl::SetImage(TreeItem& item, int image) {
  if (item.image == image && item.selectedImage == image) return;
  Changing();
  item.image = image;
  item.selectedImage = image;
}

void CTreeCtrl::MoveItem(TreeItem& item, TreeItem& parent) {
  if (item.parent == &parent) return;
  Changing();
  Unlink(item);
  item.next = nullptr;
  // Siblings stand in the order of their numbers.
  item.serial = ++lastSerial;
  Link(item, parent);
}

void CTreeCtrl::GoStale() {
  if (listener.stale) listener.stale();
}

void CTreeCtrl::DeleteItem(TreeItem& item) {
  Changing();
  // From the leaves up, without a call for each level.
  const TreeItem* end = item.parent;
  for (TreeItem* current = &item; current != end;) {
    if (current->firstChild != nullptr) {
      current = current->firstChild;
      continue;
    }
    TreeItem* parent = current->parent;
    if (current == selected) Select(nullptr);
    Unlink(*current);
    TakeFromChain(*current);
    items.erase(current->place);
    current = parent;
  }
}

void CTreeCtrl::DeleteChildren(TreeItem& item) {
  while (item.firstChild != nullptr) DeleteItem(*item.firstChild);
}

void CTreeCtrl::DeleteAllItems() {
  Changing();
  Select(nullptr);
  chains.clear();
  items.clear();
  top.firstChild = nullptr;
  top.lastChild = nullptr;
  top.childCount = 0;
}

void CTreeCtrl::Expand(TreeItem& item) {
  if (item.expanded || item.firstChild == nullptr) return;
  Changing();
  item.expanded = true;
  OnExpanded(item);
}

void CTreeCtrl::Collapse(TreeItem& item) {
  if (!item.expanded) return;
  Changing();
  if (selected != nullptr && selected->IsBelow(item)) Select(&item);
  item.expanded = false;
  OnCollapsed(item);
}

void CTreeCtrl::Select(TreeItem* item) {
  if (selected == item) return;
  selected = item;
  if (listener.selected) listener.selected();
}

}  // namespace morvane
