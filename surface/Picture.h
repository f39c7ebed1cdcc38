#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "drawing/Geometry.h"
#include "drawing/PictureInfo.h"
#include "platform/PictureOptions.h"
#include "platform/Pictures.h"

namespace morvane {

class CDC;

/// Something painted that can be written as a file of several kinds.
class Picture {
 public:
  /// The longest side of an SVG or EMF file, logical units.
  static constexpr std::int32_t kMaxSide = 1'000'000;

  struct FileKind {
    std::string_view extension;  ///< ".png"
    std::string_view filter;     ///< its name in a file dialog, in English
    bool hasGround;              ///< it is white behind what is drawn, unless it is transparent
  };
  /// What a picture can be written as, the first choice first.
  static std::span<const FileKind> FileKinds();
  /// The kind that the extension of a path names; null for any other extension.
  static const FileKind* KindOf(std::string_view path);

  virtual ~Picture() = default;
  Picture(const Picture&) = delete;
  Picture& operator=(const Picture&) = delete;

  /// Logical units.
  SIZE Size() const { return size; }
  /// What the picture is called, who made it and where is what.
  virtual PictureInfo About() const { return {}; }
  /// How large and on what the picture is made from now on.
  void SetForm(const PictureOptions& options) { form = options; }
  /// Who is told how far a PNG is; see `Pictures::Progress`.
  void SetProgress(Pictures::Progress told) { progress = std::move(told); }
  /// Paints the picture with its top left corner at the origin that the context has.
  virtual void Paint(CDC& dc) const = 0;

  // The bytes of the picture in each form. A metafile and an SVG text can always be made.
  std::string MakeEmf() const;
  std::string MakeSvg() const;
  /// Nothing if the picture is too large for a PNG, or for a page, or if a PNG was given up.
  std::optional<std::string> MakePng() const;
  std::optional<std::string> MakePdf() const;
  /// The bytes of a file of that kind; nothing if the picture is too large for it.
  std::optional<std::string> MakeFile(const FileKind& kind) const;

  /// Writes a file of the kind that its extension names. Gives the reason of a failure, which
  /// leaves whatever was there as it was; empty on success.
  std::string Save(const std::string& path) const;

 protected:
  Picture() = default;

  POINT origin;  ///< where on what is painted the picture begins, logical units
  SIZE size;
  /// A metafile is as large as the picture; else it ends where nothing more is drawn.
  bool framed = false;

 private:
  PictureInfo Info() const;

  PictureOptions form;
  Pictures::Progress progress;
};

}  // namespace morvane
