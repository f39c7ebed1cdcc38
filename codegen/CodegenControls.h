#pragma once

#include <string>

#include "platform/Syntax.h"

namespace morvane {

class Dialog;

// The two kinds of boxes that the pages of the code generation properties are made of.

/// A box of one line, for the name of a class, a file or a package.
void AddNameBox(Dialog& sheet, int id, const std::string& label, int group);
/// A box of several lines of code.
void AddCodeBox(Dialog& sheet, int id, const std::string& label, int group, Syntax syntax);

}  // namespace morvane
