#pragma once

#include <memory>
#include <string>

#include <QEvent>
#include <QPoint>
#include <QTimer>

#include "fuzz/AnyUser.h"
#include "platform/Folders.h"
#include "platform/Process.h"
#include "platform/qt/QtDialogHost.h"

class QWidget;

namespace morvane {

class CChildFrame;
class CMainFrame;

/// A hand on the main window whose every move comes from an input. While a gesture or a dialog
/// waits, the next moves go there. What could leave the process is replaced: no program starts, and
/// the only folder has one chart in it.
class AnyHand {
 public:
  /// Opens the chart at `path`, which may be written to. The source is not owned.
  AnyHand(ByteSource& source, const std::string& path);
  ~AnyHand();
  AnyHand(const AnyHand&) = delete;
  AnyHand& operator=(const AnyHand&) = delete;

  /// Uses up the source, and checks after each move that the charts are sound.
  void DoEverything();

 private:
  class OneFolder;
  class NoProcesses;

  void DoAnything();
  /// While something waits for it.
  void GoOn();
  bool IsAnyWaiting() const;
  void EndWaiting();
  void Settle();

  void UseMouse(QWidget& target);
  void SendMouse(QWidget& target, QEvent::Type type, QPoint p);
  void UseWheel(QWidget& target);
  void PressKey();
  void RunCommand();
  void PlaceTool();
  void ChangeWindow();

  CChildFrame* Child() const;
  QPoint AnyPoint(const QWidget& target);
  Qt::KeyboardModifiers AnyModifiers();

  void CheckCharts();
  void CheckPictures();
  void CheckHistories();

  ByteSource& source;
  AnyUser user;
  QtDialogHost realDialogs;
  std::unique_ptr<OneFolder> folder;
  std::unique_ptr<NoProcesses> processes;
  std::unique_ptr<CMainFrame> frame;
  QTimer pump;
  int moves = 0;
};

}  // namespace morvane
