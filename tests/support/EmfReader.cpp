#include "tests/support/EmfReader.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <utility>

namespace morvane {

namespace {

constexpr std::uint32_t kStock = 0x80000000U;
constexpr std::uint32_t kStockNullBrush = kStock | 5;
constexpr std::uint32_t kStockBlackPen = kStock | 7;
constexpr std::uint32_t kStockNullPen = kStock | 8;
constexpr std::uint32_t kClipped = 4;
constexpr std::size_t kFaceLetters = 32;

/// The library's own conversion, which knows nothing of the writer's.
std::string FromUtf16(const std::u16string& units) { return std::filesystem::path(units).string(); }

/// What is selected while the records run by.
class Player {
 public:
  explicit Player(const EmfReader& reader) : reader(reader) {}

  void Play(std::size_t at) {
    using Kind = Metafile::Kind;
    switch (reader.Get<std::uint32_t>(at)) {
      case EmfReader::kPolygon: AddPoints(Kind::Polygon, at); break;
      case EmfReader::kPolyline: AddPoints(Kind::Polyline, at); break;
      case EmfReader::kSetTextColor: state.textColor = reader.Get<COLORREF>(at + 8); break;
      case EmfReader::kSelectObject: Select(reader.Get<std::uint32_t>(at + 8)); break;
      case EmfReader::kCreatePen:
        pens[reader.Get<std::uint32_t>(at + 8)] = {
            static_cast<PenStyle>(reader.Get<std::uint32_t>(at + 12)),
            reader.Get<std::int32_t>(at + 16), reader.Get<COLORREF>(at + 24)};
        break;
      case EmfReader::kCreateBrush:
        brushes[reader.Get<std::uint32_t>(at + 8)] = CBrush::Solid(reader.Get<COLORREF>(at + 16));
        break;
      case EmfReader::kEllipse: AddShape(Kind::Ellipse, at); break;
      case EmfReader::kRectangle: AddShape(Kind::Rectangle, at); break;
      case EmfReader::kMoveTo: pathStart = reader.PointAtOffset(at + 8); break;
      case EmfReader::kStrokeAndFillPath: {
        // The paths are rectangles with round corners, which begin behind the first one.
        const RECT box = reader.RectAtOffset(at + 8);
        const std::int32_t across = 2 * (pathStart.x - box.left);
        AddShape(Kind::RoundRect, at).corner = {across, across};
        break;
      }
      case EmfReader::kArc:
        AddShape(Kind::Arc, at).points = {reader.PointAtOffset(at + 24),
                                          reader.PointAtOffset(at + 32)};
        break;
      case EmfReader::kCreateFont: AddFont(at); break;
      case EmfReader::kExtTextOut: AddText(at); break;
      default: break;  // draws nothing
    }
  }
  Metafile Take() { return std::move(played); }

 private:
  Metafile::Record& Add(Metafile::Kind kind) {
    played.records.push_back(state);
    played.records.back().kind = kind;
    played.records.back().font = -1;
    return played.records.back();
  }
  Metafile::Record& AddShape(Metafile::Kind kind, std::size_t at) {
    const RECT inclusive = reader.RectAtOffset(at + 8);
    Metafile::Record& record = Add(kind);
    // Without an outline a shape comes out one unit smaller.
    const int more = state.pen.style == PenStyle::Null ? 0 : 1;
    record.rect = {inclusive.left, inclusive.top, AddSat(inclusive.right, more),
                   AddSat(inclusive.bottom, more)};
    return record;
  }
  void AddPoints(Metafile::Kind kind, std::size_t at) {
    Metafile::Record& record = Add(kind);
    const auto count = reader.Get<std::uint32_t>(at + 24);
    for (std::size_t i = 0; i < count; ++i) {
      record.points.push_back(reader.PointAtOffset(at + 28 + i * 8));
    }
  }
  std::u16string Units(std::size_t at, std::size_t count) const {
    std::u16string units;
    for (std::size_t i = 0; i < count; ++i) units += reader.Get<char16_t>(at + i * 2);
    return units;
  }
  void AddFont(std::size_t at) {
    CFont font;
    font.height = reader.Get<std::int32_t>(at + 12);
    font.weight = reader.Get<std::int32_t>(at + 28);
    const std::u16string face = Units(at + 40, kFaceLetters);
    font.face = FromUtf16(face.substr(0, face.find(u'\0')));
    fonts[reader.Get<std::uint32_t>(at + 8)] = static_cast<int>(played.fonts.size());
    played.fonts.push_back(font);
  }
  void AddText(std::size_t at) {
    Metafile::Record& record = Add(Metafile::Kind::TextOut);
    record.font = state.font;
    record.points = {reader.PointAtOffset(at + 36)};
    record.text = FromUtf16(
        Units(at + reader.Get<std::uint32_t>(at + 48), reader.Get<std::uint32_t>(at + 44)));
    record.clipped = (reader.Get<std::uint32_t>(at + 52) & kClipped) != 0;
    record.rect = reader.RectAtOffset(at + 56);
  }
  void Select(std::uint32_t handle) {
    if (handle == kStockNullBrush) state.brush = CBrush::Null();
    if (handle == kStockBlackPen) state.pen = CPen{};
    if (handle == kStockNullPen) state.pen = {PenStyle::Null, 0, 0};
    if (const auto pen = pens.find(handle); pen != pens.end()) state.pen = pen->second;
    if (const auto brush = brushes.find(handle); brush != brushes.end()) {
      state.brush = brush->second;
    }
    if (const auto font = fonts.find(handle); font != fonts.end()) state.font = font->second;
  }

