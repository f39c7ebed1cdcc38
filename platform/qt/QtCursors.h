#pragma once

#include <QCursor>

#include "platform/Message.h"

namespace morvane {

/// The picture of a cursor.
QCursor MakeCursor(Cursor cursor);

}  // namespace morvane
