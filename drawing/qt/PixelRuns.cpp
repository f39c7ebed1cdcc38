#include "drawing/qt/PixelRuns.h"

#include <algorithm>
#include <cmath>

namespace morvane {

namespace {

double RoundHalfUp(double v) { return std::floor(v + 0.5); }

}  // namespace

PixelRuns::PixelRuns(const QRect& visible, int thickness, std::span<const int> dash)
    : visible(visible), thickness(thickness), dash(dash) {
  for (const int length : dash) dashTotal += length;
}

void PixelRuns::AddLine(QPointF from, QPointF to) {
  const double dx = to.x() - from.x();
  const double dy = to.y() - from.y();
  Line line;
  line.alongX = std::abs(dx) >= std::abs(dy);
  const double length = line.alongX ? std::abs(dx) : std::abs(dy);
  if (length < 1) return;
  line.back = (line.alongX ? dx : dy) < 0;
  // Going back, a thick line begins at the far side of its first block.
  line.major = (line.alongX ? from.x() : from.y()) + (line.back ? thickness - 1 : 0);
  line.minor = line.alongX ? from.y() : from.x();
  line.slope = (line.alongX ? dy : dx) / length;

  const double low = line.alongX ? visible.left() : visible.top();
  const double high = line.alongX ? visible.right() : visible.bottom();
  double first = line.back ? line.major - high : low - line.major;
  double last = line.back ? line.major - low : high - line.major;
  const double minorLow = (line.alongX ? visible.top() : visible.left()) - thickness - 1;
  const double minorHigh = (line.alongX ? visible.bottom() : visible.right()) + 1;
  bool hidden = false;
  if (line.slope == 0) {
    hidden = line.minor < minorLow || line.minor > minorHigh;
  } else {
    const double a = (minorLow - line.minor) / line.slope;
    const double b = (minorHigh - line.minor) / line.slope;
    first = std::max(first, std::floor(std::min(a, b)));
    last = std::min(last, std::ceil(std::max(a, b)));
  }
  first = std::max(first, 0.0);
  last = std::min(last, length - 1);
  if (!hidden && first <= last) {
    AddDashes(line, static_cast<std::int64_t>(first), static_cast<std::int64_t>(last) + 1);
  }
  if (dashTotal > 0) phase = (phase + static_cast<std::int64_t>(length)) % dashTotal;
}

void PixelRuns::AddDashes(const Line& line, std::int64_t from, std::int64_t to) {
  if (dashTotal <= 0) {
    AddSpan(line, from, to);
    return;
  }
  std::int64_t place = (phase + from) % dashTotal;
  std::size_t index = 0;
  while (place >= dash[index]) place -= dash[index++];
  while (from < to) {
    const std::int64_t end = std::min(to, from + dash[index] - place);
    if (index % 2 == 0) AddSpan(line, from, end);
    from = end;
    place = 0;
    index = (index + 1) % dash.size();
  }
}

void PixelRuns::AddSpan(const Line& line, std::int64_t from, std::int64_t to) {
  // The middle of a thick line runs from the middle of its first block.
  const double ahead = (thickness - 1) / 2.0;
  const auto minorAt = [&](std::int64_t i) {
    return line.minor + RoundHalfUp((static_cast<double>(i) - ahead) * line.slope);
  };
  if (line.slope == 0) {
    AddRect(line, from, to, line.minor);
    return;
  }
  std::int64_t start = from;
  double minor = minorAt(from);
  for (std::int64_t i = from + 1; i < to; ++i) {
    const double next = minorAt(i);
    if (next == minor) continue;
    AddRect(line, start, i, minor);
    start = i;
    minor = next;
  }
  AddRect(line, start, to, minor);
}

void PixelRuns::AddRect(const Line& line, std::int64_t from, std::int64_t to, double minor) {
  const double begin =
      line.back ? line.major - static_cast<double>(to - 1) : line.major + static_cast<double>(from);
  const int length = static_cast<int>(to - from);
  const QRect r = line.alongX
                      ? QRect(static_cast<int>(begin), static_cast<int>(minor), length, thickness)
                      : QRect(static_cast<int>(minor), static_cast<int>(begin), thickness, length);
  if (r.intersects(visible)) rects.push_back(r);
}

}  // namespace morvane
