#include "tests/support/Charts.h"

#include <sstream>

#include "drawing/CMetaFileDC.h"
#include "drawing/NullDC.h"
#include "model/ModelMgr.h"
#include "model/ModelStream.h"
#include "surface/LayoutMgr.h"

namespace morvane {

namespace {

std::string RectLine(const RECT& r) {
  std::ostringstream out;
  out << r.left << ' ' << r.top << ' ' << r.right << ' ' << r.bottom << '\n';
  return out.str();
}

std::string Head(const std::string& keyword, int id, int layer) {
  const std::string number = std::to_string(id);
  return "BEGIN " + keyword + " " + number + "\n" + number + " " + std::to_string(layer) + "\n";
}

}  // namespace

std::string Block(const std::string& text) {
  std::ostringstream out;
  WriteTextBlock(out, text, "TEXTBEGIN", "TEXTEND");
  return out.str();
}

std::string StateRecord(int id, const RECT& rect, const std::string& name,
                        const std::string& entry) {
  return Head("GenericState", id, 10) + RectLine(rect) + "1\n" + name + "\n0 12582911 0\n" +
         Block(entry) + Block("");
}

std::string InitialRecord(int id, const RECT& rect) {
  return Head("InitialState", id, 10) + RectLine(rect) + "1\nInitialState\n";
}

std::string TransitionRecord(int id, int source, int target, const std::string& keys,
                             const std::string& links) {
  return Head("Transition", id, 40) + "22 10 22 18\n" + std::to_string(source) + " " +
         std::to_string(target) + "\n" + keys + "\n" + links;
}

std::string MesgRecord(int id, int transition, const RECT& rect, const std::string& event) {
  return Head("Mesg", id, 20) + RectLine(rect) + "1\n1 1 16777215 65280\n" +
         std::to_string(transition) + "\n" + event + "\n\n" + Block("");
}

std::string NoteRecord(int id, const RECT& rect, const std::string& block) {
  return Head("Note", id, 50) + RectLine(rect) + "1\n0 0 8454143 128\n" + block;
}

std::string LineRecord(int id, int start, int end, const std::string& keys) {
  return Head("Line", id, 50) + "40 40 60 60\n" + std::to_string(start) + " " +
         std::to_string(end) + "\n" + keys + "\n0 0\n";
}

std::string DefaultProperties() {
  const auto block = [](const std::string& tag) {
    return "0\n" + tag + " BEGIN\n\n" + tag + " END\n";
  };
  return "Untitled\nContext\nContext.h\n\n" + block("INCLUDE") + block("DECL") + "Untitled\n" +
         block("DESC") + block("INCLUDE") + block("DECL") + "Context\n\n" + block("DECL") +
         "Context\n\n" + block("DECL");
}

std::string ChartText(const std::string& records, const std::string& header,
                      const std::string& zoom) {
  return header + "\n" + zoom + "\nBEGIN DATA\n" + records + "END DATA\n" + DefaultProperties();
}

std::string SmallChart() {
  return ChartText(InitialRecord(101, {20, 10, 24, 14}) + StateRecord(102, {17, 24, 27, 32}) +
                   TransitionRecord(103, 101, 102) +
                   NoteRecord(104, {40, 10, 52, 16}, Block("Two\r\nlines")));
}

std::unique_ptr<LayoutMgr> LoadChart(const std::string& text) {
  auto chart = std::make_unique<LayoutMgr>();
  std::istringstream in(text);
  ModelStream stream(in);
  stream >> *chart;
  chart->PlaceWithoutWindow(LayoutMgr::Size::Stored);
  return chart;
}

Shape* FindShape(const LayoutMgr& chart, int id) { return chart.GetModel().Find(id); }

Metafile PaintOnScreen(Shape& shape) {
  NullDC reference;
  CMetaFileDC dc(reference);
  shape.DrawOnScreen(dc);
  return dc.Close();
}

}  // namespace morvane
