#include "shell/qt/CommandIcons.h"

#include <QPalette>

#include "drawing/qt/QtText.h"
#include "platform/qt/SvgIcon.h"
#include "shell/AllCommands.h"

namespace morvane {

namespace {

constexpr int kIconSize = 18;

}  // namespace

QIcon MakeCommandIcon(unsigned id, const QPalette& palette) {
  const std::string_view name = FindCommand(id).icon;
  if (name.empty()) return {};
  const SvgColours colours =
      SvgColours::On(palette.color(QPalette::Button), palette.color(QPalette::ButtonText));
  QIcon icon;
  AddSvgPixmaps(icon, FromUtf8(name), kIconSize, colours);
  return icon;
}

}  // namespace morvane
