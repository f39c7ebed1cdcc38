#pragma once

namespace morvane {

class LayoutMgr;

// The chart handed to other programs.

/// Puts a picture of the chart on the clipboard, as a metafile and in forms for programs that read
/// none, and tells the user.
void CopyAsMetafile(LayoutMgr& chart);
/// Writes a picture of the chart, or of its selection, to a file that the user chooses.
void ExportPicture(LayoutMgr& chart);

}  // namespace morvane
