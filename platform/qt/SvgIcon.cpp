#include "platform/qt/SvgIcon.h"

#include <array>

#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace morvane {

namespace {

constexpr std::array<double, 4> kRatios{1, 1.5, 2, 3};
/// The pictures are drawn in these colours.
constexpr const char* kInk = "#404040";
constexpr const char* kAccent = "#2f78c4";
constexpr const char* kAccentOnDark = "#6cb0f2";
constexpr int kDarkBelow = 128;

QPixmap Render(QSvgRenderer& renderer, int side, double ratio) {
  const int physical = static_cast<int>(side * ratio);
  QPixmap pixmap(physical, physical);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  renderer.render(&painter, QRectF(0, 0, physical, physical));
  painter.end();
  pixmap.setDevicePixelRatio(ratio);
  return pixmap;
}

}  // namespace

SvgColours SvgColours::On(const QColor& ground, const QColor& text) {
  if (ground.lightness() < kDarkBelow) return {text, QColor(kAccentOnDark)};
  return {QColor(kInk), QColor(kAccent)};
}

void AddSvgPixmaps(QIcon& icon, const QString& name, int side, const SvgColours& colours,
                   QIcon::Mode mode) {
  QFile file(QStringLiteral(":/icons/%1.svg").arg(name));
  if (!file.open(QIODevice::ReadOnly)) return;
  QByteArray svg = file.readAll();
  svg.replace(kInk, colours.ink.name().toLatin1());
  svg.replace(kAccent, colours.accent.name().toLatin1());
  QSvgRenderer renderer(svg);
  for (const double ratio : kRatios) icon.addPixmap(Render(renderer, side, ratio), mode);
}

}  // namespace morvane
