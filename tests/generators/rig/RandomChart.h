#pragma once

#include <cstdint>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace morvane {

/// A made-up chart: the same number gives the same chart. Its texts mean the same in every
/// language: they work on two whole numbers, n and m. No run without an event goes on for ever,
/// since each raises m, which has to be small for it, or comes to a state that waits for events.
class RandomChart {
 public:
  explicit RandomChart(std::uint32_t seed);

  /// The model text; its classes and its include file are called by `className`.
  std::string ModelText(const std::string& className) const;

 private:
  struct Box {
    std::int32_t id = 0;
    int parent = -1;
    std::vector<int> inner;
    std::string title;
    bool history = false;
    bool entered = true;  ///< something may end on its border
    bool isFinal = false;
    bool waits = true;  ///< a simple state that does nothing by itself
    std::int32_t initialId = 0;
    std::string entry;
    std::string exit;
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
  };
  struct Arrow {
    std::int32_t id = 0;
    std::int32_t source = 0;
    std::int32_t target = 0;
    bool hasMessage = false;
    std::string event;
    std::string guard;
    std::string effect;
  };

  int Below(int limit);
  bool Chance(int percent);
  const Box& BoxAt(int index) const { return boxes[static_cast<std::size_t>(index)]; }
  Box& BoxAt(int index) { return boxes[static_cast<std::size_t>(index)]; }
  void AddStates(int parent, int depth);
  int AddBox(int parent);
  void AddFinal(int parent);
  void AddInitial(int parent);
  void AddArrows(int source);
  void AddEventArrow(int source);
  void AddBoundedArrow(int source);
  void Add(Arrow arrow);
  int AnyTarget();
  int AnyInside(int parent);
  std::string Events(int source, bool guarded);
  std::string Guard();
  std::string Statements();
  std::string Title();
  void Place(int parent, int left, int top);
  void Measure(int box);
  std::string Record(const Box& box) const;
  std::string Record(const Arrow& arrow) const;

  std::mt19937 engine;
  std::int32_t lastId = 100;
  std::int32_t chartInitialId = 0;
  int eventCount = 0;
  std::vector<Box> boxes;
  std::vector<int> outermost;
  std::vector<Arrow> arrows;
  std::set<std::pair<int, std::string>> unguarded;
};

}  // namespace morvane
