#include "platform/qt/QtDialogs.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>

#include "platform/Files.h"
#include "platform/qt/DialogParent.h"
#include "platform/qt/QtFontDialog.h"
#include "platform/qt/QtText.h"
#include "resources/Texts.h"

namespace {

constexpr const char* kAllFiles = "All Files (*)";

std::optional<std::string> Ask(QFileDialog& dialog, const Dialogs::FileFilter& filter) {
  dialog.setNameFilters({ToQString(filter.text), ToQString(Translate(kAllFiles))});
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return FromQPath(dialog.selectedFiles().constFirst());
}

}  // namespace

std::optional<std::string> QtDialogs::AskOpenPath(const FileFilter& filter) {
  QFileDialog dialog(QApplication::activeWindow(), ToQString(Translate("Open")),
                     ToQPath(lastFolder));
  dialog.setFileMode(QFileDialog::ExistingFile);
  const auto path = Ask(dialog, filter);
  if (path) lastFolder = FolderOf(*path);
  return path;
}

std::optional<std::string> QtDialogs::AskSavePath(const FileFilter& filter,
                                                  const std::string& suggestion) {
  QFileDialog dialog(QApplication::activeWindow(), ToQString(Translate("Save As")));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setDefaultSuffix(ToQString(filter.extension));
  const std::string folder = FolderOf(suggestion);
  if (!folder.empty() || !lastFolder.empty()) {
    dialog.setDirectory(ToQPath(folder.empty() ? lastFolder : folder));
  }
  dialog.selectFile(ToQPath(FileNameOf(suggestion)));
  const auto path = Ask(dialog, filter);
  if (path) lastFolder = FolderOf(*path);
  return path;
}

std::optional<COLORREF> QtDialogs::AskColor(COLORREF start) {
  const QColor chosen = QColorDialog::getColor(
      QColor(static_cast<int>(GetRValue(start)), static_cast<int>(GetGValue(start)),
             static_cast<int>(GetBValue(start))),
      DialogParent());
  if (!chosen.isValid()) return std::nullopt;
  return RGB(static_cast<unsigned>(chosen.red()), static_cast<unsigned>(chosen.green()),
             static_cast<unsigned>(chosen.blue()));
}

std::optional<Dialogs::FontChoice> QtDialogs::AskFont(const FontChoice& start) {
  QtFontDialog dialog(start, DialogParent());
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return dialog.Choice();
}
