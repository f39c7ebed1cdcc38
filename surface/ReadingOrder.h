#pragma once

#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace morvane {

class ModelMgr;
class Shape;

/// The objects of a model in the order in which somebody reads them who can't look at the whole:
/// the states by their place, row by row and initial states first, each with its transitions and
/// their messages behind it and then the states that lie in it; then what belongs to no state; then
/// the notes, each with its lines. It holds as long as the model doesn't change.
class ReadingOrder {
 public:
  explicit ReadingOrder(const ModelMgr& model);

  const std::vector<Shape*>& Objects() const { return objects; }
  /// The state in which another one lies; null for none.
  Shape* HolderOf(const Shape* state) const;

 private:
  void AddStates(const std::vector<Shape*>& states);
  void AddState(Shape* state);
  void AddTransition(Shape* transition);
  void AddNotes(const std::vector<Shape*>& notes);
  void Add(Shape* object);

  std::vector<Shape*> objects;
  std::unordered_set<const Shape*> isIn;
  std::unordered_map<const Shape*, Shape*> holders;
};

}  // namespace morvane
