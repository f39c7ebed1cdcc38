#include "shell/qt/CommandIcons.h"

#include <algorithm>
#include <array>

#include <QFile>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>

#include "resources/CommandIds.h"

namespace {

constexpr int kIconSize = 18;
constexpr std::array<double, 4> kRatios{1, 1.5, 2, 3};
/// The pictures are drawn in these colours, which a dark palette replaces.
constexpr const char* kInk = "#404040";
constexpr const char* kAccent = "#2f78c4";
constexpr const char* kAccentOnDark = "#6cb0f2";
constexpr int kDarkBelow = 128;

struct IconName {
  unsigned id;
  const char* name;
};

constexpr IconName kNames[] = {
    {ID_FILE_NEW, "new"},
    {ID_FILE_OPEN, "open"},
    {ID_FILE_SAVE, "save"},
    {ID_FILE_PRINT, "print"},
    {ID_EDIT_CUT, "cut"},
    {ID_EDIT_COPY, "copy"},
    {ID_EDIT_PASTE, "paste"},
    {ID_COPY_METAFILE, "metafile"},
    {ID_FIND_REPLACE, "find"},
    {ID_EDIT_UNDO, "undo"},
    {ID_EDIT_REDO, "redo"},
    {ID_MODEL_PROPERTIES, "modelproperties"},
    {ID_CODEGEN_PROPERTIES, "codegenproperties"},
    {ID_DEFAULT_SETTINGS, "settings"},
    {ID_POINTER, "pointer"},
    {ID_REFRESH, "refresh"},
    {ID_ZOOM_IN, "zoomin"},
    {ID_ZOOM_NORMAL, "zoomnormal"},
    {ID_ZOOM_OUT, "zoomout"},
    {ID_APP_ABOUT, "about"},
    {ID_TOOL_STATE, "state"},
    {ID_TOOL_TRANSITION, "transition"},
    {ID_TOOL_INITIAL_STATE, "initialstate"},
    {ID_TOOL_FINAL_STATE, "finalstate"},
    {ID_TOOL_NOTE, "note"},
    {ID_TOOL_LINE, "line"},
    {ID_DELETE, "delete"},
    {ID_BRING_TO_FRONT, "front"},
    {ID_SEND_TO_BACK, "back"},
};

QPixmap Render(QSvgRenderer& renderer, double ratio) {
  const int side = static_cast<int>(kIconSize * ratio);
  QPixmap pixmap(side, side);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  renderer.render(&painter, QRectF(0, 0, side, side));
  painter.end();
  pixmap.setDevicePixelRatio(ratio);
  return pixmap;
}

}  // namespace

QIcon MakeCommandIcon(unsigned id, const QPalette& palette) {
  const auto* found = std::ranges::find(kNames, id, &IconName::id);
  if (found == std::end(kNames)) return {};
  QFile file(QStringLiteral(":/icons/%1.svg").arg(found->name));
  if (!file.open(QIODevice::ReadOnly)) return {};
  QByteArray svg = file.readAll();
  if (palette.color(QPalette::Button).lightness() < kDarkBelow) {
    svg.replace(kInk, palette.color(QPalette::ButtonText).name().toLatin1());
    svg.replace(kAccent, kAccentOnDark);
  }
  QSvgRenderer renderer(svg);
  QIcon icon;
  for (const double ratio : kRatios) icon.addPixmap(Render(renderer, ratio));
  return icon;
}
