#include "platform/qt/QtUiThread.h"

#include <chrono>
#include <utility>

#include <QTimer>

namespace morvane {

namespace {

constexpr std::chrono::milliseconds kPause{15};

}  // namespace

void QtUiThread::Post(Task task) {
  QMetaObject::invokeMethod(
      &receiver, [this, task = std::move(task)] { QTimer::singleShot(kPause, &receiver, task); },
      Qt::QueuedConnection);
}

}  // namespace morvane
