#include "tests/support/TreeRows.h"

#include "platform/CTreeCtrl.h"

namespace morvane {

namespace {

void AddRows(const TreeItem* item, const std::string& indent, bool withImages,
             std::vector<std::string>& rows) {
  for (; item != nullptr; item = item->Next()) {
    std::string row = indent + (item->IsExpanded() ? "+" : "");
    if (withImages) row += "[" + std::to_string(item->Image()) + "]";
    rows.push_back(row + item->Text());
    AddRows(item->FirstChild(), indent + "  ", withImages, rows);
  }
}

TreeItem* FindFrom(TreeItem* item, const std::string& text) {
  for (; item != nullptr; item = item->Next()) {
    if (item->Text() == text) return item;
    if (TreeItem* found = FindFrom(item->FirstChild(), text)) return found;
  }
  return nullptr;
}

}  // namespace

std::vector<std::string> TreeRows(const CTreeCtrl& tree, bool withImages) {
  std::vector<std::string> rows;
  AddRows(tree.FirstItem(), "", withImages, rows);
  return rows;
}

TreeItem* FindRow(const CTreeCtrl& tree, const std::string& text) {
  return FindFrom(tree.FirstItem(), text);
}

}  // namespace morvane
