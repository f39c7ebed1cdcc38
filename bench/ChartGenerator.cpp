#include "bench/ChartGenerator.h"

namespace morvane {

namespace {

constexpr int kColumns = 4;
constexpr int kRows = 2;
constexpr int kPitch = 23;
constexpr int kBlocksAcross = 16;
constexpr POINT kMargin{4, 3};
constexpr SIZE kState{10, 8};
constexpr SIZE kMesg{10, 6};
constexpr SIZE kNote{12, 6};

constexpr int kStateLayer = 10;
constexpr int kMesgLayer = 20;
constexpr int kTransitionLayer = 40;
constexpr int kNoteLayer = 50;

std::string RectLine(POINT topLeft, SIZE size) {
  std::ostringstream line;
  line << topLeft.x << ' ' << topLeft.y << ' ' << topLeft.x + size.cx << ' ' << topLeft.y + size.cy
       << '\n';
  return line.str();
}

std::string Block(const std::string& content, const std::string& tag) {
  return std::to_string(content.size()) + "\n" + tag + "BEGIN\n" + content + "\n" + tag + "END\n";
}

}  // namespace

std::string ChartGenerator::Make(int objects) {
  constexpr RECT all{0, 0, INT32_MAX, INT32_MAX};
  return MakeVisible(objects, all);
}

std::string ChartGenerator::MakeVisible(int objects, const RECT& visible) {
  ChartGenerator chart;
  chart.text << "9999 4 1\n6\nBEGIN DATA\n";
  for (int i = 0; i * kObjectsInBlock < objects; ++i) {
    const RECT block = BlockRect(i);
    if (block.left < visible.right && block.top < visible.bottom && block.right > visible.left &&
        block.bottom > visible.top)
      chart.AddBlock(i);
  }
  return chart.Finish();
}

RECT ChartGenerator::BlockRect(int index) {
  const int left = index % kBlocksAcross * kColumns * kPitch;
  const int top = index / kBlocksAcross * kRows * kPitch;
  return {left, top, left + kColumns * kPitch, top + kRows * kPitch};
}

void ChartGenerator::AddBlock(int index) {
  const RECT block = BlockRect(index);
  const auto topLeft = [&](int column, int row) {
    return POINT{block.left + column * kPitch + kMargin.x, block.top + row * kPitch + kMargin.y};
  };
  int states[kRows][kColumns];
  for (int row = 0; row < kRows; ++row)
    for (int column = 0; column < kColumns; ++column)
      states[row][column] = AddState(topLeft(column, row));

  const POINT gapAcross{(kState.cx + kPitch) / 2, kState.cy / 2};
  const POINT gapDown{kState.cx / 2, (kState.cy + kPitch) / 2};
  for (int column = 0; column + 1 < kColumns; ++column) {
    const int made = AddAcross(states[0][column], states[0][column + 1], topLeft(column, 0));
    if (column != 1) AddMesg(made, topLeft(column, 0) + gapAcross);
  }
  AddAcross(states[1][0], states[1][1], topLeft(0, 1));
  for (const int column : {0, kColumns - 1})
    AddMesg(AddDown(states[0][column], states[1][column], topLeft(column, 0)),
            topLeft(column, 0) + gapDown);
  AddNoteWithLine(states[0][1], topLeft(1, 0));
}

int ChartGenerator::AddState(POINT topLeft) {
  const int id = Begin("GenericState", kStateLayer);
  text << RectLine(topLeft, kState) << "1\nState " << id << "\n0 12582911 0\n"
       << Block("Start();", "TEXT") << Block("", "TEXT");
  return id;
}

int ChartGenerator::AddAcross(int from, int to, POINT fromTopLeft) {
  const int id = Begin("Transition", kTransitionLayer);
  const int left = fromTopLeft.x + kState.cx;
  const int right = fromTopLeft.x + kPitch;
  const int y = fromTopLeft.y + kState.cy / 2;
  text << left << ' ' << y << ' ' << right << ' ' << y << '\n'
       << from << ' ' << to << "\n2 2 4 2\n"
       << "2 " << left << ' ' << y << ' ' << left + 1 << ' ' << y << " \n"
       << "1 " << left + 1 << ' ' << y << ' ' << right - 1 << ' ' << y << " \n"
       << "3 " << right - 1 << ' ' << y << ' ' << right << ' ' << y << " \n";
  return id;
}

int ChartGenerator::AddDown(int from, int to, POINT fromTopLeft) {
  const int id = Begin("Transition", kTransitionLayer);
  const int top = fromTopLeft.y + kState.cy;
  const int bottom = fromTopLeft.y + kPitch;
  const int x = fromTopLeft.x + kState.cx / 2;
  text << x << ' ' << top << ' ' << x << ' ' << bottom << '\n'
       << from << ' ' << to << "\n3 2 1 2\n"
       << "2 " << x << ' ' << top << ' ' << x << ' ' << top + 1 << " \n"
       << "0 " << x << ' ' << top + 1 << ' ' << x << ' ' << bottom - 1 << " \n"
       << "3 " << x << ' ' << bottom - 1 << ' ' << x << ' ' << bottom << " \n";
  return id;
}

void ChartGenerator::AddMesg(int transition, POINT centre) {
  const int id = Begin("Mesg", kMesgLayer);
  text << RectLine({centre.x - kMesg.cx / 2, centre.y - kMesg.cy / 2}, kMesg)
       << "1\n1 1 16777215 65280\n"
       << transition << "\nEvent" << id << "\nx > " << id << '\n'
       << Block("Run();", "TEXT");
}

void ChartGenerator::AddNoteWithLine(int state, POINT stateTopLeft) {
  constexpr int gap = 4;
  const POINT foot = stateTopLeft + POINT{kState.cx / 2, kState.cy};
  const POINT top{foot.x, foot.y + gap};
  const int note = Begin("Note", kNoteLayer);
  text << RectLine({top.x - kNote.cx / 2, top.y}, kNote) << "1\n0 0 8454143 128\n"
       << Block("Remember this", "TEXT");
  Begin("Line", kNoteLayer);
  text << top.x << ' ' << top.y << ' ' << foot.x << ' ' << foot.y << '\n'
       << note << ' ' << state << "\n1 2 3 2\n0 0\n";
}

int ChartGenerator::Begin(const char* keyword, int layer) {
  constexpr int firstId = 101;
  lastId = lastId == 0 ? firstId : lastId + 1;
  text << "BEGIN " << keyword << ' ' << lastId << '\n' << lastId << ' ' << layer << '\n';
  return lastId;
}

std::string ChartGenerator::Finish() {
  text << "END DATA\nCarpet\nContext\nContext.h\n\n"
       << Block("", "INCLUDE ") << Block("", "DECL ") << "Untitled\n"
       << Block("", "DESC ") << Block("", "INCLUDE ") << Block("", "DECL ") << "Context\n\n"
       << Block("", "DECL ") << "Context\n\n"
       << Block("", "DECL ");
  return std::move(text).str();
}

}  // namespace morvane
