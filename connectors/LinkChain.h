#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "connectors/ChainRecord.h"

namespace morvane {

class HeadLink;
class Link;
class TailLink;
class Transition;

/// Owns the links of one transition, from head to tail. A chain is empty or has one head at its
/// front, one tail at its back, and between them any number of segments, which alternate.
class LinkChain {
 public:
  explicit LinkChain(const Transition* owner) : owner(owner) {}
  ~LinkChain() { Clear(); }
  LinkChain(const LinkChain&) = delete;
  LinkChain& operator=(const LinkChain&) = delete;

  /// Builds the chain anew. Segments stand as they are recorded, whatever gaps they leave; the last
  /// one is joined to the tail. False, and an empty chain, unless the records run from one head to
  /// a tail.
  bool Build(std::span<const ChainRecord> records);
  void Clear();

  bool IsEmpty() const { return head == nullptr; }
  HeadLink* Head() const { return head; }
  TailLink* Tail() const { return tail; }
  /// The link in the middle, from which a message hangs; null in an empty chain.
  const Link* Middle() const;
  std::vector<ChainRecord> Records() const;
  /// The anchors, the stub points, and between them the corners where the route turns: a file can
  /// hold links that go on in one line, or back on it.
  std::vector<POINT> Points() const;

  /// Makes a chain that was recorded with gaps or slants continuous and rectilinear. A sound chain
  /// stays as it is.
  void Straighten();
  /// Makes one of neighbours of one kind.
  void MergeTwins();
  /// Makes the chain continuous and rectilinear, merges twins and cuts out all loops. False, and
  /// nothing sound, if the route is beyond repair.
  bool Untangle();
  /// Cuts out the loop at the first place where the route crosses itself. True: there was none.
  bool RemoveCrossing();

 private:
  void JoinTail(POINT stub, POINT anchor);
  void DropEmptySegments();

  const Transition* owner;
  HeadLink* head = nullptr;
  TailLink* tail = nullptr;
};

}  // namespace morvane
