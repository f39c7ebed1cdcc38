#include "connectors/ChartFactory.h"
#include "model/ModelData.h"
#include "model/ModelStream.h"
#include "model/ShapeRegistry.h"
#include "persistence/UndoHistory.h"
#include "tests/support/ChartTest.h"

namespace morvane {

// The small owners and lists under a chart, each by itself.

namespace {

std::string Texts(const UndoHistory& history) {
  const auto text = [](const SharedText& snapshot) { return snapshot ? *snapshot : "-"; };
  return text(history.Previous()) + " " + text(history.Current()) + " " + text(history.Next());
}

TEST(UndoHistory, StepsOverWhatWasPushed) {
  UndoHistory history;
  EXPECT_EQ(Texts(history), "- - -");
  using Step = void (*)(UndoHistory&);
  const Step back = [](UndoHistory& h) { h.StepBack(); };
  const Step forward = [](UndoHistory& h) { h.StepForward(); };
  const std::tuple<Step, const char*> steps[] = {
      {back, "- - -"},
      {[](UndoHistory& h) { h.Push("a"); }, "- a -"},
      {[](UndoHistory& h) { h.Push("a"); }, "- a -"},
      {[](UndoHistory& h) { h.Push("b"); }, "a b -"},
      {[](UndoHistory& h) { h.Push("c"); }, "b c -"},
      {forward, "b c -"},
      {back, "a b c"},
      {[](UndoHistory& h) { h.Push("b"); }, "a b c"},  // what can be redone stays
      {[](UndoHistory& h) { h.Amend("B"); }, "a B c"},
      {back, "- a B"},
      {back, "- a B"},
      {forward, "a B c"},
      {[](UndoHistory& h) { h.Push("d"); }, "B d -"},  // and goes with another step
  };
  int number = 0;
  for (const auto& [step, texts] : steps) {
    step(history);
    EXPECT_EQ(Texts(history), texts) << "step " << ++number;
    EXPECT_EQ(history.CanUndo(), history.Previous() != nullptr);
    EXPECT_EQ(history.CanRedo(), history.Next() != nullptr);
  }
  UndoHistory amended;
  amended.Amend("first");
  EXPECT_EQ(Texts(amended), "- first -");
}

TEST(UndoHistory, ForgetsTheOldestOfMoreThanItKeeps) {
  UndoHistory history;
  const int count = static_cast<int>(UndoHistory::kMaxEntries) + 4;
  for (int i = 0; i < count; ++i) history.Push(std::to_string(i));
  int steps = 0;
  for (; history.CanUndo(); ++steps) history.StepBack();
  EXPECT_EQ(steps, static_cast<int>(UndoHistory::kMaxEntries) - 1);
  EXPECT_EQ(*history.Current(), "4");
}

TEST(ShapeRegistry, FindsByIdAndGivesNewOnes) {
  GenericState first, second;
  ShapeRegistry registry;
  registry.AddShape(&first, 5);
  EXPECT_EQ(registry.Find(5), &first);
  EXPECT_EQ(registry.Find(0), nullptr);
  EXPECT_EQ(registry.NextId(), 101);
  EXPECT_EQ(registry.NextId(), 102) << "an id that was given out is gone";
  registry.AddShape(&second, 500);
  EXPECT_EQ(registry.NextId(), 501);
  constexpr std::int32_t last = std::numeric_limits<std::int32_t>::max();
  registry.AddShape(&second, last);
  const std::int32_t below = registry.NextId();
  EXPECT_TRUE(below > 0 && below < last && registry.Find(below) == nullptr) << below;
  EXPECT_NE(registry.NextId(), below);
}

/// Three states of which the last two have one id, as a file may have them.
class ModelDataTest : public testing::Test {
 protected:
  ModelDataTest() {
    Read(StateRecord(1, {10, 10, 30, 30}) + StateRecord(2, {40, 10, 60, 30}) +
         StateRecord(2, {70, 10, 90, 30}) + "END DATA\n");
  }
  void Read(const std::string& records) {
    std::istringstream in(records);
    ModelStream stream(in);
    data.Read(stream);
  }

  ModelData data{ChartFactory()};
};

TEST_F(ModelDataTest, AShapeWhoseIdAnotherOneTookDoesNotTakeThatAway) {
  Shape* const former = data.Objects()[1];
  Shape* const latter = data.Objects()[2];
  ShapeRegistry registry;
  registry.AddShape(former, 2);
  registry.AddShape(latter, 2);
  registry.RemoveShape(former);
  EXPECT_EQ(registry.Find(2), latter);
  registry.RemoveShape(latter);
  EXPECT_EQ(registry.Find(2), nullptr);
}

TEST_F(ModelDataTest, KeepsTheOrderOfWhatIsTakenOutAndPutBack) {
  const std::vector<Shape*> all = data.Objects();
  data.Release(all[0]);
  data.Release(all[0]);
  EXPECT_EQ(data.Objects(), (std::vector{all[1], all[2]}));
  data.Insert(1, all[0]);
  EXPECT_EQ(data.Objects(), (std::vector{all[1], all[0], all[2]}));
}

TEST_F(ModelDataTest, ARefusedTextLeavesWhatWasReadAndIsNoWholeChart) {
  EXPECT_TRUE(data.IsComplete());
  for (const char* rest : {"", "\n", "BEGIN Nothing\n", "BEGIN"}) {
    const std::size_t before = data.Objects().size();
    EXPECT_THROW(Read(StateRecord(9, {1, 1, 9, 9}) + rest), std::string) << rest;
    EXPECT_EQ(data.Objects().size(), before + 1);
    EXPECT_FALSE(data.IsComplete());
  }
}

/// Notes what it gets, and leaves the collection, or goes altogether, with the first message.
struct Member : Collectable {
  explicit Member(std::string& log, std::function<void()> then = {})
      : log(log), then(std::move(then)) {}
  void OnBroadcast(int op, void*) override {
    log += std::to_string(op);
    if (then) then();
  }
  std::string& log;
  std::function<void()> then;
};

TEST(Collection, AMemberMayLeaveOrGoWhileAllAreTold) {
  std::string log;
  Collection collection;
  Member leaving(log, [&] { collection.Remove(&leaving); });
  Member last(log);
  Member left(log);
  for (Member* member : {&leaving, &left, &last, &leaving}) collection.Add(member);
  EXPECT_EQ(collection.Members(), (std::vector<Collectable*>{&leaving, &left, &last}));
  collection.Broadcast(BROADCAST_SELECTED, nullptr, &left);
  EXPECT_EQ(log, "11") << "all but the one that is left out";
  EXPECT_EQ(collection.Members(), (std::vector<Collectable*>{&left, &last}));
  EXPECT_FALSE(collection.Contains(&leaving));
  collection.Remove(&leaving);
  collection.Clear();
  EXPECT_TRUE(collection.IsEmpty() && !collection.Contains(&last));
}

}  // namespace

}  // namespace morvane
