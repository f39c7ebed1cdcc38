#pragma once

#include <functional>
#include <unordered_set>
#include <utility>
#include <vector>

namespace morvane {

class Collectable;

/// A set of objects in the order in which they were added, a selection for instance. It owns
/// nothing.
class Collection {
 public:
  /// Appends unless the object is already a member.
  void Add(Collectable* object);
  /// Erases the object if it is a member, keeping the order of the rest.
  void Remove(Collectable* object);
  bool Contains(const Collectable* object) const { return index.count(object) != 0; }
  bool IsEmpty() const { return members.empty(); }
  void Clear();
  const std::vector<Collectable*>& Members() const { return members; }
  /// Calls back after each change of the members.
  void SetListener(std::function<void()> changed) { listener = std::move(changed); }

  /// Sends an operation to each member but `except`, in order. It works on a copy: a member may
  /// leave the collection or delete itself.
  void Broadcast(int op, void* arg, const Collectable* except) const;

 private:
  void Tell() const {
    if (listener) listener();
  }

  std::function<void()> listener;
  std::vector<Collectable*> members;
  std::unordered_set<const Collectable*> index;
};

}  // namespace morvane
