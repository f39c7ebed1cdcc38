#include "drawing/EmfWriter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <iterator>

#include "drawing/CDC.h"
#include "drawing/Utf16.h"

namespace morvane {

enum class EmfWriter::RecordType : std::uint32_t {
  Header = 1,
  Polygon = 3,
  Polyline = 4,
  PolyBezierTo = 5,
  EndOfFile = 14,
  SetMapMode = 17,
  SetBkMode = 18,
  SetPolyFillMode = 19,
  SetTextAlign = 22,
  SetTextColor = 24,
  MoveTo = 27,
  IntersectClipRect = 30,
  SaveDC = 33,
  RestoreDC = 34,
  SelectObject = 37,
  CreatePen = 38,
  CreateBrush = 39,
  DeleteObject = 40,
  Ellipse = 42,
  Rectangle = 43,
  Arc = 45,
  LineTo = 54,
  BeginPath = 59,
  EndPath = 60,
  CloseFigure = 61,
  StrokeAndFillPath = 63,
  CreateFont = 82,
  ExtTextOut = 84
};

namespace {

constexpr std::uint32_t kSignature = 0x464D4520;  // " EMF"
constexpr std::uint32_t kVersion = 0x00010000;
constexpr std::uint32_t kHeaderSize = 108;

/// The reference device: a screen of exactly 96 pixels to the inch.
constexpr SIZE kDevicePixels{3840, 2400};
constexpr SIZE kDeviceMillimetres{1016, 635};
constexpr std::int32_t kMicrometresPerMillimetre = 1000;
constexpr double kHundredthsPerPixel = 2540.0 / 96;

constexpr std::uint32_t kMapModeText = 1;
constexpr std::uint32_t kTransparent = 1;
constexpr std::uint32_t kWinding = 2;
constexpr std::uint32_t kAlignTopLeft = 0;
constexpr std::uint32_t kCompatible = 1;
constexpr std::uint32_t kClipped = 4;
constexpr std::uint32_t kTurned = 0x80;  ///< the text reads from right to left
/// Handles of the system's own objects.
constexpr std::uint32_t kStockNullBrush = 0x80000005;
constexpr std::uint32_t kStockNullPen = 0x80000008;

/// Some programs take a thin black pen for none at all.
constexpr COLORREF kNearlyBlack = 0x010101;

constexpr std::size_t kFaceLetters = 32;
constexpr std::size_t kFontTail = 228;  ///< what follows the face in the longer form of a font

RECT BoxOf(POINT place, SIZE extent) {
  return {place.x, place.y, AddSat(place.x, extent.cx), AddSat(place.y, extent.cy)};
}

}  // namespace

/// The bytes of one record while it grows.
class EmfWriter::Record {
 public:
  explicit Record(RecordType type) {
    Number(static_cast<std::uint32_t>(type));
    Number(std::uint32_t{0});
  }

  template <class Value>
  Record& Number(Value v) {
    std::array<char, sizeof v> raw{};
    std::memcpy(raw.data(), &v, sizeof v);
    bytes.append(raw.data(), raw.size());
    return *this;
  }
  Record& Point(POINT p) { return Number(p.x).Number(p.y); }
  Record& Size(SIZE s) { return Number(s.cx).Number(s.cy); }
  Record& Rect(const RECT& r) {
    return Number(r.left).Number(r.top).Number(r.right).Number(r.bottom);
  }
  /// The box of a shape: its right and bottom edges are inside, but without an outline the shape
  /// comes out one unit smaller.
  Record& Outline(const RECT& r, const CPen& pen) {
    return pen.style == PenStyle::Null ? Rect(r) : Inclusive(r);
  }
  /// A rectangle whose right and bottom edges are inside.
  Record& Inclusive(const RECT& r) {
    return Rect({r.left, r.top, SubSat(r.right, 1), SubSat(r.bottom, 1)});
  }
  Record& Text(std::u16string_view text) {
    for (const char16_t unit : text) Number(static_cast<std::uint16_t>(unit));
    return *this;
  }
  Record& Zeros(std::size_t count) {
    bytes.append(count, '\0');
    return *this;
  }
  std::uint32_t Length() const { return static_cast<std::uint32_t>(bytes.size()); }
  /// The record with its size set, padded to whole 32-bit words.
  std::string Finish() const {
    std::string whole = bytes;
    whole.resize((whole.size() + 3) / 4 * 4, '\0');
    const auto size = static_cast<std::uint32_t>(whole.size());
    std::memcpy(whole.data() + sizeof size, &size, sizeof size);
    return whole;
  }

