#include "platform/Clipboard.h"
#include "platform/MessageBox.h"
#include "resources/Texts.h"
#include "surface/ChartPicture.h"
#include "surface/LayoutMgr.h"

// The chart handed to other programs: on the clipboard and as a file.

namespace {

constexpr const char* kEmfFormats[] = {"image/x-emf", "image/emf"};
constexpr const char* kSvgFormat = "image/svg+xml";
constexpr const char* kPngFormat = "image/png";

}  // namespace

void LayoutMgr::CopyAsMetafile() {
  const ChartPicture picture(*this);
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
