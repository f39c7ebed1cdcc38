#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <QRawFont>

namespace morvane {

/// One face of a font as a PDF file holds it: with those letters alone that were used, under their
/// own numbers.
class PdfFace {
 public:
  enum class Outlines { None, TrueType, Cff };

  explicit PdfFace(const QRawFont& font);

  /// Without outlines, as for letters that are small pictures, a face can't be used.
  Outlines Kind() const { return kind; }
  /// True if the window thickens the face, since the font has no bold one. `weight` is the wanted.
  bool IsThickenedFor(int weight) const;
  /// Notes that a letter stands for a character, or for several. False if it stands for others
  /// already.
  bool Use(std::uint16_t glyph, std::u32string_view characters);
  /// Notes a letter that is no character's own.
  void Use(std::uint16_t glyph);
  /// Thousandths of an em.
  int AdvanceOf(std::uint16_t glyph);

  /// The file of the font, cut down to the used letters; empty if that fails.
  std::string Subset() const;
  /// A name that PDF can write, the same for the same letters.
  std::string Name() const;
  /// What a descriptor tells, in thousandths of an em.
  int Ascent() const { return PerThousand(design.ascent()); }
  int Descent() const { return PerThousand(design.descent()); }
  int CapHeight() const { return PerThousand(design.capHeight()); }
  bool IsItalic() const { return design.style() != QFont::StyleNormal; }
  /// The value of the array `W`: the widths of the used letters.
  std::string Widths();
  /// A map from letters to the characters that they stand for, for who searches or copies.
  std::string ToUnicode() const;

 private:
  struct Letter {
    bool used = false;
    std::u32string characters;
    int advance = -1;  ///< not known yet
  };

  Letter& At(std::uint16_t glyph);
  int PerThousand(double designUnits) const;

  QRawFont design;  ///< at a size at which a design unit is a pixel
  Outlines kind = Outlines::None;
  int ownWeight = 0;            ///< what the font's file says; 0 if it doesn't
  std::vector<Letter> letters;  ///< by number
};

}  // namespace morvane
