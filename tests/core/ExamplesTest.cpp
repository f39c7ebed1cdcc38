#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "connectors/ChainRecord.h"
#include "connectors/Line.h"
#include "connectors/Mesg.h"
#include "connectors/Note.h"
#include "connectors/Transition.h"
#include "model/ModelMgr.h"
#include "persistence/ModelFile.h"
#include "states/EndableState.h"
#include "states/GenericState.h"
#include "states/StartableState.h"
#include "surface/LayoutMgr.h"

namespace {

struct Promise {
  const char* file;
  const char* className;
  std::map<std::string, int> counts;
  int depth;  ///< states around the innermost one, itself included
};

bool Overlap(const RECT& a, const RECT& b) {
  return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

bool Contains(const RECT& outer, const RECT& inner) {
  return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
         outer.bottom >= inner.bottom;
}

bool IsOnBorder(const RECT& r, POINT p) {
  const bool within = p.x >= r.left && p.x <= r.right && p.y >= r.top && p.y <= r.bottom;
  return within && (p.x == r.left || p.x == r.right || p.y == r.top || p.y == r.bottom);
}

class Example : public testing::TestWithParam<Promise> {
 protected:
  void SetUp() override {
    path = std::string(MORVANE_SOURCE_DIR) + "/Examples/" + GetParam().file;
    ASSERT_EQ(ModelFile::Load(path, view), "");
    view.PlaceWithoutWindow(false);
  }

  template <class T>
  std::vector<T*> All() const {
    std::vector<T*> found;
    for (Shape* shape : view.GetModel().Objects())
      if (auto* wanted = dynamic_cast<T*>(shape)) found.push_back(wanted);
    return found;
  }

  std::string Bytes() const {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  std::string path;
  LayoutMgr view;
};

TEST_P(Example, WritesTheSameBytesBack) { EXPECT_EQ(ModelFile::ToDisk(view.ModelText()), Bytes()); }

TEST_P(Example, HoldsWhatIsPromised) {
  std::map<std::string, int> counts;
  for (const Shape* shape : view.GetModel().Objects()) ++counts[shape->GetTypeName()];
  EXPECT_EQ(counts, GetParam().counts);
  EXPECT_EQ(view.GetProperties().CppClassName, GetParam().className);
  EXPECT_EQ(view.GetProperties().CppIncludeFile, std::string(GetParam().className) + ".h");
  EXPECT_EQ(view.GetProperties().Author, "Morvane");
  EXPECT_NE(view.GetProperties().Description, "");
}

TEST_P(Example, NestsItsStates) {
  const auto states = All<GenericState>();
  std::ptrdiff_t deepest = 0;
  for (const auto* inner : states) {
    deepest = std::max(deepest, std::count_if(states.begin(), states.end(), [&](const auto* outer) {
                         return Contains(outer->GetBounds(), inner->GetBounds());
                       }));
    for (const auto* other : states)
      EXPECT_TRUE(!Overlap(inner->GetBounds(), other->GetBounds()) ||
                  Contains(inner->GetBounds(), other->GetBounds()) ||
                  Contains(other->GetBounds(), inner->GetBounds()))
          << inner->GetName() << " crosses " << other->GetName();
  }
  EXPECT_EQ(deepest, GetParam().depth);
}

TEST_P(Example, TiesEveryTransitionToItsAnchors) {
  for (const auto* transition : All<Transition>()) {
    SCOPED_TRACE(transition->GetId());
    ASSERT_NE(transition->GetSource(), nullptr);
    ASSERT_NE(transition->GetTarget(), nullptr);
    const auto route = transition->Route();
    EXPECT_TRUE(IsOnBorder(transition->GetSource()->GetBounds(), route.front().start));
    EXPECT_TRUE(IsOnBorder(transition->GetTarget()->GetBounds(), route.back().end));
    EXPECT_EQ(route.front().kind, LINK_HEAD);
    EXPECT_EQ(route.back().kind, LINK_TAIL);
    for (std::size_t i = 1; i < route.size(); ++i) {
      EXPECT_EQ(route[i].start, route[i - 1].end);
      EXPECT_NE(route[i].kind, route[i - 1].kind);
    }
  }
}

TEST_P(Example, KeepsItsRoutesWhenItsStatesAreTouched) {
  for (auto* state : All<State>()) state->OnRectChanged(state->GetBounds(), false);
  EXPECT_EQ(ModelFile::ToDisk(view.ModelText()), Bytes());
}

TEST_P(Example, StandsItsMessagesOnTheirLabelsAndClearOfAllElse) {
  const auto messages = All<Mesg>();
  for (const auto* message : messages) {
    SCOPED_TRACE(message->GetId());
    ASSERT_NE(message->GetTransition(), nullptr);
    EXPECT_TRUE(message->IsAligned());
    for (const auto* other : messages)
      EXPECT_TRUE(other == message || !Overlap(message->GetBounds(), other->GetBounds()));
    for (const auto* state : All<State>())
      EXPECT_TRUE(!Overlap(message->GetBounds(), state->GetBounds()) ||
                  Contains(state->GetBounds(), message->GetBounds()))
          << "over the border of " << state->GetName();
  }
}

TEST_P(Example, TiesEveryNoteByALine) {
  const auto lines = All<Line>();
  for (const auto* line : lines) {
    ASSERT_NE(line->GetStartShape(), nullptr);
    ASSERT_NE(line->GetEndShape(), nullptr);
    const auto* start = dynamic_cast<const RectShape*>(line->GetStartShape());
    const auto* end = dynamic_cast<const RectShape*>(line->GetEndShape());
    EXPECT_TRUE(IsOnBorder(start->GetBounds(), line->GetStart())) << line->GetId();
    EXPECT_TRUE(IsOnBorder(end->GetBounds(), line->GetEnd())) << line->GetId();
  }
  for (const auto* note : All<Note>())
    EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), [&](const Line* line) {
      return line->GetStartShape() == note;
    })) << note->GetId();
}

