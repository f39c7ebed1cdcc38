#pragma once

#include <string>
#include <vector>

namespace morvane {

class CTreeCtrl;
class TreeItem;

/// What a tree shows, down to the last item: two blanks for each level, "+" before an item that is
/// open, its picture in brackets if `withImages`, and its text.
std::vector<std::string> TreeRows(const CTreeCtrl& tree, bool withImages = true);
/// The first item with that text; null if there is none.
TreeItem* FindRow(const CTreeCtrl& tree, const std::string& text);

}  // namespace morvane
