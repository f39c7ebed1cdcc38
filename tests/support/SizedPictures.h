#pragma once

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

#include "drawing/CMetaFileDC.h"
#include "drawing/NullDC.h"
#include "platform/Pictures.h"
#include "platform/UseService.h"

namespace morvane {

/// Makes pictures that tell their size, and whether they are as on paper, without handles and
/// anchors.
class SizedPictures : public Pictures {
 public:
  std::unique_ptr<CDC> ReferenceDC() override { return std::make_unique<NullDC>(); }
  std::optional<std::string> MakePng(SIZE size, const PngForm& form, const Paint& paint) override {
    return Make({static_cast<int>(std::ceil(size.cx * form.scale)),
                 static_cast<int>(std::ceil(size.cy * form.scale))},
                paint);
  }
  std::optional<std::string> MakePdf(SIZE size, const PictureInfo& /*info*/,
                                     const Paint& paint) override {
    return Make(size, paint);
  }

  int limit = 30000;  ///< of a side; a larger picture isn't made

 private:
  std::optional<std::string> Make(SIZE size, const Paint& paint) const {
    if (size.cx > limit || size.cy > limit) return std::nullopt;
    NullDC reference;
    CMetaFileDC dc(reference);
    paint(dc);
    const Metafile drawn = dc.Close();
    const bool marked = std::ranges::any_of(drawn.records, [](const Metafile::Record& record) {
      return record.kind == Metafile::Kind::FillMask ||
             (record.kind == Metafile::Kind::FillRect && record.brush == CBrush::Solid(0));
    });
    return std::to_string(size.cx) + "x" + std::to_string(size.cy) + (marked ? "" : " printed");
  }
  const UseService<Pictures> use{*this};
};

}  // namespace morvane
