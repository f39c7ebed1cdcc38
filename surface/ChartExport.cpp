#include "surface/ChartExport.h"

#include <algorithm>

#include "drawing/TextCodec.h"
#include "model/Collection.h"
#include "persistence/CDocument.h"
#include "platform/Clipboard.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/Profile.h"
#include "platform/WaitCursor.h"
#include "resources/Texts.h"
#include "surface/ChartPicture.h"
#include "surface/LayoutMgr.h"

namespace morvane {

namespace {

/// What programs know a metafile by; office programs have a name of their own for it.
constexpr const char* kEmfFormats[] = {
    "image/x-emf", "image/emf", "application/x-openoffice-emf;windows_formatname=\"Image EMF\""};
constexpr const char* kSvgFormat = "image/svg+xml";
constexpr const char* kPngFormat = "image/png";

/// Where the profile keeps the extension of the kind that was exported last.
constexpr const char* kExportSection = "Export";
constexpr const char* kExportKind = "Kind";

/// The place of that kind among all.
std::size_t LastExportKind() {
  const std::string last = Service<Profile>::Get().GetString(kExportSection, kExportKind, "");
  const auto kinds = ChartPicture::FileKinds();
  const auto found = std::ranges::find(kinds, last, &ChartPicture::FileKind::extension);
  return found != kinds.end() ? static_cast<std::size_t>(found - kinds.begin()) : 0;
}

/// The chart's own path with another extension.
std::string ExportSuggestion(const CDocument* document, std::string_view extension) {
  std::string name = document == nullptr ? LoadText(IDS_UNTITLED) : document->GetPathName();
  if (name.empty()) name = document->GetTitle();
  const std::string former = ExtensionOf(name);
  if (FileNameOf(name).size() > former.size()) name.resize(name.size() - former.size());
  return name.append(extension);
}

}  // namespace

void CopyAsMetafile(LayoutMgr& chart) {
  const ChartPicture picture(chart);
  std::vector<Clipboard::Item> items;
  const std::string emf = picture.MakeEmf();
  for (const char* format : kEmfFormats) items.push_back({format, emf});
  // For programs that read no metafile.
  items.push_back({kSvgFormat, picture.MakeSvg()});
  if (auto png = picture.MakePng()) items.push_back({kPngFormat, *std::move(png)});

  switch (Service<Clipboard>::Get().Put(items)) {
    case ClipboardError::None: ShowMessage(LoadText(IDS_METAFILE_COPIED)); break;
    case ClipboardError::Open:
    case ClipboardError::Empty: ShowMessage(LoadText(IDS_CLIPBOARD_ERROR), MB_ICONHAND); break;
    case ClipboardError::Set:
    case ClipboardError::Get: ShowMessage(LoadText(IDS_CLIPBOARD_ERROR)); break;
  }
}

void ExportPicture(LayoutMgr& chart) {
  const auto kinds = ChartPicture::FileKinds();
  Dialogs::ExportRequest request;
  for (const auto& kind : kinds) {
    request.kinds.push_back({Translate(kind.filter), std::string(kind.extension)});
  }
  request.kind = LastExportKind();
  request.suggestion = ExportSuggestion(chart.GetDocument(), kinds[request.kind].extension);
  request.hasSelection = !chart.GetSelection().IsEmpty();
  const auto answer = AskExport(request);
  if (!answer) return;
  std::string reason;
  {
    const WaitCursor wait;
    reason = ChartPicture(chart, answer->selectionOnly).Save(answer->path);
  }
  if (reason.empty()) {
    Service<Profile>::Get().WriteString(kExportSection, kExportKind, ExtensionOf(answer->path));
  } else {
    ShowMessage(ToUtf8(answer->path) + "\n\n" + LoadText(IDS_COMMAND_FAILED) + reason, MB_ICONHAND);
  }
}

}  // namespace morvane
