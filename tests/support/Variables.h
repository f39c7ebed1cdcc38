#pragma once

namespace morvane {

/// Sets a variable of the environment, or takes it away with null.
void SetVariable(const char* name, const char* value);

}  // namespace morvane
