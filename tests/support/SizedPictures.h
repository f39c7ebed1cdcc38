#pragma once

#include <optional>
#include <string>

#include "drawing/CNullDC.h"
#include "platform/Pictures.h"
#include "platform/UseService.h"

/// Makes pictures that tell their size, and whether they were painted as on paper.
class SizedPictures : public Pictures {
 public:
  std::unique_ptr<CDC> ReferenceDC() override { return std::make_unique<CNullDC>(); }
  std::optional<std::string> MakePng(SIZE size, const Paint& paint) override {
    return Make(size, paint);
  }
  std::optional<std::string> MakePdf(SIZE size, const Paint& paint) override {
    return Make(size, paint);
  }

  int limit = 30000;  ///< of a side; a larger picture isn't made

 private:
  std::optional<std::string> Make(SIZE size, const Paint& paint) const {
    if (size.cx > limit || size.cy > limit) return std::nullopt;
    CNullDC dc;
    paint(dc);
    return std::to_string(size.cx) + "x" + std::to_string(size.cy) +
           (dc.IsPrinting() ? " printed" : "");
  }
  const UseService<Pictures> use{*this};
};
