#pragma once

class QMainWindow;

namespace morvane {

/// What of the main window lasts from run to run: its place and size, and which bars stand where.
class FrameState {
 public:
  /// Applies what was saved and shows the window; false when nothing usable was saved, and then
  /// nothing is changed or shown.
  static bool Restore(QMainWindow& frame);
  static void Save(const QMainWindow& frame);
};

}  // namespace morvane
