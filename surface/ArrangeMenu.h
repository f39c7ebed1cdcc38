#pragma once

#include "platform/Command.h"
#include "resources/CommandIds.h"

namespace morvane {

inline constexpr MenuEntry kArrangeEntries[] = {
    {ID_ALIGN_LEFT},
    {ID_ALIGN_CENTRE},
    {ID_ALIGN_RIGHT},
    {},
    {ID_ALIGN_TOP},
    {ID_ALIGN_MIDDLE},
    {ID_ALIGN_BOTTOM},
    {},
    {ID_DISTRIBUTE_ACROSS},
    {ID_DISTRIBUTE_DOWN},
    {},
    {ID_SAME_WIDTH},
    {ID_SAME_HEIGHT},
    {ID_SAME_SIZE},
};

/// What puts several selected objects in order.
inline constexpr MenuPopup kArrangeMenu{"Arran&ge", kArrangeEntries};

}  // namespace morvane
