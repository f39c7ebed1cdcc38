#include "drawing/qt/PdfFace.h"

#include <algorithm>
#include <cmath>
#include <hb-subset.h>
#include <map>
#include <memory>

#include <QtEndian>

#include "drawing/PdfText.h"
#include "drawing/Utf16.h"

namespace morvane {

namespace {

constexpr double kThousand = 1000;

template <auto Destroy>
struct Destroyer {
  template <class T>
  void operator()(T* object) const {
    Destroy(object);
  }
};
using BlobPtr = std::unique_ptr<hb_blob_t, Destroyer<hb_blob_destroy>>;
using FacePtr = std::unique_ptr<hb_face_t, Destroyer<hb_face_destroy>>;
using InputPtr = std::unique_ptr<hb_subset_input_t, Destroyer<hb_subset_input_destroy>>;

QByteArray TableOf(const QRawFont& font, hb_tag_t tag) {
  constexpr std::size_t tagLength = 4;
  char name[tagLength + 1] = {};
  hb_tag_to_string(tag, name);
  return font.fontTable(name);
}

/// A font and those of its tables that were read.
struct FontTables {
  QRawFont font;
  std::map<hb_tag_t, QByteArray> tables;
};

/// Hands a table of the font behind `context` to the library, which goes on reading letters after
/// it has let go of the table: the bytes stay where they are.
hb_blob_t* ReadTable(hb_face_t* /*face*/, hb_tag_t tag, void* context) {
  auto& source = *static_cast<FontTables*>(context);
  const auto [place, isNew] = source.tables.try_emplace(tag);
  if (isNew) place->second = TableOf(source.font, tag);
  const QByteArray& table = place->second;
  if (table.isEmpty()) return nullptr;
  return hb_blob_create(table.constData(), static_cast<unsigned>(table.size()),
                        HB_MEMORY_MODE_READONLY, nullptr, nullptr);
}

std::u16string UnitsOf(const std::u32string& characters) {
  return QString::fromStdU32String(characters).toStdU16String();
}

}  // namespace

PdfFace::PdfFace(const QRawFont& font) : design(font) {
  design.setPixelSize(font.unitsPerEm());
  constexpr qsizetype weightPlace = 4;
  const QByteArray about = design.fontTable("OS/2");
  if (about.size() >= weightPlace + 2) {
    ownWeight = qFromBigEndian<quint16>(about.constData() + weightPlace);
  }
  if (!design.fontTable("CFF ").isEmpty()) kind = Outlines::Cff;
  if (!design.fontTable("glyf").isEmpty()) kind = Outlines::TrueType;
}

bool PdfFace::IsThickenedFor(int weight) const {
  return weight >= QFont::DemiBold && ownWeight != 0 && ownWeight < QFont::DemiBold;
}

PdfFace::Letter& PdfFace::At(std::uint16_t glyph) {
  if (glyph >= letters.size()) letters.resize(glyph + std::size_t{1});
  return letters[glyph];
}

bool PdfFace::Use(std::uint16_t glyph, std::u32string_view characters) {
  Letter& letter = At(glyph);
  letter.used = true;
  if (letter.characters.empty()) letter.characters = characters;
  return letter.characters == characters;
}

void PdfFace::Use(std::uint16_t glyph) { At(glyph).used = true; }

int PdfFace::PerThousand(double designUnits) const {
  return static_cast<int>(std::lround(designUnits * kThousand / design.pixelSize()));
}

int PdfFace::AdvanceOf(std::uint16_t glyph) {
  Letter& letter = At(glyph);
  if (letter.advance < 0) {
    const QList<QPointF> advances = design.advancesForGlyphIndexes({glyph});
    letter.advance = advances.isEmpty() ? 0 : std::max(PerThousand(advances.first().x()), 0);
  }
  return letter.advance;
}

std::string PdfFace::Subset() const {
  FontTables source{design, {}};
  const FacePtr face(hb_face_create_for_tables(ReadTable, &source, nullptr));
  const InputPtr input(hb_subset_input_create_or_fail());
  if (input == nullptr) return {};
  hb_set_t* glyphs = hb_subset_input_glyph_set(input.get());
  for (std::size_t i = 0; i < letters.size(); ++i) {
    if (letters[i].used) hb_set_add(glyphs, static_cast<hb_codepoint_t>(i));
  }
  hb_subset_input_set_flags(input.get(), HB_SUBSET_FLAGS_RETAIN_GIDS | HB_SUBSET_FLAGS_NO_HINTING |
                                             HB_SUBSET_FLAGS_DESUBROUTINIZE);
  // A page needs no rules of how letters follow each other.
  hb_set_t* dropped = hb_subset_input_set(input.get(), HB_SUBSET_SETS_DROP_TABLE_TAG);
  for (const char* tag : {"GSUB", "GPOS", "GDEF", "name", "post", "kern", "DSIG"}) {
    hb_set_add(dropped, hb_tag_from_string(tag, -1));
  }
  const FacePtr cut(hb_subset_or_fail(face.get(), input.get()));
  if (cut == nullptr) return {};
  const BlobPtr blob(hb_face_reference_blob(cut.get()));
  unsigned length = 0;
  const char* bytes = hb_blob_get_data(blob.get(), &length);
  return {bytes, length};
}

std::string PdfFace::Name() const {
  // Six capitals tell parts of one font from each other.
  constexpr int tagLength = 6;
  constexpr std::uint32_t alphabet = 26;
  constexpr std::uint32_t factor = 31;
  std::uint32_t mark = 0;
  for (std::size_t i = 0; i < letters.size(); ++i) {
    if (letters[i].used) mark = mark * factor + static_cast<std::uint32_t>(i);
  }
  std::string name;
  for (int i = 0; i < tagLength; ++i, mark /= alphabet) {
    name += static_cast<char>('A' + mark % alphabet);
  }
  name += '+';
  const QString full = design.familyName() + u'-' + design.styleName();
  for (const QChar c : full) {
    if (c.unicode() < 128 && (c.isLetterOrNumber() || c == u'-')) name += c.toLatin1();
  }
  return name;
}

std::string PdfFace::Widths() {
  std::string widths = "[";
  for (std::size_t i = 0; i < letters.size(); ++i) {
    if (!letters[i].used) continue;
    widths +=
        std::to_string(i) + " [" + std::to_string(AdvanceOf(static_cast<std::uint16_t>(i))) + "]\n";
  }
  return widths + "]";
}

std::string PdfFace::ToUnicode() const {
  constexpr std::size_t mostInBlock = 100;
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < letters.size(); ++i) {
    if (letters[i].characters.empty()) continue;
    std::string text = "<";
    AppendHex(text, static_cast<std::uint16_t>(i));
    text += "> <";
    for (const char16_t unit : UnitsOf(letters[i].characters)) AppendHex(text, unit);
    lines.push_back(text + ">\n");
  }
  std::string map =
      "/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n"
      "/CIDSystemInfo << /Registry (Adobe) /Ordering (UCS) /Supplement 0 >> def\n"
      "/CMapName /Adobe-Identity-UCS def\n/CMapType 2 def\n"
      "1 begincodespacerange\n<0000> <ffff>\nendcodespacerange\n";
  for (std::size_t at = 0; at < lines.size(); at += mostInBlock) {
    const std::size_t count = std::min(mostInBlock, lines.size() - at);
    map += std::to_string(count) + " beginbfchar\n";
    for (std::size_t i = 0; i < count; ++i) map += lines[at + i];
    map += "endbfchar\n";
  }
  return map + "endcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n";
}

}  // namespace morvane
