#include "platform/DataExchange.h"

#include "platform/CDialog.h"

void DataExchange::Text(int id, std::string& field) {
  std::string& shown = dialog.Control(id).text;
  if (save) {
    field = shown;
  } else {
    shown = field;
  }
}

void DataExchange::Check(int id, std::int32_t& flag) {
  bool& shown = dialog.Control(id).checked;
  const bool set = flag != 0;
  if (!save) {
    shown = set;
  } else if (shown != set) {
    flag = shown ? 1 : 0;
  }
}

void DataExchange::Index(int id, std::int32_t& index) {
  DialogControl& combo = dialog.Control(id);
  if (!save) {
    const bool known = index >= 0 && index < combo.itemCount;
    combo.selection = known ? index : DialogControl::kNoItem;
  } else if (combo.selection != DialogControl::kNoItem) {
    index = combo.selection;
  }
}
