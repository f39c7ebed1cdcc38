#pragma once

#include <array>

#include <QObject>

class QKeyEvent;
class QLabel;
class QStatusBar;

namespace morvane {

/// The fields of the status bar that tell whether the caps, number and scroll locks are on. The
/// toolkit tells of the locks with each key only, so the fields follow the keyboard.
class LockIndicators : public QObject {
  Q_OBJECT

 public:
  explicit LockIndicators(QStatusBar* bar);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  enum Lock { CapsLock, NumLock, ScrollLock, LockCount };

  void Follow(const QKeyEvent& key);
  void Show(Lock lock, bool on);

  std::array<QLabel*, LockCount> labels{};
  bool scrollLocked = false;
};

}  // namespace morvane
