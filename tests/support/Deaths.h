#pragma once

namespace morvane {

/// By which number a process is known to have ended that died of the signal, or where there are
/// none of the exception, of a number.
int DeathBy(int number);

}  // namespace morvane
