#pragma once

#include <cstdint>

#include "platform/CDialog.h"

/// The properties of a line, as indices into the tables of colours and pen styles.
class CLineProperty : public CDialog {
 public:
  enum ControlId : int { IDC_COLOR = 100, IDC_STYLE };

  CLineProperty();

  std::int32_t colourIndex = 0;
  std::int32_t styleIndex = 0;

 protected:
  void DoDataExchange(DataExchange& exchange) override;
};
