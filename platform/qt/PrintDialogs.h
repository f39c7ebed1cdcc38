#pragma once

#include <string>

class QPrinter;

namespace morvane {

// What the desktop asks before something is printed.

/// Has the user choose where and what `printer` prints: a printer or a file, pages and copies.
/// False if they give up. A file is proposed beside the one at `path`.
bool ChoosePrinter(QPrinter& printer, const std::string& path);
/// Has the user choose paper, orientation and margins. False if they give up.
bool ChoosePaper(QPrinter& printer);
/// The name of the file that is proposed for one at `path`, as it is shown.
std::string ProposedPdf(const std::string& path);

}  // namespace morvane
