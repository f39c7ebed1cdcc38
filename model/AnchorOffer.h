#pragma once

#include "model/AnchorKey.h"

namespace morvane {

class Connectable;

/// An anchor at which a connector starts or ends, or none.
struct AnchorOffer {
  Connectable* shape = nullptr;  ///< null: there is none
  AnchorKey key;

  explicit operator bool() const { return shape != nullptr; }
  bool operator==(const AnchorOffer&) const = default;
};

}  // namespace morvane
