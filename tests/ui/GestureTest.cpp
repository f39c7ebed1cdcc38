#include <deque>

#include "platform/qt/QtView.h"
#include "surface/ToolDrag.h"
#include "tests/support/Routes.h"
#include "tests/ui/WindowTest.h"

namespace morvane {

namespace {

/// The hand on a real view: a state with a message on its way to another one, a note and a line,
/// and beside them an initial state and a third one.
class GestureTest : public testing::Test {
 protected:
  GestureTest() {
    chart = LoadChart(ChartText(
        StateRecord(1, {10, 10, 30, 30}) + StateRecord(2, {60, 40, 80, 60}) +
        MesgRecord(4, 3, {100, 10, 110, 16}) + NoteRecord(5, {20, 70, 32, 76}, Block("note")) +
        LineRecord(6, 5, 1, "1 2 3 2") + InitialRecord(7, {101, 60, 105, 64}) +
        StateRecord(8, {102, 70, 112, 80}) +
        TransitionRecord(3, 1, 2, "2 2 4 2", LinkLines("30,20 31,20 45,20 45,50 59,50 60,50"))));
    widget = std::make_unique<QtView>(*chart);
    widget->resize(700, 600);
    widget->show();
    QApplication::processEvents();
    chart->ApplyZoom();
    chart->TakeSnapshot();
    QApplication::processEvents();
  }

  QWidget& Area() const { return *widget->viewport(); }
  void Post(QEvent::Type type, QPoint p, Qt::KeyboardModifiers keys = Qt::NoModifier) {
    PostMouse(Area(), type, p, Qt::LeftButton, keys);
  }
  void Press(QPoint p, Qt::KeyboardModifiers keys = Qt::NoModifier) {
    SendMouse(Area(), QEvent::MouseButtonPress, p, Qt::LeftButton, keys);
    QApplication::processEvents();
  }
  void Hover(QPoint p) { SendMouse(Area(), QEvent::MouseMove, p, Qt::NoButton); }

  QImage Now() const { return OnScreen(*widget); }
  QImage Repainted() {
    chart->Invalidate();
    chart->UpdateWindow();
    return Now();
  }
  void SelectObjects(const std::vector<int>& ids) {
    chart->GetModel().DeselectAll();
    for (const int id : ids) {
      chart->GetSelection().Add(FindShape(*chart, id));
      FindShape(*chart, id)->OnBroadcast(BROADCAST_SELECTED, nullptr);
    }
    QApplication::processEvents();
  }
  bool CanUndo() const { return chart->OnUpdateCommand(ID_EDIT_UNDO).enabled; }

