#pragma once

#include <deque>

#include <QTimer>

#include "shell/InstanceRequest.h"

namespace morvane {

class CMainFrame;

/// What later starts of the program ask of this one. It is done as soon as the window is free: not
/// in a dialog, a menu or a gesture.
class StartRequests : public QObject {
  Q_OBJECT

 public:
  StartRequests();

  /// Returns at once.
  void Add(const InstanceRequest& request);
  /// Has the requests carried out in a window from now on; the window has to outlive that.
  void Serve(CMainFrame& window);
  /// Starts the program anew for each request that its end came before.
  void HandOn();

 private:
  void CarryOut();
  void CarryOut(const InstanceRequest& request);

  CMainFrame* frame = nullptr;
  std::deque<InstanceRequest> waiting;
  QTimer timer;
};

}  // namespace morvane
