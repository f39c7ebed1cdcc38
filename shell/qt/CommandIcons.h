#pragma once

#include <QIcon>

class QPalette;

namespace morvane {

/// The icon of a command in the colours of a palette; null if the command has none.
QIcon MakeCommandIcon(unsigned id, const QPalette& palette);

}  // namespace morvane
