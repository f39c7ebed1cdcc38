#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include <QRawFont>
#include <QString>

#include "drawing/PdfFonts.h"

namespace morvane {

class PdfFace;
class QtFont;
class QtFontCache;

/// Sets the texts of a page in the fonts of the window, and hands over the letters that were used.
class QtPdfFonts : public PdfFonts {
 public:
  /// The fonts have to outlive it.
  explicit QtPdfFonts(QtFontCache& fonts);
  ~QtPdfFonts() override;
  QtPdfFonts(const QtPdfFonts&) = delete;
  QtPdfFonts& operator=(const QtPdfFonts&) = delete;

  const Line& Shape(const CFont& font, std::string_view utf8) override;
  int AdvanceOf(int face, std::uint16_t glyph) override;

  /// Those that a text was set in, by their numbers.
  const std::vector<std::unique_ptr<PdfFace>>& Faces() const { return faces; }

 private:
  int FaceOf(const QRawFont& font);
  bool AddAscii(const QtFont& font, std::string_view utf8);
  void AddPiece(const QtFont& font, std::string_view utf8, double x);

  QtFontCache& fonts;
  std::vector<std::unique_ptr<PdfFace>> faces;
  std::map<QString, int> faceOf;
  Line line;
};

}  // namespace morvane
