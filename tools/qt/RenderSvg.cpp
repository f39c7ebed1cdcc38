#include <cstdio>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

namespace {

constexpr int kMaxSide = 4096;

int Fail(const QString& what) {
  std::fprintf(stderr, "%s\n", qPrintable(what));
  return 1;
}

/// Draws the picture into an image of the given width, in its own proportions.
QImage Draw(QSvgRenderer& picture, int width) {
  const QSize size = picture.defaultSize().scaled(width, kMaxSide, Qt::KeepAspectRatio);
  QImage image(size, QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  picture.render(&painter, QRectF(QPointF(0, 0), size));
  return image;
}

}  // namespace

/// Draws a vector picture as PNG: morvane_render IN.svg OUT.png WIDTH
int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  const QStringList arguments = QGuiApplication::arguments();
  if (arguments.size() != 4) return Fail("usage: morvane_render IN.svg OUT.png WIDTH");
  const int width = arguments[3].toInt();
  if (width < 1 || width > kMaxSide) return Fail(arguments[3] + ": no width");
  QSvgRenderer picture(arguments[1]);
  if (!picture.isValid()) return Fail(arguments[1] + ": no picture");
  if (!Draw(picture, width).save(arguments[2], "PNG")) return Fail(arguments[2] + ": not written");
  return 0;
}
