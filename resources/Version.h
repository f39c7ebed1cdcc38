#pragma once

namespace morvane {

/// The version of the program, as "4.1.0". The build gives it, which has it from its project. That
/// of a model text is another number: it changes with the format alone.
extern const char* const kProductVersion;

}  // namespace morvane
