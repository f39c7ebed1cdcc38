#include "shell/CDirTreeCtrl.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "platform/Files.h"
#include "platform/Folders.h"
#include "platform/WaitCursor.h"
#include "shell/CSortStringArray.h"
#include "shell/ChartFiles.h"

namespace morvane {

namespace {

constexpr char kSeparator = '/';
constexpr std::string_view kSeparators = "/\\";

enum PathImage { IMAGE_DRIVE, IMAGE_FOLDER, IMAGE_OPEN_FOLDER, IMAGE_CHART_FILE };

bool IsSeparator(char c) { return kSeparators.find(c) != std::string_view::npos; }

std::string_view WithoutSeparators(std::string_view path) {
  while (!path.empty() && IsSeparator(path.back())) path.remove_suffix(1);
  return path;
}

/// The folder in the form to which a name is added.
std::string WithSeparator(std::string path) {
  if (path.empty() || path.back() != kSeparator) path += kSeparator;
  return path;
}

bool EqualsWithoutCase(std::string_view a, std::string_view b) {
  const auto upper = [](char c) { return std::toupper(static_cast<unsigned char>(c)); };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [&](char x, char y) { return upper(x) == upper(y); });
}

/// The path leads to the drive or into it.
bool BeginsWith(std::string_view path, std::string_view drive) {
  const std::string_view stem = WithoutSeparators(drive);
  return path.size() >= stem.size() && EqualsWithoutCase(path.substr(0, stem.size()), stem) &&
         (path.size() == stem.size() ? !stem.empty() : IsSeparator(path[stem.size()]));
}

}  // namespace

CDirTreeCtrl::CDirTreeCtrl()
    : CTreeCtrl({"tree-drive", "tree-folder", "tree-openfolder", "tree-chartfile"}) {}

bool CDirTreeCtrl::InitTree(bool showChartFiles) {
  DeleteAllItems();
  showFiles = showChartFiles;
  return ListDrives();
}

bool CDirTreeCtrl::ListDrives() {
  const std::vector<std::string> drives = Service<Folders>::Get().Drives();
  for (const std::string& drive : drives) {
    const std::string_view stem = WithoutSeparators(drive);
    // The root of the file system is nothing but its separator.
    InsertPathItem(nullptr, std::string(stem.empty() ? drive : stem), Kind::Drive, drive);
  }
  return !drives.empty();
}

void CDirTreeCtrl::InsertPathItem(TreeItem* parent, std::string text, Kind kind,
                                  const std::string& path) {
  switch (kind) {
    case Kind::ChartFile:
      InsertItem(parent, std::move(text), IMAGE_CHART_FILE, IMAGE_CHART_FILE);
      return;
    case Kind::Drive:
    case Kind::Folder: break;
  }
  const bool isDrive = kind == Kind::Drive;
  TreeItem* item = InsertItem(parent, std::move(text), isDrive ? IMAGE_DRIVE : IMAGE_FOLDER,
                              isDrive ? IMAGE_DRIVE : IMAGE_OPEN_FOLDER);
  if (HasEntries(path)) AddEmptyChild(*item);
}

void CDirTreeCtrl::AddEmptyChild(TreeItem& item) {
  InsertItem(&item, "", IMAGE_FOLDER, IMAGE_FOLDER);
}

bool CDirTreeCtrl::HasEntries(const std::string& path) const {
  bool found = false;
  Service<Folders>::Get().Visit(path, [&](const Folders::Entry& entry) {
    found = entry.folder || (showFiles && !entry.hidden);
    return !found;
  });
  return found;
}

void CDirTreeCtrl::ListFolder(TreeItem& parent, const std::string& path) {
  const WaitCursor wait;
  const std::string stem = WithSeparator(path);
  CSortStringArray folders;
  CSortStringArray files;
  Service<Folders>::Get().Visit(path, [&](const Folders::Entry& entry) {
    std::string full = stem + entry.name;
    if (entry.folder) {
      folders.Add(std::move(full));
    } else if (showFiles && IsChartFile(full)) {
      files.Add(std::move(full));
    }
    return true;
  });
  folders.SortStrings();
  files.SortStrings();
  for (const std::string& full : folders.Strings()) {
    InsertPathItem(&parent, full.substr(stem.size()), Kind::Folder, full);
  }
  for (const std::string& full : files.Strings()) {
    InsertPathItem(&parent, full.substr(stem.size()), Kind::ChartFile, full);
  }
}