  std::unique_ptr<LayoutMgr> chart;
  std::unique_ptr<QtView> widget;
};

/// A gesture of tests/golden/gestures.txt.
struct Gesture {
  std::string name;
  std::vector<int> selection;
  QPoint press;
  QPoint release;
  Qt::KeyboardModifiers keys;
  std::string changed;  ///< the lines of the model text that are new
  std::vector<int> selected;
  std::string feedback;  ///< what shows before the release: its box and the number of its pixels
};

std::vector<int> Numbers(const QString& text) {
  std::vector<int> numbers;
  for (const QString& word : text.split(QRegularExpression("[^-0-9]+"), Qt::SkipEmptyParts)) {
    numbers.push_back(word.toInt());
  }
  return numbers;
}

/// Takes over a line of a gesture; false if it is none.
bool Take(const QString& line, Gesture& gesture) {
  const QString verb = line.section(' ', 0, 0);
  const QString rest = line.section(' ', 1);
  if (verb == "select") {
    gesture.selection = Numbers(rest);
  } else if (verb == "drag") {
    const std::vector<int> way = Numbers(rest);
    gesture.press = {way.at(0), way.at(1)};
    gesture.release = {way.at(2), way.at(3)};
    gesture.keys.setFlag(Qt::ShiftModifier, rest.endsWith("with Shift"));
    gesture.keys.setFlag(Qt::ControlModifier, rest.endsWith("with Control"));
  } else if (verb == "meanwhile") {
    gesture.feedback = rest.toStdString();
  } else if (verb == "writes") {
    gesture.changed += rest.toStdString() + "\n";
  } else if (verb == "selects") {
    gesture.selected = Numbers(rest);
  } else {
    return false;
  }
  return true;
}

std::vector<Gesture> ReadGestures() {
  std::string text;
  EXPECT_TRUE(ReadWholeFile(MORVANE_SOURCE_DIR "/tests/golden/gestures.txt", text).Ok());
  std::vector<Gesture> gestures;
  for (const QString& line : QString::fromStdString(text).split('\n', Qt::SkipEmptyParts)) {
    if (line.startsWith('#')) continue;
    if (!line.startsWith("  ")) {
      gestures.emplace_back();
      gestures.back().name = line.toStdString();
    } else {
      EXPECT_TRUE(Take(line.mid(2), gestures.back())) << line.toStdString();
    }
  }
  return gestures;
}

class EachGesture : public GestureTest, public testing::WithParamInterface<Gesture> {
 protected:
  EachGesture() {
    SelectObjects(gesture.selection);
    before = chart->ModelText();
    Hover(gesture.press);
    atFirst = Now();
    QObject::connect(&pump, &QTimer::timeout, [this] { TakeStep(); });
  }
  void Step(QEvent::Type type, QPoint place) {
    steps.push_back([=, this] { SendMouse(Area(), type, place, Qt::LeftButton, gesture.keys); });
  }
  /// Presses and goes the way of the gesture, each step when the one before is done, with a repaint
  /// under the feedback half way.
  void Run(const std::function<void()>& end) {
    Step(QEvent::MouseMove, (gesture.press + gesture.release) / 2);
    steps.push_back([this] {
      chart->UpdateWindow();
      const QImage now = Now();
      EXPECT_EQ(now, Repainted()) << "a repaint takes no rubber line away";
    });
    Step(QEvent::MouseMove, gesture.release);
    steps.push_back([this] { during = Now(); });
    steps.push_back(end);
    pump.start(0);
    Press(gesture.press, gesture.keys);
    pump.stop();
    while (!steps.empty()) TakeStep();
    QApplication::processEvents();
  }
  void TakeStep() {
    if (steps.empty()) return;
    const std::function<void()> step = steps.front();
    steps.pop_front();
    step();
  }
  std::string Feedback() const {
    QRect box;
    int count = 0;
    for (int i = 0; i < during.width() * during.height(); ++i) {
      const QPoint p(i % during.width(), i / during.width());
      if (during.pixel(p) == atFirst.pixel(p)) continue;
      box |= QRect(p, p);
      ++count;
    }
    std::ostringstream text;
    text << box.left() << ',' << box.top() << ' ' << box.width() << 'x' << box.height() << ", "
         << count << " pixels";
    return text.str();
  }
  void Release() {
    SendMouse(Area(), QEvent::MouseButtonRelease, gesture.release, Qt::LeftButton, gesture.keys);
  }
  std::string Changed() const {
    std::string changed;
    std::istringstream in(chart->ModelText());
    for (std::string line; std::getline(in, line);) {
      if (("\n" + before).find("\n" + line + "\n") != std::string::npos) continue;
      changed += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
    }
    return changed;
  }
  std::vector<int> Selected() const {
    std::vector<int> ids;
    for (const Collectable* member : chart->GetSelection().Members()) {
      ids.push_back(dynamic_cast<const Shape*>(member)->GetId());
    }
    std::sort(ids.begin(), ids.end());
    return ids;
  }
  void ExpectNoStrayPixel() {
    Hover({650, 580});
    chart->OnMouseLeave();
    QApplication::processEvents();
    const QImage now = Now();
    EXPECT_EQ(now, Repainted()) << gesture.name;
    EXPECT_TRUE(chart->ShownFeedback().empty()) << gesture.name;
  }

  const Gesture gesture = GetParam();
  std::string before;
  QImage atFirst;
  QImage during;