 private:
  std::string bytes;
};

std::string EmfWriter::Encode(const Metafile& metafile, CDC& reference,
                              std::string_view description, const RECT* frame, double scale) {
  EmfWriter writer(metafile, reference);
  writer.scale = scale;
  writer.WriteSetUp();
  for (const Metafile::Record& call : metafile.records) writer.WriteCall(call);
  writer.WriteEnd();
  if (frame != nullptr) writer.bounds = *frame;
  return writer.Header(description) + writer.body;
}

void EmfWriter::Append(const Record& record) {
  body += record.Finish();
  ++records;
}

void EmfWriter::Cover(const RECT& r) { bounds = UnionRect(bounds, r); }

void EmfWriter::WriteSetUp() {
  Append(Record(RecordType::SetMapMode).Number(kMapModeText));
  Append(Record(RecordType::SetBkMode).Number(kTransparent));
  Append(Record(RecordType::SetPolyFillMode).Number(kWinding));
  Append(Record(RecordType::SetTextAlign).Number(kAlignTopLeft));
  Append(Record(RecordType::SetTextColor).Number(textColor));
}

void EmfWriter::SelectHandle(std::uint32_t handle) {
  Append(Record(RecordType::SelectObject).Number(handle));
}

void EmfWriter::Select(const CPen& pen) {
  std::uint32_t handle = kStockNullPen;
  if (pen.style != PenStyle::Null) {
    const auto known =
        std::ranges::find_if(pens, [&](const auto& made) { return made.first == pen; });
    handle = known != pens.end() ? known->second : handles++;
    if (known == pens.end()) {
      pens.emplace_back(pen, handle);
      Append(Record(RecordType::CreatePen)
                 .Number(handle)
                 .Number(static_cast<std::uint32_t>(pen.style))
                 .Point({pen.width, 0})
                 .Number(pen.colour == 0 ? kNearlyBlack : pen.colour));
    }
  }
  if (handle == selectedPen) return;
  selectedPen = handle;
  SelectHandle(handle);
}

void EmfWriter::Select(const CBrush& brush) {
  std::uint32_t handle = kStockNullBrush;
  if (!brush.hollow) {
    const auto known =
        std::ranges::find_if(brushes, [&](const auto& made) { return made.first == brush; });
    handle = known != brushes.end() ? known->second : handles++;
    if (known == brushes.end()) {
      brushes.emplace_back(brush, handle);
      constexpr std::uint32_t solid = 0;
      constexpr std::uint32_t noHatch = 0;
      Append(Record(RecordType::CreateBrush)
                 .Number(handle)
                 .Number(solid)
                 .Number(brush.colour)
                 .Number(noHatch));
    }
  }
  if (handle == selectedBrush) return;
  selectedBrush = handle;
  SelectHandle(handle);
}

void EmfWriter::SelectFont(int index) {
  const auto known = fonts.find(index);
  const std::uint32_t handle = known != fonts.end() ? known->second : handles++;
  if (known == fonts.end()) {
    fonts[index] = handle;
    const CFont& font = metafile.fonts[static_cast<std::size_t>(index)];
    std::u16string face = ToUtf16(font.face).substr(0, kFaceLetters - 1);
    face.resize(kFaceLetters, u'\0');
    constexpr std::uint8_t defaultCharset = 1;
    constexpr std::uint8_t proofQuality = 2;
    Append(Record(RecordType::CreateFont)
               .Number(handle)
               .Number(font.height)
               .Zeros(3 * sizeof(std::int32_t))  // width, escapement, orientation
               .Number(std::int32_t{font.weight})
               .Zeros(3)  // not italic, underlined or struck out
               .Number(defaultCharset)
               .Zeros(2)  // default precisions
               .Number(proofQuality)
               .Zeros(1)  // default pitch
               .Text(face)
               .Zeros(kFontTail));
  }
  if (handle == selectedFont) return;
  selectedFont = handle;
  SelectHandle(handle);
}

void EmfWriter::SelectColour(COLORREF colour) {
  if (colour == textColor) return;
  textColor = colour;
  Append(Record(RecordType::SetTextColor).Number(colour));
}

void EmfWriter::WriteCall(const Metafile::Record& call) {
  using Kind = Metafile::Kind;
  switch (call.kind) {
    case Kind::FillRect: WriteFill(call.rect, call.brush); return;
    case Kind::FillMask: WriteMask(call); return;
    case Kind::TextOut: WriteText(call); return;
    default: break;
  }
  Select(call.pen);
  Select(call.brush);
  switch (call.kind) {
    case Kind::Polyline: WritePoints(RecordType::Polyline, call.points); return;
    case Kind::Polygon: WritePoints(RecordType::Polygon, call.points); return;
    case Kind::Rectangle: Append(Record(RecordType::Rectangle).Outline(call.rect, call.pen)); break;
    case Kind::Ellipse: Append(Record(RecordType::Ellipse).Outline(call.rect, call.pen)); break;
    case Kind::RoundRect: WriteRoundRect(call); break;
    case Kind::Arc:
      Append(
          Record(RecordType::Arc).Inclusive(call.rect).Point(call.points[0]).Point(call.points[1]));
      break;
    default: break;
  }
  Cover(call.rect);
}

void EmfWriter::WritePoints(RecordType type, const std::vector<POINT>& points) {
  if (points.empty()) return;
  RECT box = RectAt(points[0]);
  for (const POINT p : points) {
    box = {std::min(box.left, p.x), std::min(box.top, p.y), std::max(box.right, p.x),
           std::max(box.bottom, p.y)};
  }
  Record record(type);
  record.Rect(box).Number(static_cast<std::uint32_t>(points.size()));
  for (const POINT p : points) record.Point(p);
  Append(record);
  Cover({box.left, box.top, AddSat(box.right, 1), AddSat(box.bottom, 1)});
}

/// As a path: some programs take the axes of the corners for their radii.
void EmfWriter::WriteRoundRect(const Metafile::Record& call) {
  constexpr double circle = 0.5522847498307936;
  const std::int32_t less = call.pen.style == PenStyle::Null ? 0 : 1;
  const RECT r{call.rect.left, call.rect.top, SubSat(call.rect.right, less),
               SubSat(call.rect.bottom, less)};
  if (IsRectEmpty(r)) return;
  const auto across = Saturate(std::min<std::int64_t>(std::max(call.corner.cx, 0), Width(r)) / 2);
  const auto down = Saturate(std::min<std::int64_t>(std::max(call.corner.cy, 0), Height(r)) / 2);
  const auto heldX = static_cast<std::int32_t>(std::lround(across * (1 - circle)));
  const auto heldY = static_cast<std::int32_t>(std::lround(down * (1 - circle)));
  // What lies between the corners, and where the lines that lead to their curves are steered to.
  const RECT inner{r.left + across, r.top + down, r.right - across, r.bottom - down};
  const RECT held{r.left + heldX, r.top + heldY, r.right - heldX, r.bottom - heldY};
  Append(Record(RecordType::BeginPath));
  Append(Record(RecordType::MoveTo).Point({inner.left, r.top}));
  WriteCorner({inner.right, r.top}, {held.right, r.top}, {r.right, held.top}, {r.right, inner.top});
  WriteCorner({r.right, inner.bottom}, {r.right, held.bottom}, {held.right, r.bottom},
              {inner.right, r.bottom});
  WriteCorner({inner.left, r.bottom}, {held.left, r.bottom}, {r.left, held.bottom},
              {r.left, inner.bottom});
  WriteCorner({r.left, inner.top}, {r.left, held.top}, {held.left, r.top}, {inner.left, r.top});
  Append(Record(RecordType::CloseFigure));
  Append(Record(RecordType::EndPath));
  Append(Record(RecordType::StrokeAndFillPath).Rect(r));
}

/// A line to `start` and a curve from there to `end`.
void EmfWriter::WriteCorner(POINT start, POINT out, POINT in, POINT end) {
  constexpr std::uint32_t count = 3;
  const RECT box = NormalizeRect({start.x, start.y, end.x, end.y});
  Append(Record(RecordType::LineTo).Point(start));
  Append(Record(RecordType::PolyBezierTo).Rect(box).Number(count).Point(out).Point(in).Point(end));
}

void EmfWriter::WriteFill(const RECT& r, const CBrush& brush) {
  if (brush.hollow || IsRectEmpty(r)) return;
  Select(CPen{PenStyle::Null, 0, 0});
  Select(brush);
  // Without an outline a rectangle comes out one unit smaller.
  Append(Record(RecordType::Rectangle).Rect(r));
  Cover(r);
}

void EmfWriter::WriteMask(const Metafile::Record& call) {
  for (int y = 0; y < call.mask.height; ++y) {
    for (int x = 0; x < call.mask.width; ++x) {
      if (!call.mask.IsSet(x, y)) continue;
      const POINT p = call.points[0] + POINT{x, y};
      WriteFill({p.x, p.y, AddSat(p.x, 1), AddSat(p.y, 1)}, call.brush);
    }
  }
}

void EmfWriter::WriteText(const Metafile::Record& call) {
  if (call.text.empty()) return;
  SelectFont(call.font);
  SelectColour(call.textColor);
  reference.SelectFont(metafile.fonts[static_cast<std::size_t>(call.font)]);
  const RECT box = BoxOf(call.points[0], reference.GetTextExtent(call.text));
  const bool cut = call.clipped && IntersectRect(box, call.rect) != box;
  if (cut) {
    // For programs that don't heed a text's own clip.
    Append(Record(RecordType::SaveDC));
    Append(Record(RecordType::IntersectClipRect).Rect(call.rect));
  }
  // Other programs put the parts of a line that runs both ways in orders of their own.
  const std::vector<TextRun> runs = reference.GetTextRuns(call.text);
  // Some programs join texts that stand side by side, and order them anew, if nothing parts them.
  const auto part = [&] {
    if (runs.size() > 1) Append(Record(RecordType::MoveTo).Point(call.points[0]));
  };
  for (const TextRun& run : runs) {
    part();
    WriteRun(call, run);
  }
  part();
  if (cut) Append(Record(RecordType::RestoreDC).Number(std::int32_t{-1}));
  // Some programs forget with a text what was selected for lines and areas.
  selectedPen = 0;
  selectedBrush = 0;
  Cover(call.clipped ? IntersectRect(box, call.rect) : box);
}

void EmfWriter::WriteRun(const Metafile::Record& call, const TextRun& run) {
  const POINT place = call.points[0] + POINT{static_cast<std::int32_t>(std::lround(run.left)), 0};
  RECT box = BoxOf(place, reference.GetTextExtent(run.text));
  if (call.clipped) box = IntersectRect(box, call.rect);
  const std::u16string before = ToUtf16(run.MarkBefore());
  const std::u16string behind = ToUtf16(run.MarkBehind());
  const std::u16string text = before + ToUtf16(run.text) + behind;
  std::vector<std::int32_t> advances(before.size(), 0);
  std::ranges::copy(Advances(run.text, reference), std::back_inserter(advances));
  advances.resize(text.size(), 0);

  Record record(RecordType::ExtTextOut);
  const auto scale = static_cast<float>(kHundredthsPerPixel);
  record.Inclusive(box).Number(kCompatible).Number(scale).Number(scale);
  record.Point(place).Number(static_cast<std::uint32_t>(text.size()));
  constexpr std::uint32_t fieldsBehind = 4 + 4 + 16 + 4;  // offset, options, clip, offset
  const std::uint32_t textOffset = record.Length() + fieldsBehind;
  const auto textSize = static_cast<std::uint32_t>((text.size() * 2 + 3) / 4 * 4);
  const bool turned = run.direction == TextDirection::RightToLeft;
  record.Number(textOffset).Number((call.clipped ? kClipped : 0U) | (turned ? kTurned : 0U));
  record.Rect(call.rect);
  record.Number(textOffset + textSize).Text(text).Zeros(textSize - text.size() * 2);
  for (const std::int32_t advance : advances) record.Number(advance);
  Append(record);
}

void EmfWriter::WriteEnd() {
  for (std::uint32_t handle = 1; handle < handles; ++handle) {
    Append(Record(RecordType::DeleteObject).Number(handle));
  }
  constexpr std::uint32_t noPalette = 0;
  constexpr std::uint32_t paletteOffset = 16;
  constexpr std::uint32_t ownSize = 20;
  Append(Record(RecordType::EndOfFile).Number(noPalette).Number(paletteOffset).Number(ownSize));
}

std::string EmfWriter::Header(std::string_view description) const {
  // Two texts, each with its NUL, and one more at the end.
  std::u16string about = ToUtf16(description);
  about.append(2, u'\0');
  const auto hundredths = [this](std::int32_t v) {
    return Saturate(static_cast<std::int64_t>(v * kHundredthsPerPixel * scale));
  };
  const RECT frame{hundredths(bounds.left), hundredths(bounds.top), hundredths(bounds.right),
                   hundredths(bounds.bottom)};
  const std::size_t aboutSize = (about.size() * 2 + 3) / 4 * 4;
  const auto total = static_cast<std::uint32_t>(kHeaderSize + aboutSize + body.size());
  Record header(RecordType::Header);
  header.Inclusive(bounds).Inclusive(frame);
  header.Number(kSignature).Number(kVersion).Number(total).Number(records);
  header.Number(static_cast<std::uint16_t>(std::min<std::uint32_t>(handles, 0xFFFF)));
  header.Number(std::uint16_t{0});
  header.Number(static_cast<std::uint32_t>(about.size())).Number(kHeaderSize);
  header.Number(std::uint32_t{0});  // no palette
  header.Size(kDevicePixels).Size(kDeviceMillimetres);
  header.Zeros(3 * sizeof(std::uint32_t));  // no pixel format, no OpenGL
  header.Size({kDeviceMillimetres.cx * kMicrometresPerMillimetre,
               kDeviceMillimetres.cy * kMicrometresPerMillimetre});
  header.Text(about);
  return header.Finish();
}

}  // namespace morvane
