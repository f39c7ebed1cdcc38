#include "platform/TreeItem.h"

namespace morvane {

bool TreeItem::IsBelow(const TreeItem& other) const {
  for (const TreeItem* item = parent; item != nullptr; item = item->parent) {
    if (item == &other) return true;
  }
  return false;
}

int TreeItem::Depth() const {
  int depth = 0;
  for (const TreeItem* item = parent; item != nullptr; item = item->parent) ++depth;
  return depth;
}

bool TreeItem::IsBefore(const TreeItem& other) const {
  const TreeItem* left = this;
  const TreeItem* right = &other;
  const int leftDepth = left->Depth();
  const int rightDepth = right->Depth();
  for (int i = rightDepth; i < leftDepth; ++i) left = left->parent;
  for (int i = leftDepth; i < rightDepth; ++i) right = right->parent;
  // One is the other or stands above it.
  if (left == right) return leftDepth < rightDepth;
  while (left->parent != right->parent) {
    left = left->parent;
    right = right->parent;
  }
  return left->IsOlder(*right);
}

}  // namespace morvane
