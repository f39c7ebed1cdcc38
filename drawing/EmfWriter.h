#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "drawing/Metafile.h"

namespace morvane {

class CDC;

/// Encodes a recording as an enhanced metafile: one unit of the picture to the logical unit, 96 to
/// the inch. Every call becomes a record of its own, and text stays text.
class EmfWriter {
 public:
  /// `reference` measures the texts as the recording did; `description` is two ASCII texts, the
  /// program and the picture, with a NUL between them. The picture is `frame`, logical units, or
  /// without one the box of all that is drawn; other programs show it `scale` times as large.
  static std::string Encode(const Metafile& metafile, CDC& reference, std::string_view description,
                            const RECT* frame = nullptr, double scale = 1);

 private:
  enum class RecordType : std::uint32_t;
  class Record;

  EmfWriter(const Metafile& metafile, CDC& reference) : metafile(metafile), reference(reference) {}

  void WriteSetUp();
  void WriteCall(const Metafile::Record& call);
  void WritePoints(RecordType type, const std::vector<POINT>& points);
  void WriteRoundRect(const Metafile::Record& call);
  void WriteCorner(POINT start, POINT out, POINT in, POINT end);
  void WriteFill(const RECT& r, const CBrush& brush);
  void WriteMask(const Metafile::Record& call);
  void WriteText(const Metafile::Record& call);
  void WriteEnd();
  std::string Header(std::string_view description) const;

  void Select(const CPen& pen);
  void Select(const CBrush& brush);
  void SelectFont(int index);
  void SelectHandle(std::uint32_t handle);
  void SelectColour(COLORREF colour);
  void Append(const Record& record);
  void Cover(const RECT& r);

  const Metafile& metafile;
  CDC& reference;
  double scale = 1;
  std::string body;
  std::uint32_t records = 1;  ///< with the header
  std::uint32_t handles = 1;  ///< with the metafile itself, which is handle 0
  std::vector<std::pair<CPen, std::uint32_t>> pens;
  std::vector<std::pair<CBrush, std::uint32_t>> brushes;
  std::map<int, std::uint32_t> fonts;
  std::uint32_t selectedPen = 0;
  std::uint32_t selectedBrush = 0;
  std::uint32_t selectedFont = 0;
  COLORREF textColor = 0;
  RECT bounds;  ///< what is covered, right and bottom outside
};

}  // namespace morvane
