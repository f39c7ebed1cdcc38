#include "shell/qt/CommandIcons.h"

#include <algorithm>

#include <QPalette>

#include "platform/qt/SvgIcon.h"
#include "resources/CommandIds.h"

namespace {

constexpr int kIconSize = 18;

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

}  // namespace

QIcon MakeCommandIcon(unsigned id, const QPalette& palette) {
  const auto* found = std::ranges::find(kNames, id, &IconName::id);
  if (found == std::end(kNames)) return {};
  const SvgColors colors =
      SvgColors::On(palette.color(QPalette::Button), palette.color(QPalette::ButtonText));
  QIcon icon;
  AddSvgPixmaps(icon, found->name, kIconSize, colors);
  return icon;
}
