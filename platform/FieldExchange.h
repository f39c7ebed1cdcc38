#pragma once

#include <cstdint>
#include <string>

namespace morvane {

class Dialog;

/// One move of a dialog's fields into its controls, or back into the fields. A field whose control
/// still shows it is left alone.
class FieldExchange {
 public:
  enum class Way { ToControls, ToFields };

  FieldExchange(Dialog& dialog, Way way) : dialog(dialog), way(way) {}

  void Text(int id, std::string& field);
  /// A flag of a check box. Any number but 0 shows as checked and stays that number.
  void Check(int id, std::int32_t& flag);
  /// The choice of a combo. An index without an item shows none and stays what it is.
  void Index(int id, std::int32_t& index);

 private:
  Dialog& dialog;
  Way way;
};

}  // namespace morvane
