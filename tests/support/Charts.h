#pragma once

#include <memory>
#include <string>
#include <vector>

#include "drawing/Geometry.h"
#include "drawing/Metafile.h"

namespace morvane {

class LayoutMgr;
class Shape;

// Model texts for tests, with LF line ends as in memory.

/// A chart with an initial state, a state, the transition between them and a note.
std::string SmallChart();
/// A whole text around some records.
std::string ChartText(const std::string& records, const std::string& header = "9999 4 1",
                      const std::string& zoom = "6");
/// The section behind "END DATA" as a new chart has it.
std::string DefaultProperties();

std::string StateRecord(int id, const RECT& rect, const std::string& name = "State",
                        const std::string& entry = "");
std::string InitialRecord(int id, const RECT& rect);
/// A transition whose link lines are given as they stand, each with its line end; down from one
/// state to another below it if nothing is said.
std::string TransitionRecord(int id, int source, int target, const std::string& keys = "3 1 1 2",
                             const std::string& links =
                                 "2 22 14 22 15 \n0 22 15 22 23 \n"
                                 "3 22 23 22 24 \n");
std::string MesgRecord(int id, int transition, const RECT& rect, const std::string& event = "e");
std::string NoteRecord(int id, const RECT& rect, const std::string& block);
std::string LineRecord(int id, int start, int end, const std::string& keys);
/// A text block as the writer makes it.
std::string Block(const std::string& text);

/// Reads a text into a chart without a window and places it; throws what the reader throws.
std::unique_ptr<LayoutMgr> LoadChart(const std::string& text);
/// The object with that id, as the class `Made`; null if it is none.
Shape* FindShape(const LayoutMgr& chart, int id);
template <class Made>
Made* Find(const LayoutMgr& chart, int id) {
  return dynamic_cast<Made*>(FindShape(chart, id));
}

/// What a window shows of a shape.
Metafile PaintOnScreen(Shape& shape);
}  // namespace morvane
