#include "platform/UiThread.h"

namespace morvane {

namespace {

class NoUiThread : public UiThread {
 public:
  void Post(Task) override {}
};

}  // namespace

UiThread& UiThread::Default() {
  static NoUiThread service;
  return service;
}

}  // namespace morvane
