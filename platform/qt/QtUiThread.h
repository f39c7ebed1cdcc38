#pragma once

#include <QObject>

#include "platform/UiThread.h"

namespace morvane {

/// Runs tasks on the thread that made this object. Each waits for a moment, so that a thread that
/// posts without pause leaves time for the user's events.
class QtUiThread : public UiThread {
 public:
  void Post(Task task) override;

 private:
  QObject receiver;  ///< what was posted goes with it
};

}  // namespace morvane
