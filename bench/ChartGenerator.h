#pragma once

#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "drawing/Geometry.h"

namespace morvane {

/// Writes model texts of a wanted size, always the same for the same size. A chart is a carpet of
/// blocks: in each, eight states in two rows, six transitions between neighbours, four messages on
/// their labels, and a note tied to a state by a line.
class ChartGenerator {
 public:
  static constexpr int kObjectsInBlock = 20;

  /// A chart of `objects`, raised to whole blocks.
  static std::string Make(int objects);
  /// Only those blocks of such a chart that reach into `visible`, model units.
  static std::string MakeVisible(int objects, const RECT& visible);

 private:
  ChartGenerator() = default;

  static RECT BlockRect(int index);
  void AddBlock(int index);
  int AddState(POINT topLeft);
  int AddAcross(int from, int to, POINT fromTopLeft);
  int AddDown(int from, int to, POINT fromTopLeft);
  void AddMesg(int transition, POINT centre);
  void AddNoteWithLine(int state, POINT stateTopLeft);
  int Begin(const char* keyword, int layer);
  std::string Finish();

  std::ostringstream text;
  int lastId = 0;
};

}  // namespace morvane
