#include "codegen/CodegenControls.h"

#include "platform/Dialog.h"

namespace morvane {

void AddNameBox(Dialog& sheet, int id, const std::string& label, int group) {
  sheet.Add(DialogControl::Kind::Edit, id, label, group).code = true;
}

void AddCodeBox(Dialog& sheet, int id, const std::string& label, int group, Syntax syntax) {
  DialogControl& box = sheet.Add(DialogControl::Kind::MultiEdit, id, label, group);
  box.code = true;
  box.syntax = syntax;
  box.width = 52;
}

}  // namespace morvane
