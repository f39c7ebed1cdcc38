#include <algorithm>
#include <gtest/gtest.h>

#include "machine/MachineBuilder.h"
#include "tests/machine/ChartSketch.h"

namespace morvane {

namespace {

using Kind = MachineState::Kind;

/// Two composites, one of which keeps a history, and a way from each place to each.
constexpr const char* kNested = R"(
initial 1
state 20 A
history
entry in();
exit out();\nlast();
  initial 2
  state 22 A2
    initial 3
    state 24 A2a
  state 21 A1
  final 26
state 10 B
  state 11 B1
arrow 30 1 20
arrow 31 2 24
message 41 31 -Edit- |  | begin();
arrow 32 3 24
arrow 33 24 21
message 43 33 near
arrow 34 24 11
message 44 34 far, near | x > 0
arrow 35 22 24
message 45 35 down
arrow 36 24 22
message 46 36 up
arrow 37 21 26
message 47 37 done
arrow 38 20 20
arrow 39 11 11
message 49 39 self, near
arrow 40 11 20
message 50 40 back
)";

class Meaning : public testing::Test {
 protected:
  const MachineState& StateOf(int id) const {
    return *std::ranges::find(machine.states, id, &MachineState::id);
  }
  const MachineTransition& TransitionOf(int id) const {
    return *std::ranges::find(machine.transitions, id, &MachineTransition::id);
  }
  std::string NameOf(int state) const {
    return state == MachineState::kChart ? "-" : machine.states[state].name;
  }
  std::string NamesOf(const std::vector<int>& states) const {
    std::string names;
    for (const int state : states) names += (names.empty() ? "" : " ") + NameOf(state);
    return names;
  }
  std::vector<int> IdsOf(const std::vector<int>& transitions) const {
    std::vector<int> ids;
    for (const int at : transitions) ids.push_back(machine.transitions[at].id);
    return ids;
  }

  std::string text = ChartSketch(kNested);
  BuiltMachine built = MachineBuilder::FromText(text);
  Machine machine = built.machine.value();
};

TEST_F(Meaning, OfStatesIsWhatTheyStandIn) {
  EXPECT_TRUE(built.problems.empty());
  std::string tree;
  for (const MachineState& state : machine.states) {
    tree += std::string(static_cast<std::size_t>(state.depth), ' ') + state.name + '<' +
            NameOf(state.parent) + "(" + NamesOf(state.children) + ")\n";
  }
  EXPECT_EQ(tree,
            "B<-(B1)\n B1<B()\nA<-(A1 A2 AFinal)\n A1<A()\n A2<A(A2a)\n  A2a<A2()\n"
            " AFinal<A()\n");
  EXPECT_EQ(NamesOf(machine.outermost), "B A");
  EXPECT_EQ(StateOf(20).kind, Kind::Composite);
  EXPECT_EQ(StateOf(21).kind, Kind::Simple);
  EXPECT_EQ(StateOf(26).kind, Kind::Final);
  EXPECT_TRUE(StateOf(20).history);
  EXPECT_FALSE(StateOf(22).history);
}

TEST_F(Meaning, OfInitialMarksIsATransition) {
  EXPECT_EQ(machine.transitions[machine.initial].id, 30);
  EXPECT_EQ(machine.transitions[StateOf(20).initial].id, 31);
  EXPECT_EQ(machine.transitions[StateOf(22).initial].id, 32);
  EXPECT_EQ(StateOf(10).initial, MachineState::kNone);
  EXPECT_EQ(TransitionOf(31).effect.text, "begin();");
  EXPECT_TRUE(TransitionOf(31).events.empty());
}

TEST_F(Meaning, OfTransitionsIsWhatTheyLeaveAndEnter) {
  struct Path {
    int id;
    const char* source;
    const char* target;
    const char* scope;
    const char* entered;
  } const paths[] = {
      {30, "-", "A", "-", "A"},       {31, "A", "A2a", "A", "A2 A2a"},
      {32, "A2", "A2a", "A2", "A2a"}, {33, "A2a", "A1", "A", "A1"},
      {34, "A2a", "B1", "-", "B B1"}, {35, "A2", "A2a", "A", "A2 A2a"},
      {36, "A2a", "A2", "A", "A2"},   {37, "A1", "AFinal", "A", "AFinal"},
      {38, "A", "A", "-", "A"},       {39, "B1", "B1", "B", "B1"},
      {40, "B1", "A", "-", "A"},
  };
  ASSERT_EQ(machine.transitions.size(), std::size(paths));
  for (std::size_t i = 0; i < std::size(paths); ++i) {
    SCOPED_TRACE(paths[i].id);
    const MachineTransition& transition = machine.transitions[i];
    EXPECT_EQ(transition.id, paths[i].id) << "by id";
    EXPECT_EQ(transition.isInitial, transition.id <= 32);
    EXPECT_EQ(NameOf(transition.source), paths[i].source);
    EXPECT_EQ(NameOf(transition.target), paths[i].target);
    EXPECT_EQ(NameOf(transition.scope), paths[i].scope);
    EXPECT_EQ(NamesOf(transition.entered), paths[i].entered);
    EXPECT_EQ(transition.messageId,
              transition.id == 31 || !transition.events.empty() ? transition.id + 10 : 0);
  }
}

TEST_F(Meaning, OfEventsIsTheOrderInWhichTheyAreTried) {
  EXPECT_EQ(IdsOf(StateOf(24).outgoing), (std::vector{34, 33, 36})) << "the unguarded ones last";
  EXPECT_EQ(IdsOf(StateOf(11).outgoing), (std::vector{39, 40}));
  std::string events;
  for (const MachineEvent& event : machine.events) events += event.written + ' ';
  EXPECT_EQ(events, "near far down up done self back ");
  EXPECT_EQ(TransitionOf(34).events, (std::vector{1, 0}));
  EXPECT_EQ(TransitionOf(34).guard.text, "x > 0");
}

TEST_F(Meaning, OfObjectsHasTheirLines) {
  const auto lineOf = [this](int line) { return LineOfText(text, line); };
  EXPECT_EQ(lineOf(StateOf(20).line), "BEGIN GenericState 20");
  EXPECT_EQ(lineOf(StateOf(26).line), "BEGIN FinalState 26");
  EXPECT_EQ(lineOf(StateOf(20).entry.line), "in();");
  EXPECT_EQ(lineOf(StateOf(20).exit.line), "out();");
  EXPECT_EQ(StateOf(20).exit.text, "out();\nlast();");
  EXPECT_EQ(lineOf(TransitionOf(34).line), "BEGIN Transition 34");
  EXPECT_EQ(lineOf(TransitionOf(34).guard.line), "x > 0");
  EXPECT_EQ(lineOf(TransitionOf(31).effect.line), "begin();");
}

}  // namespace

}  // namespace morvane
