#include "surface/Picture.h"

#include <algorithm>
#include <array>
#include <exception>
#include <memory>

#include "drawing/CMetaFileDC.h"
#include "drawing/EmfWriter.h"
#include "drawing/SvgDC.h"
#include "persistence/ModelFile.h"
#include "platform/Files.h"
#include "platform/Pictures.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

constexpr std::string_view kPng = ".png";
constexpr std::string_view kSvg = ".svg";
constexpr std::string_view kPdf = ".pdf";
constexpr std::string_view kEmf = ".emf";

constexpr std::array kKinds = {Picture::FileKind{kPng, "PNG Picture (*.png)", true},
                               Picture::FileKind{kSvg, "SVG Drawing (*.svg)", true},
                               Picture::FileKind{kPdf, "PDF Page (*.pdf)", false},
                               Picture::FileKind{kEmf, "Enhanced Metafile (*.emf)", false}};

/// What an enhanced metafile says of itself: the program and the picture.
constexpr std::string_view kDescription{"Morvane\0Copy", 12};

}  // namespace

std::span<const Picture::FileKind> Picture::FileKinds() { return kKinds; }

const Picture::FileKind* Picture::KindOf(std::string_view path) {
  const auto* found = std::ranges::find(kKinds, ExtensionOf(path), &FileKind::extension);
  return found != kKinds.end() ? found : nullptr;
}

PictureInfo Picture::Info() const {
  PictureInfo info = About();
  info.scale = form.scale;
  info.transparent = form.transparent;
  return info;
}

std::string Picture::MakeEmf() const {
  const std::unique_ptr<CDC> reference = Service<Pictures>::Get().ReferenceDC();
  CMetaFileDC dc(*reference);
  Paint(dc);
  Metafile metafile = dc.Close();
  // There is a frame also where nothing is drawn.
  if (!framed && !metafile.records.empty()) {
    return EmfWriter::Encode(metafile, *reference, kDescription, nullptr, form.scale);
  }
  metafile.MoveBy(POINT{} - origin);
  const RECT frame{0, 0, size.cx, size.cy};
  return EmfWriter::Encode(metafile, *reference, kDescription, &frame, form.scale);
}

std::string Picture::MakeSvg() const {
  const std::unique_ptr<CDC> reference = Service<Pictures>::Get().ReferenceDC();
  SvgDC dc(*reference, size, Info());
  Paint(dc);
  return dc.Close();
}

std::optional<std::string> Picture::MakePng() const {
  return Service<Pictures>::Get().MakePng(
      size, {form.scale, form.pixelsPerInch, form.transparent, progress},
      [this](CDC& dc) { Paint(dc); });
}

std::optional<std::string> Picture::MakePdf() const {
  return Service<Pictures>::Get().MakePdf(size, Info(), [this](CDC& dc) { Paint(dc); });
}

std::optional<std::string> Picture::MakeFile(const FileKind& kind) const {
  if (kind.extension == kPng) return MakePng();
  if (kind.extension == kPdf) return MakePdf();
  if (size.cx > kMaxSide || size.cy > kMaxSide) return std::nullopt;
  return kind.extension == kSvg ? MakeSvg() : MakeEmf();
}

std::string Picture::Save(const std::string& path) const {
  const FileKind* kind = KindOf(path);
  if (kind == nullptr) return LoadText(IDS_PICTURE_KIND);
  try {
    const std::optional<std::string> bytes = MakeFile(*kind);
    if (!bytes) return LoadText(IDS_PICTURE_TOO_LARGE);
    return ModelFile::ReasonOf(ReplaceWholeFile(path, *bytes));
  } catch (const std::exception&) {
    return LoadText(IDS_UNKNOWN_ERROR);
  }
}

}  // namespace morvane
