#pragma once

namespace morvane {

/// Lives for as long as the program waits for the user in a message box, a menu, a dialog or a
/// drag. The events of all windows go on meanwhile: they may show what there is, but nothing that
/// the operation below stands on may change or go.
class ModalLoop {
 public:
  ModalLoop() { ++Depth(); }
  ~ModalLoop() { --Depth(); }
  ModalLoop(const ModalLoop&) = delete;
  ModalLoop& operator=(const ModalLoop&) = delete;

  static bool IsRunning() { return Depth() > 0; }

 private:
  static int& Depth() {
    static int depth = 0;
    return depth;
  }
};

}  // namespace morvane
