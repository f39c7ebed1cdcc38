#include "codegen/CodegenControls.h"

#include "platform/CDialog.h"

void AddNameBox(CDialog& sheet, int id, const std::string& label, int group) {
  sheet.Add(DialogControl::Kind::Edit, id, label, group).code = true;
}

void AddCodeBox(CDialog& sheet, int id, const std::string& label, int group) {
  DialogControl& box = sheet.Add(DialogControl::Kind::MultiEdit, id, label, group);
  box.code = true;
  box.width = 52;
}
