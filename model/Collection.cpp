#include "model/Collection.h"

#include <algorithm>
#include <iterator>

#include "model/Collectable.h"

namespace morvane {

void Collection::Add(Collectable* object) {
  if (!index.insert(object).second) return;
  members.push_back(object);
  Tell();
}

void Collection::Remove(Collectable* object) {
  if (index.erase(object) == 0) return;
  const auto found = std::find(members.rbegin(), members.rend(), object);
  members.erase(std::next(found).base());
  Tell();
}

void Collection::Clear() {
  members.clear();
  index.clear();
  Tell();
}

void Collection::Broadcast(int op, void* arg, const Collectable* except) const {
  const std::vector<Collectable*> copy = members;
  for (Collectable* member : copy) {
    if (member != except) member->OnBroadcast(op, arg);
  }
}

}  // namespace morvane
