#include "layout/DotLayout.h"

#include <algorithm>
#include <cmath>
#include <gvc.h>
#include <string>

#include "layout/GridLayout.h"

/// The plugin with the engine, which is linked: nothing is looked up in files when it runs.
extern "C" gvplugin_library_t gvplugin_dot_layout_LTX_library;

namespace morvane {

namespace {

/// The engine's point and inch; a model unit is as large as it is on the screen.
constexpr double kPointsInUnit = 6.0;
constexpr double kPointsInInch = 72.0;
/// The engine tries for so long to find better places; 1 is for as many rounds as there are boxes.
constexpr const char* kRounds = "4";
constexpr const char* kFewRounds = "0.5";
constexpr std::size_t kManyBoxes = 60;

/// Its functions take texts that they don't change as texts that they may.
char* Mutable(const char* text) { return const_cast<char*>(text); }

int HearNothing(char* /*message*/) { return 0; }

std::string Inches(std::int32_t units) {
  return std::to_string(static_cast<double>(units) * kPointsInUnit / kPointsInInch);
}

/// What the engine needs to know of each run; it is freed with the object.
class DotRun {
 public:
  DotRun() {
    agseterrf(HearNothing);
    context = gvContextPlugins(nullptr, 0);
    if (context != nullptr) gvAddLibrary(context, &gvplugin_dot_layout_LTX_library);
    graph = agopen(Mutable("level"), Agdirected, nullptr);
  }
  ~DotRun() {
    if (laidOut) gvFreeLayout(context, graph);
    agclose(graph);
    if (context != nullptr) gvFreeContext(context);
  }
  DotRun(const DotRun&) = delete;
  DotRun& operator=(const DotRun&) = delete;

  bool Lay(const LevelGraph& level, DotLayout::Flow flow);
  Placement Places(const LevelGraph& level) const;

 private:
  void SetGraph(const LevelGraph& level, DotLayout::Flow flow);
  void AddBoxes(const LevelGraph& level);
  void AddEdges(const LevelGraph& level);

  GVC_t* context = nullptr;
  Agraph_t* graph = nullptr;
  std::vector<Agnode_t*> nodes;
  bool laidOut = false;
};

void DotRun::SetGraph(const LevelGraph& level, DotLayout::Flow flow) {
  const auto set = [this](const char* name, const char* value) {
    agattr(graph, AGRAPH, Mutable(name), Mutable(value));
  };
  const char* rounds = level.sizes.size() > kManyBoxes ? kFewRounds : kRounds;
  set("rankdir", flow == DotLayout::Flow::Down ? "TB" : "LR");
  set("splines", "line");
  set("nodesep", "0.6");
  set("ranksep", "0.75");
  set("mclimit", rounds);
  set("nslimit", rounds);
  set("nslimit1", rounds);
}

void DotRun::AddBoxes(const LevelGraph& level) {
  agattr(graph, AGNODE, Mutable("shape"), Mutable("box"));
  agattr(graph, AGNODE, Mutable("label"), Mutable(""));
  agattr(graph, AGNODE, Mutable("fixedsize"), Mutable("true"));
  Agsym_t* width = agattr(graph, AGNODE, Mutable("width"), Mutable("1"));
  Agsym_t* height = agattr(graph, AGNODE, Mutable("height"), Mutable("1"));
  for (std::size_t i = 0; i < level.sizes.size(); ++i) {
    Agnode_t* node = agnode(graph, Mutable(std::to_string(i).c_str()), 1);
    agxset(node, width, Mutable(Inches(level.sizes[i].cx).c_str()));
    agxset(node, height, Mutable(Inches(level.sizes[i].cy).c_str()));
    nodes.push_back(node);
  }
}

void DotRun::AddEdges(const LevelGraph& level) {
  Agsym_t* label = agattr(graph, AGEDGE, Mutable("label"), Mutable(""));
  int number = 0;
  for (const LayoutEdge& edge : level.edges) {
    Agedge_t* made = agedge(graph, nodes[edge.from], nodes[edge.to],
                            Mutable(std::to_string(number++).c_str()), 1);
    if (edge.label.cx <= 0) continue;
    // An empty table of the size: no font of the engine has to know how large a text is.
    const auto points = [](std::int32_t units) {
      return std::to_string(static_cast<int>(units * kPointsInUnit));
    };
    const std::string table =
        "<TABLE BORDER=\"0\" CELLBORDER=\"0\" CELLSPACING=\"0\" FIXEDSIZE=\"TRUE\" WIDTH=\"" +
        points(edge.label.cx) + "\" HEIGHT=\"" + points(edge.label.cy) +
        "\"><TR><TD></TD></TR></TABLE>";
    char* text = agstrdup_html(graph, Mutable(table.c_str()));
    agxset(made, label, text);
    agstrfree(graph, text);
  }
}

bool DotRun::Lay(const LevelGraph& level, DotLayout::Flow flow) {
  if (context == nullptr) return false;
  SetGraph(level, flow);
  AddBoxes(level);
  AddEdges(level);
  laidOut = gvLayout(context, graph, "dot") == 0;
  return laidOut;
}

Placement DotRun::Places(const LevelGraph& level) const {
  Placement placed;
  // The engine counts from below.
  const double top = GD_bb(graph).UR.y;
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    const auto& middle = ND_coord(nodes[i]);
    // The middles are rounded, so that what stands in line stays in line.
    const auto x = static_cast<std::int32_t>(std::lround(middle.x / kPointsInUnit));
    const auto y = static_cast<std::int32_t>(std::lround((top - middle.y) / kPointsInUnit));
    placed.corners.push_back(
        {std::max(x - level.sizes[i].cx / 2, 0), std::max(y - level.sizes[i].cy / 2, 0)});
  }
  placed.size = {static_cast<std::int32_t>(std::lround(GD_bb(graph).UR.x / kPointsInUnit)),
                 static_cast<std::int32_t>(std::lround(top / kPointsInUnit))};
  const SIZE least = ExtentOf(level.sizes, placed.corners);
  placed.size = {std::max(placed.size.cx, least.cx), std::max(placed.size.cy, least.cy)};
  return placed;
}

}  // namespace

std::optional<Placement> DotLayout::Lay(const LevelGraph& graph, Flow flow) {
  DotRun run;
  if (!run.Lay(graph, flow)) return {};
  return run.Places(graph);
}

}  // namespace morvane
