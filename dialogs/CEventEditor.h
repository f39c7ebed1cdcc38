#pragma once

#include <string>

#include "platform/Dialog.h"

namespace morvane {

/// The editor of a message: event, guard and effect.
class CEventEditor : public Dialog {
 public:
  enum ControlId : int {
    kEventGroupId = 100,
    kEventId,
    kGuardGroupId,
    kGuardId,
    kEffectGroupId,
    kEffectId
  };

  explicit CEventEditor(Syntax syntax = Syntax::Cpp);

  /// What stands for an event without a name, in charts too.
  static constexpr const char* kNoName = "-Edit-";

  std::string event = kNoName;
  std::string guard;
  std::string effect;

 protected:
  void ExchangeFields(FieldExchange& exchange) override;
  bool OnOk() override;

 private:
  void ExchangeEvent(FieldExchange& exchange);
};

}  // namespace morvane
