#pragma once

#include <array>
#include <cstdint>

#include "drawing/DrawingTools.h"

namespace morvane {

// The colours and pen styles that a line can have. Model texts and settings hold indices into these
// tables, so their order is fixed.

inline constexpr std::array<COLORREF, 16> kLineColours = {
    RGB(128, 0, 0),     RGB(0, 0, 0),       RGB(255, 255, 255), RGB(0, 128, 0),
    RGB(128, 128, 0),   RGB(0, 0, 128),     RGB(128, 0, 128),   RGB(0, 128, 128),
    RGB(192, 192, 192), RGB(128, 128, 128), RGB(255, 0, 0),     RGB(0, 255, 0),
    RGB(255, 255, 0),   RGB(0, 0, 255),     RGB(255, 0, 255),   RGB(0, 255, 255)};

inline constexpr std::array<PenStyle, 5> kLineStyles = {
    PenStyle::Dot, PenStyle::Dash, PenStyle::DashDot, PenStyle::DashDotDot, PenStyle::Solid};

/// The pen of a line, one device pixel wide. An index outside its table counts as 0.
CPen MakeLinePen(std::int32_t styleIndex, std::int32_t colourIndex);

}  // namespace morvane
