#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "connectors/ChainRecord.h"

namespace morvane {

/// Points written "x,y x,y".
inline std::vector<POINT> Points(const std::string& text) {
  std::vector<POINT> points;
  std::istringstream in(text);
  char comma = 0;
  for (POINT p; in >> p.x >> comma >> p.y;) points.push_back(p);
  return points;
}

inline std::string Text(const std::vector<POINT>& points) {
  std::string text;
  for (const POINT p : points) {
    text += (text.empty() ? "" : " ") + std::to_string(p.x) + "," + std::to_string(p.y);
  }
  return text;
}

/// The links of a sound route by its corners, anchors included.
inline std::vector<ChainRecord> Chain(const std::string& corners) {
  const std::vector<POINT> points = Points(corners);
  std::vector<ChainRecord> records{{LINK_HEAD, points[0], points[1]}};
  for (std::size_t i = 1; i + 2 < points.size(); ++i) {
    const bool level = points[i].y == points[i + 1].y;
    records.push_back({level ? LINK_H : LINK_V, points[i], points[i + 1]});
  }
  records.push_back({LINK_TAIL, points[points.size() - 2], points.back()});
  return records;
}

/// The same as the lines of a chart's text.
inline std::string LinkLines(const std::string& corners) {
  std::ostringstream lines;
  for (const auto& [kind, start, end] : Chain(corners)) {
    lines << kind << ' ' << start.x << ' ' << start.y << ' ' << end.x << ' ' << end.y << " \n";
  }
  return lines.str();
}

/// The corners of a sound route; else its links one by one, each as "kind:start end".
inline std::string Corners(const std::vector<ChainRecord>& records) {
  std::vector<POINT> points;
  for (const ChainRecord& record : records) points.push_back(record.start);
  if (!records.empty()) points.push_back(records.back().end);
  if (points.size() > 2 && Chain(Text(points)) == records) return Text(points);
  std::string text;
  for (const ChainRecord& record : records) {
    text += std::to_string(record.kind) + ":" + Text({record.start, record.end}) + " ";
  }
  return text;
}

}  // namespace morvane
