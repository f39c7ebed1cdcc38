#include "shell/qt/ToolImage.h"

#include <QApplication>
#include <QIcon>
#include <QLabel>

#include "shell/qt/CommandIcons.h"

namespace {

constexpr int kImageSize = 30;
/// What lies below it stays visible.
constexpr double kOpacity = 0.8;

}  // namespace

ToolImage::ToolImage() : former(Service<DragImages>::Set(this)) {}

ToolImage::~ToolImage() { Service<DragImages>::Set(former); }

void ToolImage::Show(unsigned command, POINT topLeft) {
  if (window == nullptr) {
    window = std::make_unique<QLabel>(nullptr, Qt::ToolTip | Qt::FramelessWindowHint |
                                                   Qt::WindowTransparentForInput |
                                                   Qt::WindowDoesNotAcceptFocus);
    window->setAttribute(Qt::WA_TranslucentBackground);
    window->setAttribute(Qt::WA_ShowWithoutActivating);
    window->setWindowOpacity(kOpacity);
    window->resize(kImageSize, kImageSize);
  }
  if (command != shown) {
    shown = command;
    const QIcon icon = MakeCommandIcon(command, QApplication::palette());
    window->setPixmap(icon.pixmap(QSize(kImageSize, kImageSize), window->devicePixelRatioF()));
  }
  window->move(topLeft.x, topLeft.y);
  if (!window->isVisible()) window->show();
}

void ToolImage::Hide() {
  if (window != nullptr) window->hide();
}
