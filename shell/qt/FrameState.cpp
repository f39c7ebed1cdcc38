#include "shell/qt/FrameState.h"

#include <QMainWindow>

#include "platform/Profile.h"

namespace morvane {

namespace {

constexpr const char* kSection = "Frame";
constexpr const char* kPlacementKey = "Placement";
constexpr const char* kBarsKey = "Bars";
/// Of the set of bars: what was saved for another set doesn't apply.
constexpr int kBarsVersion = 1;

QByteArray Read(const char* key) {
  const std::string text = Service<Profile>::Get().GetString(kSection, key, "");
  return QByteArray::fromBase64(QByteArray::fromStdString(text));
}

void Write(const char* key, const QByteArray& bytes) {
  Service<Profile>::Get().WriteString(kSection, key, bytes.toBase64().toStdString());
}

}  // namespace

bool FrameState::Restore(QMainWindow& frame) {
  const QByteArray placement = Read(kPlacementKey);
  if (placement.isEmpty() || !frame.restoreGeometry(placement)) return false;
  frame.restoreState(Read(kBarsKey), kBarsVersion);
  frame.show();
  return true;
}

void FrameState::Save(const QMainWindow& frame) {
  Write(kPlacementKey, frame.saveGeometry());
  Write(kBarsKey, frame.saveState(kBarsVersion));
}

}  // namespace morvane
