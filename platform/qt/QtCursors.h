#pragma once

#include <QCursor>

#include "platform/Message.h"

/// The picture of a cursor.
QCursor MakeCursor(Cursor cursor);
