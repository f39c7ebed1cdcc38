#pragma once

#include <cstdint>

#include "platform/Dialog.h"

namespace morvane {

/// The properties of a line, as indices into the tables of colours and pen styles.
class CLineProperty : public Dialog {
 public:
  enum ControlId : int { kColourId = 100, kStyleId };

  CLineProperty();

  std::int32_t colourIndex = 0;
  std::int32_t styleIndex = 0;

 protected:
  void ExchangeFields(FieldExchange& exchange) override;
};

}  // namespace morvane
