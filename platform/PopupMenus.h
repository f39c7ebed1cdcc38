#pragma once

#include <string>
#include <vector>

#include "platform/CWnd.h"
#include "platform/ModalLoop.h"
#include "platform/Service.h"

namespace morvane {

/// Popup menus at a point of the screen. The default service has no screen: nothing is chosen.
class PopupMenus {
 public:
  struct Item {
    unsigned id;       ///< 0 is a separator
    std::string text;  ///< with "&" before the mnemonic
    CommandState state;
    std::vector<Item> popup = {};  ///< what opens beside the item, which is no command then

    bool IsSeparator() const { return id == 0 && popup.empty(); }
  };

  virtual ~PopupMenus() = default;
  /// Shows the menu and waits; gives the chosen command, or 0.
  virtual unsigned Track(const std::vector<Item>& items, POINT screen) = 0;
  static PopupMenus& Default();
};

inline unsigned TrackMenu(const std::vector<PopupMenus::Item>& items, POINT screen) {
  const ModalLoop loop;
  return Service<PopupMenus>::Get().Track(items, screen);
}

}  // namespace morvane
