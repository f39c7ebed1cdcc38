#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/CTreeCtrl.h"

namespace morvane {

/// The chart browser: the drives and folders of the machine with the chart files in them. A folder
/// is read anew each time that it opens. The path of an item follows from its chain of parents; a
/// folder that is closed but has entries has one child without a text, for the expand button.
class CDirTreeCtrl : public CTreeCtrl {
 public:
  CDirTreeCtrl();

  /// What a double click on a file, or on a folder without content, hands its path to.
  std::function<void(const std::string& path)> OpenCallback;

  /// Lists the drives; false if there are none.
  bool InitTree(bool showChartFiles);
  /// Opens the tree down to a folder, read anew, and selects it. False if it can't.
  bool SelectPath(const std::string& path);
  std::string PathOfItem(const TreeItem& item) const;

  void OnLButtonDblClk() override;
  /// Opens a file, and opens or closes a folder.
  bool OnReturn() override;

 protected:
  void OnExpanded(TreeItem& item) override;
  void OnCollapsed(TreeItem& item) override;

 private:
  enum class Kind { Drive, Folder, ChartFile };

  bool ListDrives();
  void ListFolder(TreeItem& parent, const std::string& path);
  void InsertPathItem(TreeItem* parent, std::string text, Kind kind, const std::string& path);
  void AddEmptyChild(TreeItem& item);
  bool HasEntries(const std::string& path) const;
  bool PathExists(const std::string& path) const;
  TreeItem* DriveOf(std::string_view path) const;
  static TreeItem* FindChildByText(const TreeItem& parent, std::string_view text);
  TreeItem* InsertUnlisted(TreeItem& parent, const std::string& name);
  void ExpandAnew(TreeItem& item);

  bool showFiles = false;
};

}  // namespace morvane