 private:
  std::deque<std::function<void()>> steps;
  QTimer pump;
};

/// What GoogleTest prints of a gesture.
void PrintTo(const Gesture& gesture, std::ostream* out) { *out << gesture.name; }

TEST_P(EachGesture, FinishedIsOneStepAndLeavesNoTrace) {
  Run([this] { Release(); });
  EXPECT_EQ(Changed(), gesture.changed);
  EXPECT_EQ(Selected(), gesture.selected);
  EXPECT_FALSE(widget->HasCapture());
  if (widget->devicePixelRatioF() == 1) {
    EXPECT_EQ(Feedback(), gesture.feedback);
  }
  ExpectNoStrayPixel();
  EXPECT_EQ(chart->OnCommand(ID_EDIT_UNDO), !gesture.changed.empty());
  EXPECT_EQ(chart->ModelText(), before);
  EXPECT_FALSE(CanUndo());
}

TEST_P(EachGesture, CancelledChangesNothingAndLeavesNoTrace) {
  Run([this] { SendKey(*widget, Qt::Key_Escape); });
  EXPECT_EQ(chart->ModelText(), before);
  EXPECT_FALSE(CanUndo());
  Release();
  ExpectNoStrayPixel();
}

TEST_P(EachGesture, WithTheMouseLostChangesNothingAndLeavesNoTrace) {
  Run([this] {
    widget->ReleaseCapture();
    SendMouse(Area(), QEvent::MouseMove, gesture.press, Qt::LeftButton, gesture.keys);
  });
  EXPECT_EQ(chart->ModelText(), before);
  ExpectNoStrayPixel();
}

INSTANTIATE_TEST_SUITE_P(Hand, EachGesture, testing::ValuesIn(ReadGestures()),
                         [](const auto& info) {
                           std::string name = info.param.name;
                           for (char& c : name) c = c == ' ' ? '_' : c;
                           return name;
                         });

TEST_F(GestureTest, KeysAndOtherPressesLeaveAGestureAlone) {
  const std::string before = chart->ModelText();
  Post(QEvent::MouseMove, {130, 130});
  for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Down, Qt::Key_PageDown}) {
    PostKey(*widget, key);
  }
  for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonDblClick}) {
    Post(type, {600, 500});
    Post(type, {300, 440});
  }
  Post(QEvent::MouseButtonRelease, {100, 100});
  Press({100, 100});
  EXPECT_EQ(chart->ModelText(), before);
  EXPECT_TRUE(chart->GetSelection().Contains(FindShape(*chart, 1)));
  EXPECT_EQ(chart->GetScrollPosition(), (POINT{0, 0}));
}

TEST_F(GestureTest, APressOnAnAnchorOfASelectedStateMovesIt) {
  SelectObjects({1});
  Hover({178, 140});
  Post(QEvent::MouseMove, {208, 140});
  Post(QEvent::MouseButtonRelease, {208, 140});
  Press({170, 140});
  EXPECT_EQ(chart->GetModel().Objects().size(), 8U);
  EXPECT_EQ(FindShape(*chart, 1)->GetBounds(), (RECT{16, 10, 36, 30}));
}

TEST_F(GestureTest, AGestureAtTheEdgeScrolls) {
  // It takes the state along, to what lies under the pointer at last.
  const QPoint press(120, 120);
  const QPoint edge(300, Area().height() + 4);
  QTimer pump;
  QObject::connect(&pump, &QTimer::timeout, [&] {
    if (chart->ShownPosition().y < 120) return;
    pump.stop();
    SendMouse(Area(), QEvent::MouseMove, {300, 300});
    Post(QEvent::MouseButtonRelease, {300, 300});
  });
  pump.start(0);
  Post(QEvent::MouseMove, {200, 200});
  Post(QEvent::MouseMove, edge);
  Press(press);
  const POINT position = chart->GetScrollPosition();
  EXPECT_GE(position.y, 120);
  EXPECT_EQ(TopLeft(FindShape(*chart, 1)->GetBounds()),
            (POINT{10 + 180 / 6, 10 + (180 + position.y) / 6}));
  EXPECT_EQ(Now(), Repainted());
}

TEST_F(GestureTest, AToolIsPlacedWithOneClickAndEndsWithEscapeOrOutside) {
  const QPoint place(400, 100);
  chart->OnCommand(ID_TOOL_STATE);
  EXPECT_TRUE(chart->OnUpdateCommand(ID_TOOL_STATE).checked);
  Hover(place);
  Press(place);
  Post(QEvent::MouseButtonRelease, place);
  QApplication::processEvents();
  EXPECT_EQ(chart->GetModel().Objects().back()->GetBounds(), (RECT{67, 17, 77, 25}));
  EXPECT_EQ(chart->GetTools().Tool(), 0U);
  EXPECT_TRUE(CanUndo());
  for (const QPoint drop : {place, QPoint(-20, 400)}) {
    chart->OnCommand(ID_TOOL_NOTE);
    if (drop == place) chart->OnKeyDown(VirtualKey::Escape, 0);
    Post(QEvent::MouseButtonRelease, drop);
    QApplication::processEvents();
    EXPECT_EQ(chart->GetModel().Objects().size(), 9U);
    EXPECT_EQ(chart->GetTools().Tool(), 0U);
    EXPECT_FALSE(widget->HasCapture());
  }
}

}  // namespace

}  // namespace morvane
