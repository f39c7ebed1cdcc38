#pragma once

#include <cstdint>

#include "platform/Geometry.h"

class MesgPropDlg;
class ModelStream;

/// How the box of a message or a note is filled and framed.
struct BoxLook {
  void Write(ModelStream& stream) const;
  void Read(ModelStream& stream);
  /// Lets the user change the look and whether the anchors show; false on Cancel.
  bool Edit(MesgPropDlg& dialog, bool& showAnchors);

  std::int32_t bgTransparent = 0;
  std::int32_t noBorder = 0;
  COLORREF bgColor = 0xFFFFFF;
  COLORREF borderColor = 0;
};
