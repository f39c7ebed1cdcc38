#pragma once

#include <memory>
#include <string>

#include "shell/qt/CMainFrame.h"

namespace morvane {

class RecoveryStore;

/// The program while it has windows.
class CMorvaneApp : private CMainFrame::Listener {
 public:
  CMorvaneApp();
  ~CMorvaneApp() override;
  CMorvaneApp(const CMorvaneApp&) = delete;
  CMorvaneApp& operator=(const CMorvaneApp&) = delete;

  /// Starts: language, splash, main window, what an earlier run left behind, and the chart that the
  /// command line names or, with nothing else open, a new one. False, after a message, ends the
  /// program.
  bool InitInstance(const std::string& file);
  /// The main window, once the program has started.
  CMainFrame& Frame() { return *frame; }

 private:
  bool ShowSplash();
  void BringBack();
  bool ProcessShellCommand(const std::string& file);
  void OnWindowsChanged() override;
  void OnClosing() override;

  bool ended = false;  ///< the session has ended in order
  std::unique_ptr<RecoveryStore> store;
  std::unique_ptr<CMainFrame> frame;
};

}  // namespace morvane
