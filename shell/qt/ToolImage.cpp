#include "shell/qt/ToolImage.h"

#include <QApplication>
#include <QIcon>
#include <QLabel>

#include "shell/qt/CommandIcons.h"

namespace morvane {

namespace {

constexpr int kImageSize = 30;
constexpr int kIconSize = 22;

}  // namespace

ToolImage::ToolImage() = default;

ToolImage::~ToolImage() = default;

void ToolImage::Show(unsigned command, POINT topLeft) {
  if (window == nullptr) {
    window = std::make_unique<QLabel>(nullptr, Qt::ToolTip | Qt::FramelessWindowHint |
                                                   Qt::WindowTransparentForInput |
                                                   Qt::WindowDoesNotAcceptFocus);
    window->setAttribute(Qt::WA_ShowWithoutActivating);
    window->resize(kImageSize, kImageSize);
    window->setAlignment(Qt::AlignCenter);
    window->setFrameStyle(QFrame::Box | QFrame::Plain);
    window->setBackgroundRole(QPalette::Base);
    window->setAutoFillBackground(true);
  }
  if (command != shown) {
    shown = command;
    const QIcon icon = MakeCommandIcon(command, QApplication::palette());
    window->setPixmap(icon.pixmap(QSize(kIconSize, kIconSize), window->devicePixelRatioF()));
  }
  window->move(topLeft.x, topLeft.y);
  if (!window->isVisible()) window->show();
}

void ToolImage::Hide() {
  if (window != nullptr) window->hide();
}

}  // namespace morvane
