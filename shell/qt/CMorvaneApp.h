#pragma once

#include <memory>
#include <string>

class CMainFrame;

/// The program while it has windows.
class CMorvaneApp {
 public:
  CMorvaneApp();
  ~CMorvaneApp();
  CMorvaneApp(const CMorvaneApp&) = delete;
  CMorvaneApp& operator=(const CMorvaneApp&) = delete;

  /// Starts: language, splash, main window, and the chart that the command line names or a new one.
  /// False, after a message, ends the program.
  bool InitInstance(const std::string& file);
  /// The main window, once the program has started.
  CMainFrame& Frame() { return *frame; }

 private:
  bool ShowSplash();
  bool ProcessShellCommand(const std::string& file);

  std::unique_ptr<CMainFrame> frame;
};