TEST_P(Example, MarksOneStateWithItsHistory) {
  // The flag opens the third line behind the name's record line; it has no getter.
  std::ifstream in(path);
  std::string line;
  int marked = 0;
  while (std::getline(in, line)) {
    if (line.rfind("BEGIN GenericState", 0) != 0) continue;
    constexpr int linesToFlag = 5;
    for (int i = 0; i < linesToFlag; ++i) std::getline(in, line);
    if (line.rfind("1 ", 0) == 0) ++marked;
  }
  EXPECT_EQ(marked, 1);
}

INSTANTIATE_TEST_SUITE_P(Charts, Example,
                         testing::Values(Promise{"Socket_C++/Socket.mrv",
                                                 "SocketContext",
                                                 {{"GenericState", 16},
                                                  {"InitialState", 2},
                                                  {"FinalState", 1},
                                                  {"Transition", 20},
                                                  {"Mesg", 18},
                                                  {"Note", 4},
                                                  {"Line", 4}},
                                                 2},
                                         Promise{"Lift/Lift.mrv",
                                                 "LiftContext",
                                                 {{"GenericState", 11},
                                                  {"InitialState", 2},
                                                  {"FinalState", 1},
                                                  {"Transition", 14},
                                                  {"Mesg", 12},
                                                  {"Note", 2},
                                                  {"Line", 2}},
                                                 3},
                                         Promise{"CashMachine/CashMachine.mrv",
                                                 "CashMachineContext",
                                                 {{"GenericState", 13},
                                                  {"InitialState", 1},
                                                  {"FinalState", 1},
                                                  {"Transition", 16},
                                                  {"Mesg", 15},
                                                  {"Note", 3},
                                                  {"Line", 3}},
                                                 3}),
                         [](const auto& info) {
                           const std::string file = info.param.file;
                           const auto name = file.find('/') + 1;
                           return file.substr(name, file.find('.', name) - name);
                         });

}  // namespace
