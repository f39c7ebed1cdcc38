#pragma once

#include <QString>

namespace morvane {

class CDocument;

// A chart's name where windows show it, with its unsaved changes.

/// For a window's title: the toolkit puts its mark at the end of the name while the window is
/// modified.
QString MarkedTitle(const CDocument& document);
/// The same for a window inside the main window.
QString MarkedInnerTitle(const CDocument& document);
/// For an entry of a menu, with an asterisk behind the name of a chart that has unsaved changes.
QString MenuTitle(const CDocument& document);

}  // namespace morvane