  const EmfReader& reader;
  Metafile played;
  Metafile::Record state;
  POINT pathStart;
  std::map<std::uint32_t, CPen> pens;
  std::map<std::uint32_t, CBrush> brushes;
  std::map<std::uint32_t, int> fonts;
};

}  // namespace

EmfReader::EmfReader(std::string bytes) : emf(std::move(bytes)) {
  std::size_t at = 0;
  while (at + 8 <= emf.size()) {
    const auto size = Get<std::uint32_t>(at + 4);
    if (size < 8 || size % 4 != 0 || at + size > emf.size()) break;
    offsets.push_back(at);
    FollowHandles(at);
    at += size;
  }
  EXPECT_EQ(at, emf.size()) << "the sizes of the records add up";
}

std::size_t EmfReader::CountOf(std::uint32_t type) const {
  std::size_t count = 0;
  for (std::size_t i = 0; i < offsets.size(); ++i) count += TypeOf(i) == type ? 1 : 0;
  return count;
}

POINT EmfReader::PointAtOffset(std::size_t at) const {
  return {Get<std::int32_t>(at), Get<std::int32_t>(at + 4)};
}

RECT EmfReader::RectAtOffset(std::size_t at) const {
  const POINT topLeft = PointAtOffset(at);
  const POINT bottomRight = PointAtOffset(at + 8);
  return {topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
}

void EmfReader::CheckFrame() const {
  ASSERT_GE(offsets.size(), 2U);
  EXPECT_EQ(TypeOf(0), kHeader);
  EXPECT_EQ(TypeOf(offsets.size() - 1), kEndOfFile);
  EXPECT_EQ(emf.substr(40, 4), " EMF");
  EXPECT_EQ(Get<std::uint32_t>(48), emf.size());
  EXPECT_EQ(Get<std::uint32_t>(52), offsets.size());
  EXPECT_EQ(Get<std::uint16_t>(56), greatestHandle + 1U);
  EXPECT_TRUE(alive.empty()) << "every handle is given back";
  EXPECT_EQ(Get<std::uint32_t>(emf.size() - 4), 20U);
}

Metafile EmfReader::Replay() const {
  Player player(*this);
  for (const std::size_t at : offsets) player.Play(at);
  return player.Take();
}

void EmfReader::FollowHandles(std::size_t at) {
  const auto type = Get<std::uint32_t>(at);
  const auto handle = Get<std::uint32_t>(at + 8);
  if (type == kCreatePen || type == kCreateBrush || type == kCreateFont) {
    EXPECT_TRUE(alive.insert(handle).second);
    greatestHandle = std::max(greatestHandle, handle);
  } else if (type == kSelectObject && handle < kStock) {
    EXPECT_EQ(alive.count(handle), 1U) << "a handle exists before its use";
  } else if (type == kDeleteObject) {
    EXPECT_EQ(alive.erase(handle), 1U);
  }
}

}  // namespace morvane
