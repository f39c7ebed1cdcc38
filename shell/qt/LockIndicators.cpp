#include "shell/qt/LockIndicators.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QStatusBar>

#include "drawing/qt/QtText.h"
#include "resources/Texts.h"

namespace morvane {

namespace {

constexpr std::array<const char*, 3> kTexts{"CAP", "NUM", "SCRL"};
constexpr std::array<const char*, 3> kNames{"Caps Lock", "Num Lock", "Scroll Lock"};

/// The locks among the modifiers that the display server reports with a key.
constexpr quint32 kCapsMask = 0x02;
constexpr quint32 kNumMask = 0x10;

}  // namespace

LockIndicators::LockIndicators(QStatusBar* bar) : QObject(bar) {
  for (std::size_t i = 0; i < labels.size(); ++i) {
    labels[i] = new QLabel(ToQString(Translate(kTexts[i])), bar);
    labels[i]->setAccessibleName(ToQString(Translate(kNames[i])));
    labels[i]->setAlignment(Qt::AlignCenter);
    labels[i]->setEnabled(false);
    bar->addPermanentWidget(labels[i]);
  }
  qApp->installEventFilter(this);
}

bool LockIndicators::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) Follow(*static_cast<QKeyEvent*>(event));
  return QObject::eventFilter(watched, event);
}

void LockIndicators::Follow(const QKeyEvent& key) {
  if (!key.spontaneous()) return;
  // The modifiers are those before the key: the lock's own key turns it over.
  const bool caps = (key.nativeModifiers() & kCapsMask) != 0;
  const bool num = (key.nativeModifiers() & kNumMask) != 0;
  Show(CapsLock, caps != (key.key() == Qt::Key_CapsLock));
  Show(NumLock, num != (key.key() == Qt::Key_NumLock));
  if (key.key() == Qt::Key_ScrollLock && !key.isAutoRepeat()) {
    scrollLocked = !scrollLocked;
    Show(ScrollLock, scrollLocked);
  }
}

void LockIndicators::Show(Lock lock, bool on) { labels[lock]->setEnabled(on); }

}  // namespace morvane
