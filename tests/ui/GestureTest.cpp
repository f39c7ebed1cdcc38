#include <deque>

#include "platform/qt/QtView.h"
#include "surface/ToolDrag.h"
#include "tests/support/Places.h"
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
  EXPECT_TRUE(ReadWholeFile(SourcePath("tests/golden/gestures.txt"), text).Ok());
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

TEST_F(GestureTest, WhatShowsTheMarkStartsAConnectionAtEveryZoom) {
  constexpr int band = 8;
  for (const int zoom : {2, 3, 6, 12, 13}) {
    chart->ChangeZoom(zoom);
    chart->TakeSnapshot();
    for (int way = -16; way <= 16; ++way) {
      const std::string before = chart->ModelText();
      const RECT border = chart->ToClient(FindShape(*chart, 1)->GetBounds());
      SelectObjects(way % 2 == 0 ? std::vector<int>{} : std::vector<int>{1});
      // Half way between two anchors.
      const QPoint place(border.right + way, CentreOf(border).y + 5 * zoom / 2);
      Hover(place);
      const bool marked = !chart->ShownFeedback().empty();
      EXPECT_TRUE(marked || std::abs(way) > band) << zoom << " " << way;
      Post(QEvent::MouseMove, place + QPoint(40, 60));
      Post(QEvent::MouseButtonRelease, place + QPoint(40, 60));
      Press(place);
      EXPECT_EQ(chart->GetModel().Objects().size(), marked ? 9U : 8U) << zoom << " " << way;
      EXPECT_TRUE(!marked || chart->ToClient(FindShape(*chart, 1)->GetBounds()) == border);
      if (chart->ModelText() != before) chart->OnCommand(ID_EDIT_UNDO);
      EXPECT_EQ(chart->ModelText(), before) << zoom << " " << way;
    }
  }
}

TEST_F(GestureTest, AClickChangesNothingAtAnyZoom) {
  for (int zoom = 2; zoom <= 13; ++zoom) {
    chart->ChangeZoom(zoom);
    chart->TakeSnapshot();
    const std::string before = chart->ModelText();
    for (const int id : {1, 3, 4, 5, 6, 7}) {
      const RECT box = chart->ToClient(FindShape(*chart, id)->GetBounds());
      for (const POINT p : {CentreOf(box), TopLeft(box), POINT{45 * zoom + 1, 35 * zoom - 1},
                            POINT{30 * zoom - 1, 20 * zoom + 1}}) {
        SelectObjects({id});
        Hover({p.x, p.y});
        Post(QEvent::MouseMove, {p.x + 2, p.y - 1});
        Post(QEvent::MouseButtonRelease, {p.x + 2, p.y - 1});
        Press({p.x, p.y});
        EXPECT_EQ(chart->ModelText(), before) << zoom << " " << id;
      }
    }
  }
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
  const auto click = [&](QPoint p) {
    Post(QEvent::MouseButtonRelease, p);
    Press(p);
  };
  chart->OnCommand(ID_TOOL_STATE);
  EXPECT_TRUE(chart->OnUpdateCommand(ID_TOOL_STATE).checked);
  Hover(place);
  click(place);
  EXPECT_EQ(chart->GetModel().Objects().back()->GetBounds(), (RECT{67, 17, 77, 25}));
  EXPECT_EQ(chart->GetTools().Tool(), 0U);
  EXPECT_TRUE(CanUndo());
  const std::function<void()> ends[] = {
      [&] { chart->OnKeyDown(VirtualKey::Escape, 0); },
      [&] { chart->OnCommand(ID_TOOL_NOTE); },
      [&] { chart->OnCommand(ID_POINTER); },
      [&] { chart->OnDeactivate(); },
      [&] {
        click({-20, 400});
      },
  };
  for (const auto& end : ends) {
    chart->OnCommand(ID_TOOL_NOTE);
    chart->OnCommand(ID_TOOL_KEEP);
    end();
    EXPECT_EQ(chart->GetTools().Tool(), 0U);
    EXPECT_FALSE(widget->HasCapture());
    click({500, 400});
    EXPECT_EQ(chart->GetModel().Objects().size(), 9U);
  }
  chart->OnCommand(ID_TOOL_NOTE);
  chart->OnCommand(ID_TOOL_KEEP);
  click({500, 400});
  click({500, 460});
  EXPECT_EQ(chart->GetModel().Objects().size(), 11U);
  EXPECT_EQ(chart->GetTools().Tool(), ID_TOOL_NOTE);
}

}  // namespace

}  // namespace morvane
