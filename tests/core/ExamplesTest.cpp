#include "connectors/ChainRecord.h"
#include "states/EndableState.h"
#include "states/StartableState.h"
#include "tests/support/ChartTest.h"

namespace {

bool Overlap(const RECT& a, const RECT& b) {
  return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

bool Contains(const RECT& outer, const RECT& inner) { return UnionRect(outer, inner) == outer; }

bool IsOnBorder(const Shape& shape, POINT p) {
  const RECT r = shape.GetBounds();
  const bool within = p.x >= r.left && p.x <= r.right && p.y >= r.top && p.y <= r.bottom;
  return within && (p.x == r.left || p.x == r.right || p.y == r.top || p.y == r.bottom);
}

/// One of the charts that come with the program, by its path below Examples/.
class Example : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    const std::string path = std::string(MORVANE_SOURCE_DIR) + "/Examples/" + GetParam();
    ASSERT_EQ(ModelFile::Load(path, view), "");
    ASSERT_TRUE(ReadWholeFile(path, bytes).Ok());
    view.PlaceWithoutWindow(false);
  }

  template <class T>
  std::vector<T*> All() const {
    std::vector<T*> found;
    for (Shape* shape : view.GetModel().Objects()) {
      if (auto* wanted = dynamic_cast<T*>(shape)) found.push_back(wanted);
    }
    return found;
  }

  std::string bytes;
  LayoutMgr view;
};

TEST_P(Example, WritesItsBytesBackAlsoWhenItsStatesAreTouched) {
  EXPECT_EQ(ModelFile::ToDisk(view.ModelText()), bytes);
  for (auto* state : All<State>()) state->OnRectChanged(state->GetBounds(), false);
  EXPECT_EQ(ModelFile::ToDisk(view.ModelText()), bytes);
}

TEST_P(Example, TiesEveryTransitionToItsAnchors) {
  for (const auto* transition : All<Transition>()) {
    SCOPED_TRACE(transition->GetId());
    ASSERT_NE(transition->GetSource(), nullptr);
    ASSERT_NE(transition->GetTarget(), nullptr);
    const auto route = transition->Route();
    EXPECT_TRUE(IsOnBorder(*transition->GetSource(), route.front().start));
    EXPECT_TRUE(IsOnBorder(*transition->GetTarget(), route.back().end));
    for (std::size_t i = 1; i < route.size(); ++i) {
      EXPECT_EQ(route[i].start, route[i - 1].end);
      EXPECT_NE(route[i].kind, route[i - 1].kind);
    }
  }
}

TEST_P(Example, StandsItsMessagesOnTheirLabelsAndClearOfAllElse) {
  const auto messages = All<Mesg>();
  for (const auto* message : messages) {
    SCOPED_TRACE(message->GetId());
    ASSERT_NE(message->GetTransition(), nullptr);
    EXPECT_TRUE(message->IsAligned());
    const RECT box = message->GetBounds();
    for (const auto* other : messages) {
      EXPECT_TRUE(other == message || !Overlap(box, other->GetBounds()));
    }
    for (const auto* state : All<State>()) {
      EXPECT_TRUE(!Overlap(box, state->GetBounds()) || Contains(state->GetBounds(), box))
          << "over the border of " << state->GetName();
    }
  }
}

TEST_P(Example, TiesEveryNoteByALine) {
  const auto lines = All<Line>();
  for (const auto* line : lines) {
    ASSERT_NE(line->GetStartShape(), nullptr);
    ASSERT_NE(line->GetEndShape(), nullptr);
    EXPECT_TRUE(IsOnBorder(dynamic_cast<const Shape&>(*line->GetStartShape()), line->GetStart()))
        << line->GetId();
    EXPECT_TRUE(IsOnBorder(dynamic_cast<const Shape&>(*line->GetEndShape()), line->GetEnd()))
        << line->GetId();
  }
  for (const auto* note : All<Note>()) {
    EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), [note](const Line* line) {
      return line->GetStartShape() == note;
    })) << note->GetId();
  }
}

INSTANTIATE_TEST_SUITE_P(Charts, Example,
                         testing::Values("Socket_C++/Socket.mrv", "Lift/Lift.mrv",
                                         "CashMachine/CashMachine.mrv"));

}  // namespace
