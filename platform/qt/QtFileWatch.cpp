#include "platform/qt/QtFileWatch.h"

#include <utility>

#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QTimer>

#include "drawing/qt/QtText.h"

namespace morvane {

namespace {

/// Whoever writes a file does it in several steps; they are looked at together.
constexpr int kSettleMilliseconds = 200;

class Watching : public FileWatch::Handle {
 public:
  Watching(const std::string& path, std::function<void()> told)
      : file(ToQPath(path)), touched(std::move(told)) {
    settle.setSingleShot(true);
    settle.setInterval(kSettleMilliseconds);
    const auto notice = [this] { settle.start(); };
    QObject::connect(&watcher, &QFileSystemWatcher::fileChanged, &settle, notice);
    QObject::connect(&watcher, &QFileSystemWatcher::directoryChanged, &settle, notice);
    QObject::connect(&settle, &QTimer::timeout, &settle, [this] {
      Renew();
      touched();
    });
    Renew();
  }

 private:
  /// A file that was replaced is another one under the same name; the folder tells of that.
  void Renew() {
    const QFileInfo info(file);
    if (watcher.directories().isEmpty()) watcher.addPath(info.path());
    if (watcher.files().isEmpty() && info.exists()) watcher.addPath(file);
  }

  QString file;
  std::function<void()> touched;
  QFileSystemWatcher watcher;
  QTimer settle;
};

}  // namespace

std::unique_ptr<FileWatch::Handle> QtFileWatch::Start(const std::string& path,
                                                      std::function<void()> touched) {
  return std::make_unique<Watching>(path, std::move(touched));
}

}  // namespace morvane
