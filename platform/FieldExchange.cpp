#include "platform/FieldExchange.h"

#include "platform/Dialog.h"

namespace morvane {

void FieldExchange::Text(int id, std::string& field) {
  std::string& shown = dialog.Control(id).text;
  if (way == Way::ToFields) {
    field = shown;
  } else {
    shown = field;
  }
}

void FieldExchange::Check(int id, std::int32_t& flag) {
  bool& shown = dialog.Control(id).checked;
  const bool set = flag != 0;
  if (way == Way::ToControls) {
    shown = set;
  } else if (shown != set) {
    flag = shown ? 1 : 0;
  }
}

void FieldExchange::Index(int id, std::int32_t& index) {
  DialogControl& combo = dialog.Control(id);
  if (way == Way::ToControls) {
    const bool known = index >= 0 && index < combo.itemCount;
    combo.selection = known ? index : DialogControl::kNoItem;
  } else if (combo.selection != DialogControl::kNoItem) {
    index = combo.selection;
  }
}

}  // namespace morvane
