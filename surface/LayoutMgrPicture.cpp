#include "model/ModelMgr.h"
#include "platform/CMetaFileDC.h"
#include "platform/CSvgDC.h"
#include "platform/Clipboard.h"
#include "platform/EmfWriter.h"
#include "platform/MessageBox.h"
#include "platform/Pictures.h"
#include "resources/Texts.h"
#include "surface/LayoutMgr.h"

// The whole chart as a picture, painted as on paper: without grid, selection and anchors.

namespace {

/// What an enhanced metafile says of itself: the program and the picture.
constexpr std::string_view kDescription{"Morvane\0Copy", 12};

constexpr const char* kEmfFormats[] = {"image/x-emf", "image/emf"};
constexpr const char* kSvgFormat = "image/svg+xml";
constexpr const char* kPngFormat = "image/png";

}  // namespace

void LayoutMgr::DrawPicture(CDC& dc) {
  dc.SetPrinting(true);
  OnDraw(dc);
}

SIZE LayoutMgr::PictureSize() const {
  std::int32_t right = 0;
  std::int32_t bottom = 0;
  GetChartExtent(right, bottom);
  return {ToLogical(AddSat(right, 1)), ToLogical(AddSat(bottom, 1))};
}

std::string LayoutMgr::MakeEmf() {
  const std::unique_ptr<CDC> reference = Service<Pictures>::Get().ReferenceDC();
  CMetaFileDC dc(*reference);
  DrawPicture(dc);
  return EmfWriter::Encode(dc.Close(), *reference, kDescription);
}

std::string LayoutMgr::MakeSvg() {
  const std::unique_ptr<CDC> reference = Service<Pictures>::Get().ReferenceDC();
  CSvgDC dc(*reference, PictureSize());
  DrawPicture(dc);
  return dc.Close();
}

void LayoutMgr::CopyAsMetafile() {
  std::vector<Clipboard::Item> items;
  const std::string emf = MakeEmf();
  for (const char* format : kEmfFormats) items.push_back({format, emf});
  // For programs that read no metafile.
  items.push_back({kSvgFormat, MakeSvg()});
  const auto png =
      Service<Pictures>::Get().MakePng(PictureSize(), [this](CDC& dc) { DrawPicture(dc); });
  if (png) items.push_back({kPngFormat, *png});

  switch (Service<Clipboard>::Get().Put(items)) {
    case ClipboardError::None: ShowMessage(LoadText(IDS_METAFILE_COPIED)); break;
    case ClipboardError::Open:
    case ClipboardError::Empty: ShowMessage(LoadText(IDS_CLIPBOARD_ERROR), MB_ICONHAND); break;
    case ClipboardError::Set:
    case ClipboardError::Get: ShowMessage(LoadText(IDS_CLIPBOARD_ERROR)); break;
  }
}