void CDirTreeCtrl::OnExpanded(TreeItem& item) {
  DeleteChildren(item);
  ListFolder(item, PathOfItem(item));
}

void CDirTreeCtrl::OnCollapsed(TreeItem& item) {
  DeleteChildren(item);
  AddEmptyChild(item);
}

std::string CDirTreeCtrl::PathOfItem(const TreeItem& item) const {
  std::string path = item.Text();
  for (const TreeItem* parent = item.Parent(); parent != nullptr; parent = parent->Parent()) {
    path.insert(0, WithSeparator(parent->Text()));
  }
  return path;
}

bool CDirTreeCtrl::PathExists(const std::string& path) const {
  return DriveOf(path) != nullptr && Service<Folders>::Get().IsFolder(path);
}

/// The innermost one: a volume stands at the top level beside the root that it is mounted under.
TreeItem* CDirTreeCtrl::DriveOf(std::string_view path) const {
  TreeItem* best = nullptr;
  for (TreeItem* drive = FirstItem(); drive != nullptr; drive = drive->Next()) {
    if (!BeginsWith(path, drive->Text())) continue;
    if (best == nullptr || best->Text().size() < drive->Text().size()) best = drive;
  }
  return best;
}

TreeItem* CDirTreeCtrl::FindChildByText(const TreeItem& parent, std::string_view text) {
  TreeItem* found = nullptr;
  for (TreeItem* child = parent.FirstChild(); child != nullptr; child = child->Next()) {
    // Two names may differ in nothing but their case.
    if (child->Text() == text) return child;
    if (found == nullptr && EqualsWithoutCase(child->Text(), text)) found = child;
  }
  return found;
}

/// A folder that may be entered but not read doesn't tell what is in it. Null if there is no such
/// folder in it either.
TreeItem* CDirTreeCtrl::InsertUnlisted(TreeItem& parent, const std::string& name) {
  const std::string path = WithSeparator(PathOfItem(parent)) + name;
  if (!Service<Folders>::Get().IsFolder(path)) return nullptr;
  InsertPathItem(&parent, name, Kind::Folder, path);
  return FindChildByText(parent, name);
}

void CDirTreeCtrl::ExpandAnew(TreeItem& item) {
  Collapse(item);
  Expand(item);
}

bool CDirTreeCtrl::SelectPath(const std::string& path) {
  if (!PathExists(path)) return false;
  const std::string real = FindPath(path);
  TreeItem* item = DriveOf(real);
  ExpandAnew(*item);
  std::string_view rest(real);
  rest.remove_prefix(WithoutSeparators(item->Text()).size());
  while (!rest.empty()) {
    const std::string_view piece = rest.substr(0, rest.find_first_of(kSeparators));
    rest.remove_prefix(std::min(piece.size() + 1, rest.size()));
    if (piece.empty()) continue;
    TreeItem* child = FindChildByText(*item, piece);
    item = child != nullptr ? child : InsertUnlisted(*item, std::string(piece));
    if (item == nullptr) return false;
    ExpandAnew(*item);
  }
  Select(item);
  return true;
}

bool CDirTreeCtrl::OnReturn() {
  TreeItem* item = Selected();
  if (item == nullptr || item->FirstChild() == nullptr) {
    OnLButtonDblClk();
  } else {
    item->IsExpanded() ? Collapse(*item) : Expand(*item);
  }
  return true;
}

void CDirTreeCtrl::OnLButtonDblClk() {
  const TreeItem* item = Selected();
  if (item == nullptr || item->FirstChild() != nullptr || !OpenCallback) return;
  OpenCallback(PathOfItem(*item));
}

}  // namespace morvane
