#pragma once

#include "platform/PopupMenus.h"

namespace morvane {

/// Popup menus by Qt.
class QtPopupMenus : public PopupMenus {
 public:
  unsigned Track(const std::vector<Item>& items, POINT screen) override;
};

}  // namespace morvane
