#include "surface/ChartExport.h"

#include <algorithm>
#include <cmath>

#include "drawing/TextCodec.h"
#include "model/Collection.h"
#include "persistence/CDocument.h"
#include "platform/Clipboard.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/Profile.h"
#include "platform/ProgressBox.h"
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

constexpr const char* kScale = "Scale";  // per cent
constexpr const char* kTransparent = "Transparent";
constexpr const char* kMargin = "Margin";  // below 0 for a picture that is not cut out
constexpr std::int32_t kWhole = 100;

/// The place of that kind among all.
std::size_t LastExportKind() {
  const std::string last = Service<Profile>::Get().GetString(kExportSection, kExportKind, "");
  const auto kinds = ChartPicture::FileKinds();
  const auto found = std::ranges::find(kinds, last, &ChartPicture::FileKind::extension);
  return found != kinds.end() ? static_cast<std::size_t>(found - kinds.begin()) : 0;
}

/// What was chosen last; what nobody can choose in the dialog is brought near to it.
PictureOptions LastOptions() {
  Profile& profile = Service<Profile>::Get();
  PictureOptions options;
  options.scale = std::clamp(1.0 * profile.GetInt(kExportSection, kScale, kWhole) / kWhole,
                             PictureOptions::kLeastScale, PictureOptions::kMostScale);
  options.transparent = profile.GetInt(kExportSection, kTransparent, 0) != 0;
  const std::int32_t margin = profile.GetInt(kExportSection, kMargin, -1);
  if (margin >= 0) options.margin = std::min(margin, PictureOptions::kMostMargin);
  return options;
}

void Remember(const Dialogs::ExportAnswer& answer) {
  const PictureOptions& options = answer.options;
  Service<Profile>::Get().Write(kExportSection,
                                {{kExportKind, ExtensionOf(answer.path)},
                                 {kScale, std::to_string(std::lround(options.scale * kWhole))},
                                 {kTransparent, options.transparent ? "1" : "0"},
                                 {kMargin, std::to_string(options.margin.value_or(-1))}});
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
    request.kinds.push_back({Translate(kind.filter), std::string(kind.extension), kind.hasGround});
  }
  request.kind = LastExportKind();
  request.suggestion = ExportSuggestion(chart.GetDocument(), kinds[request.kind].extension);
  request.hasSelection = !chart.GetSelection().IsEmpty();
  request.options = LastOptions();
  const auto answer = AskExport(request);
  if (!answer) return;
  ChartPicture picture(chart, answer->options);
  bool isGivenUp = false;
  std::string reason;
  {
    const auto box = Service<ProgressBoxes>::Get().Open(LoadText(IDS_EXPORTING));
    picture.SetProgress([&](double part) {
      isGivenUp = !box->Show(part);
      return !isGivenUp;
    });
    reason = picture.Save(answer->path);
  }
  if (isGivenUp) return;
  if (reason.empty()) {
    Remember(*answer);
  } else {
    ShowMessage(ToUtf8(answer->path) + "\n\n" + LoadText(IDS_COMMAND_FAILED) + reason, MB_ICONHAND);
  }
}

}  // namespace morvane
