#pragma once

#include <optional>
#include <string>

#include "drawing/PdfWriter.h"
#include "drawing/PictureInfo.h"
#include "platform/Pictures.h"

namespace morvane {

class CDC;
class PdfFace;
class QtFontCache;

/// A PDF file of one page: what is painted, with its fonts, title and author, and an outline that
/// leads to the places of the picture. The same picture gives the same bytes.
class PdfFile {
 public:
  /// The longest side of a page, points.
  static constexpr double kMaxPoints = 14400;

  /// A page of `size` logical units, 96 to the inch; nothing if no page is so large. Texts are set
  /// in `fonts` and measured by `reference`.
  static std::optional<std::string> Make(SIZE size, const PictureInfo& info,
                                         const Pictures::Paint& paint, CDC& reference,
                                         QtFontCache& fonts);

 private:
  PdfFile(SIZE size, const PictureInfo& info);

  void WriteInfo();
  void WriteStream(int number, const std::string& entries, const std::string& bytes);
  /// Gives the number of the font.
  int WriteFont(PdfFace& face);
  std::string WriteDescriptor(PdfFace& face, const std::string& name);
  void WriteOutline();
  std::string Destination(POINT corner) const;
  /// A length on the page, of one in logical units.
  std::string Points(double units) const;
  /// What makes the page as large as it is to be, in front of what is drawn on it.
  std::string Scaling() const;

  SIZE size;
  const PictureInfo& info;
  PdfWriter writer;
  int catalogue;
  int pages;
  int page;
  int document;     ///< what is said about the document
  int outline = 0;  ///< 0 for none
};

}  // namespace morvane
