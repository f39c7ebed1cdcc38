#pragma once

#include <memory>
#include <string>

#include "platform/Service.h"

namespace morvane {

/// Shows how far a long work is, with a way to give it up. The events of the program's windows go
/// on meanwhile, but no window takes the user's.
class ProgressBox {
 public:
  virtual ~ProgressBox() = default;
  /// Shows a part from 0 to 1. False once the user has given the work up.
  virtual bool Show(double part) = 0;
};

/// Opens such boxes. The default service shows nothing, and nobody gives anything up.
class ProgressBoxes {
 public:
  virtual ~ProgressBoxes() = default;
  /// A box that comes to the screen if the work takes its time, and goes with the object.
  virtual std::unique_ptr<ProgressBox> Open(const std::string& text) = 0;
  static ProgressBoxes& Default();
};

}  // namespace morvane
