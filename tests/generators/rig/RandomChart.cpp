#include "tests/generators/rig/RandomChart.h"

#include <algorithm>
#include <array>
#include <sstream>

#include "model/ModelProperties.h"
#include "model/ModelStream.h"

namespace morvane {

namespace {

constexpr int kSmall = 4;  ///< side of a mark and gap between states, model units

constexpr std::array kTitles = {"Idle",  "Run",   "class", "Switch On", "2nd", "Wait",
                                "int",   "State", "final", "Öffnen",    "a-b", "default",
                                "Event", "Start", "Error", "Fast"};
constexpr std::array kGuards = {"n % 2 == 0",       "n % 3 == 1",    "n > 20 && m < 3",
                                "n < 50 || m == 1", "!(n % 4 == 0)", "(n + m) % 5 != 2",
                                "n >= 10"};
constexpr std::array kStatements = {"n = (n + 1) % 1000;",
                                    "n = (n * 5 + 3) % 1000;",
                                    "n = n + 7 * m;\nn = n % 1000;",
                                    "if (n > 500) { n = 3; }",
                                    "m = 0;",
                                    "n = (n + 11) % 1000; // \"text\""};

std::string Id(std::int32_t id) { return std::to_string(id); }

std::string Block(const std::string& text) {
  std::string stored;
  for (const char c : text) stored += c == '\n' ? std::string("\r\n") : std::string(1, c);
  std::ostringstream out;
  WriteTextBlock(out, stored, "TEXTBEGIN", "TEXTEND");
  return out.str();
}

std::string Rect(int left, int top, int width, int height) {
  return Id(left) + ' ' + Id(top) + ' ' + Id(left + width) + ' ' + Id(top + height) + '\n';
}

std::string Mark(const std::string& keyword, std::int32_t id, int left, int top) {
  return "BEGIN " + keyword + ' ' + Id(id) + '\n' + Id(id) + " 10\n" +
         Rect(left, top, kSmall, kSmall) + "1\n" + keyword + '\n';
}

}  // namespace

RandomChart::RandomChart(std::uint32_t seed) : engine(seed) {
  eventCount = 2 + Below(5);
  AddStates(-1, 0);
  AddInitial(-1);
  for (int i = 0; i < static_cast<int>(boxes.size()); ++i) {
    if (!BoxAt(i).inner.empty() && BoxAt(i).initialId == 0 && BoxAt(i).entered) AddInitial(i);
  }
  for (int i = 0; i < static_cast<int>(boxes.size()); ++i) {
    if (!BoxAt(i).isFinal && BoxAt(i).inner.empty()) BoxAt(i).waits = Chance(75);
  }
  for (int i = 0; i < static_cast<int>(boxes.size()); ++i) {
    if (!BoxAt(i).isFinal) AddArrows(i);
  }
  Place(-1, kSmall, kSmall);
}

int RandomChart::Below(int limit) {
  return static_cast<int>(engine() % static_cast<std::uint32_t>(limit));
}

bool RandomChart::Chance(int percent) { return Below(100) < percent; }

std::string RandomChart::Title() {
  std::string title = kTitles[static_cast<std::size_t>(Below(kTitles.size()))];
  if (Chance(50)) title += std::to_string(Below(30));
  return title;
}

int RandomChart::AddBox(int parent) {
  const int index = static_cast<int>(boxes.size());
  Box box;
  box.id = ++lastId;
  box.parent = parent;
  box.title = Title();
  boxes.push_back(std::move(box));
  if (parent == -1) {
    outermost.push_back(index);
  } else {
    BoxAt(parent).inner.push_back(index);
  }
  return index;
}

void RandomChart::AddFinal(int parent) { BoxAt(AddBox(parent)).isFinal = true; }

void RandomChart::AddStates(int parent, int depth) {
  const int count = 1 + Below(depth == 0 ? 5 : 3);
  for (int i = 0; i < count; ++i) {
    const int made = AddBox(parent);
    if (Chance(60)) BoxAt(made).entry = Statements();
    if (Chance(50)) BoxAt(made).exit = Statements();
    if (depth >= 3 || !Chance(45)) continue;
    AddStates(made, depth + 1);
    Box& composite = BoxAt(made);
    composite.history = Chance(35);
    composite.entered = composite.history || Chance(90);
    // Whatever a history can bring back needs a beginning.
    for (const int inner : std::vector<int>(composite.inner)) {
      if (BoxAt(made).history) BoxAt(inner).entered = true;
    }
  }
  if (Chance(depth == 0 ? 30 : 45)) AddFinal(parent);
}

int RandomChart::AnyInside(int parent) {
  const std::vector<int>& inside = parent == -1 ? outermost : BoxAt(parent).inner;
  const int chosen = inside[static_cast<std::size_t>(Below(static_cast<int>(inside.size())))];
  const Box& box = BoxAt(chosen);
  // An end right at the beginning makes a dull chart.
  if (box.isFinal && parent == -1) return AnyInside(parent);
  if (!box.inner.empty() && (!box.entered || Chance(25))) return AnyInside(chosen);
  return chosen;
}

void RandomChart::AddInitial(int parent) {
  const std::int32_t mark = ++lastId;
  (parent == -1 ? chartInitialId : BoxAt(parent).initialId) = mark;
  Arrow arrow;
  arrow.source = mark;
  arrow.target = BoxAt(AnyInside(parent)).id;
  arrow.hasMessage = parent == -1 || Chance(50);
  arrow.event = Chance(50) ? "-Edit-" : "";
  if (arrow.hasMessage) arrow.effect = parent == -1 ? "n = 1; m = 0;" : Statements();
  Add(std::move(arrow));
}

void RandomChart::Add(Arrow arrow) {
  arrow.id = ++lastId;
  if (arrow.hasMessage) ++lastId;
  arrows.push_back(std::move(arrow));
}

int RandomChart::AnyTarget() {
  for (;;) {
    const int target = Below(static_cast<int>(boxes.size()));
    const Box& box = BoxAt(target);
    if (!box.inner.empty() && !box.entered) continue;
    if (box.isFinal && box.parent == -1 && !Chance(10)) continue;
    return target;
  }
}

std::string RandomChart::Events(int source, bool guarded) {
  std::string events;
  const int count = Chance(25) ? 2 : 1;
  for (int i = 0; i < count; ++i) {
    const std::string event = "E" + std::to_string(Below(eventCount));
    if (!guarded && !unguarded.insert({source, event}).second) continue;
    if (events.find(event) != std::string::npos) continue;
    events += (events.empty() ? "" : ", ") + event;
  }
  return events;
}

std::string RandomChart::Guard() {
  return kGuards[static_cast<std::size_t>(Below(kGuards.size()))];
}

std::string RandomChart::Statements() {
  std::string text = kStatements[static_cast<std::size_t>(Below(kStatements.size()))];
  // An entry or exit would let a run without events begin again.
  if (text == "m = 0;") text = "m = m + 1;";
  return text;
}

void RandomChart::AddEventArrow(int source) {
  Arrow arrow;
  arrow.source = BoxAt(source).id;
  arrow.target = BoxAt(Chance(12) ? source : AnyTarget()).id;
  if (!BoxAt(source).inner.empty() && !BoxAt(source).entered && arrow.target == arrow.source)
    return;
  const bool guarded = Chance(45);
  arrow.event = Events(source, guarded);
  if (arrow.event.empty()) return;
  arrow.hasMessage = true;
  if (guarded) arrow.guard = Guard();
  if (Chance(50)) arrow.effect = Chance(40) ? "m = 0;" : Statements();
  Add(std::move(arrow));
}

void RandomChart::AddBoundedArrow(int source) {
  Arrow arrow;
  arrow.source = BoxAt(source).id;
  arrow.target = BoxAt(AnyTarget()).id;
  arrow.hasMessage = true;
  arrow.guard = "m < " + std::to_string(1 + Below(4));
  arrow.effect = "m = m + 1;";
  const bool followed = Chance(40);
  Add(std::move(arrow));
  if (!followed) return;
  std::vector<int> quiet;
  for (int i = 0; i < static_cast<int>(boxes.size()); ++i) {
    const Box& box = BoxAt(i);
    if (box.inner.empty() && !box.isFinal && box.waits) quiet.push_back(i);
  }
  if (quiet.empty()) return;
  Arrow other;
  other.source = BoxAt(source).id;
  other.target = BoxAt(quiet[static_cast<std::size_t>(Below(static_cast<int>(quiet.size())))]).id;
  other.hasMessage = Chance(50);
  Add(std::move(other));
}

void RandomChart::AddArrows(int source) {
  const int count = 1 + Below(4);
  for (int i = 0; i < count; ++i) AddEventArrow(source);
  const Box& box = BoxAt(source);
  const bool completes =
      std::ranges::any_of(box.inner, [this](int inner) { return BoxAt(inner).isFinal; });
  if (completes ? Chance(70) : box.inner.empty() && !box.waits) AddBoundedArrow(source);
}

void RandomChart::Measure(int index) {
  Box& box = BoxAt(index);
  if (box.isFinal) {
    box.width = box.height = kSmall;
    return;
  }
  int width = kSmall + (box.initialId == 0 ? 0 : 2 * kSmall);
  int height = 4 * kSmall;
  for (const int inner : box.inner) {
    Measure(inner);
    width += BoxAt(inner).width + kSmall;
    height = std::max(height, BoxAt(inner).height + 3 * kSmall);
  }
  box.width = std::max(width, 3 * kSmall);
  box.height = height;
}

void RandomChart::Place(int parent, int left, int top) {
  const std::vector<int>& inside = parent == -1 ? outermost : BoxAt(parent).inner;
  int x = left + 2 * kSmall;
  if (parent != -1 && BoxAt(parent).initialId == 0) x = left;
  for (const int index : inside) {
    if (parent == -1) Measure(index);
    Box& box = BoxAt(index);
    box.left = x;
    box.top = top;
    x += box.width + kSmall;
    Place(index, box.left + kSmall, box.top + 2 * kSmall);
  }
}

std::string RandomChart::Record(const Box& box) const {
  if (box.isFinal) return Mark("FinalState", box.id, box.left, box.top);
  std::string text = "BEGIN GenericState " + Id(box.id) + '\n' + Id(box.id) + " 10\n" +
                     Rect(box.left, box.top, box.width, box.height) + "1\n" + box.title + '\n' +
                     (box.history ? '1' : '0') + " 16777215 0\n" + Block(box.entry) +
                     Block(box.exit);
  if (box.initialId != 0) {
    text += Mark("InitialState", box.initialId, box.left + 2, box.top + 2 * kSmall);
  }
  return text;
}

std::string RandomChart::Record(const Arrow& arrow) const {
  std::string text = "BEGIN Transition " + Id(arrow.id) + '\n' + Id(arrow.id) + " 40\n0 0 0 0\n" +
                     Id(arrow.source) + ' ' + Id(arrow.target) +
                     "\n1 1 1 1\n2 0 0 0 1 \n3 0 1 0 2 \n";
  if (!arrow.hasMessage) return text;
  const std::string message = Id(arrow.id + 1);
  return text + "BEGIN Mesg " + message + '\n' + message + " 20\n0 0 10 6\n1\n0 0 0 0\n" +
         Id(arrow.id) + '\n' + arrow.event + '\n' + arrow.guard + '\n' + Block(arrow.effect);
}

std::string RandomChart::ModelText(const std::string& className) const {
  std::string text =
      "9999 4 1\n6\nBEGIN DATA\n" + Mark("InitialState", chartInitialId, kSmall, kSmall);
  for (const Box& box : boxes) text += Record(box);
  for (const Arrow& arrow : arrows) text += Record(arrow);
  text += "END DATA\n";
  ModelProperties properties;
  properties.ModelName = className;
  properties.CppClassName = properties.JavaClassName = properties.CSharpClassName = className;
  properties.CppIncludeFile = className + ".h";
  properties.CDeclarations = "static int n;\r\nstatic int m;";
  properties.CppDeclarations = properties.JavaDeclarations = "int n = 0;\r\nint m = 0;";
  properties.CSharpDeclarations = "public int n = 0;\r\npublic int m = 0;";
  std::ostringstream out;
  ModelStream stream(out);
  properties.Write(stream);
  return text + out.str();
}

}  // namespace morvane
