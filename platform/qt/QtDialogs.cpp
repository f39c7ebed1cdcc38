#include "platform/qt/QtDialogs.h"

#include <algorithm>

#include <QColorDialog>
#include <QFileDialog>
#include <QGridLayout>

#include "drawing/qt/QtText.h"
#include "platform/Files.h"
#include "platform/Wording.h"
#include "platform/qt/DialogParent.h"
#include "platform/qt/ExportOptionsBox.h"
#include "platform/qt/QtFontDialog.h"

namespace morvane {

namespace {

constexpr const char* kAllFiles = "All Files (*)";

QStringList FiltersFor(const Dialogs::FileFilter& filter) {
  return {ToQString(filter.text), ToQString(Worded(kAllFiles))};
}

std::optional<std::string> Run(QFileDialog& dialog) {
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return FromQPath(dialog.selectedFiles().constFirst());
}

/// Fields below all else that the dialog shows. Only the toolkit's own dialog has room for some.
ExportOptionsBox* AddOptions(QFileDialog& dialog, const Dialogs::ExportRequest& request) {
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  auto* box = new ExportOptionsBox(request.options, request.hasSelection, &dialog);
  auto* grid = qobject_cast<QGridLayout*>(dialog.layout());
  if (grid != nullptr) {
    constexpr int wholeRow = -1;
    grid->addWidget(box, grid->rowCount(), 0, 1, wholeRow);
  }
  return box;
}

}  // namespace

std::optional<std::string> QtDialogs::AskOpenPath(const FileFilter& filter) {
  QFileDialog dialog(DialogParent(), ToQString(Worded("Open")), ToQPath(lastFolder));
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setNameFilters(FiltersFor(filter));
  auto path = Run(dialog);
  if (path) lastFolder = FolderOf(*path);
  return path;
}

std::optional<std::string> QtDialogs::AskSavePath(const FileFilter& filter,
                                                  const std::string& suggestion) {
  QFileDialog dialog(DialogParent(), ToQString(Worded("Save As")));
  dialog.setDefaultSuffix(ToQString(filter.extension));
  dialog.setNameFilters(FiltersFor(filter));
  return RunSave(dialog, suggestion);
}

std::optional<std::string> QtDialogs::RunSave(QFileDialog& dialog, const std::string& suggestion) {
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  const std::string folder = FolderOf(suggestion);
  if (!folder.empty() || !lastFolder.empty()) {
    dialog.setDirectory(ToQPath(folder.empty() ? lastFolder : folder));
  }
  dialog.selectFile(ToQPath(FileNameOf(suggestion)));
  auto path = Run(dialog);
  if (path) lastFolder = FolderOf(*path);
  return path;
}

std::optional<Dialogs::ExportAnswer> QtDialogs::AskExport(const ExportRequest& request) {
  QFileDialog dialog(DialogParent(), ToQString(Worded("Export")));
  ExportOptionsBox* options = AddOptions(dialog, request);
  QStringList filters;
  for (const FileFilter& kind : request.kinds) filters << ToQString(kind.text);
  dialog.setNameFilters(filters);
  const auto start = static_cast<qsizetype>(request.kind);
  dialog.selectNameFilter(filters.value(start));
  const auto takeSuffix = [&](const QString& filter) {
    const qsizetype kind = std::max<qsizetype>(filters.indexOf(filter), 0);
    const FileFilter& chosen = request.kinds[static_cast<std::size_t>(kind)];
    dialog.setDefaultSuffix(ToQString(chosen.extension));
    options->OfferTransparency(chosen.hasGround);
  };
  takeSuffix(filters.value(start));
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, takeSuffix);
  const auto path = RunSave(dialog, request.suggestion);
  if (!path) return std::nullopt;
  return ExportAnswer{*path, options->Options()};
}

std::optional<COLORREF> QtDialogs::AskColour(COLORREF start) {
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

}  // namespace morvane
