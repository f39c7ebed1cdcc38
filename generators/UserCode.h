#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// What users write for the head of a file, as lines of C or C++: `<vector>` and `"part.h"`, also
/// part.h alone, become include lines. Everything else stays, and so does the number of lines.
std::string IncludeLines(std::string_view text);

/// Whether the members of a Java class that `declarations` hold need it to be abstract.
bool HasAbstractMember(std::string_view declarations);

/// Whether a text has lines whose leading blanks may mean something, as in a literal of several
/// lines.
bool KeepsItsColumns(std::string_view text);

}  // namespace morvane
