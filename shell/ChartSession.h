#pragma once

#include "recovery/SessionRecord.h"

namespace morvane {

class DocumentManager;
class CDocument;
struct RecoveryOffer;

// What brings the charts of an earlier run of the program back.

/// The charts that have a file, in the order of their windows.
SessionRecord WindowsOf(const DocumentManager& manager, const CDocument* active);

/// Opens the charts of another session that are still there, and brings the one forward that was in
/// use then.
void ReopenWindows(DocumentManager& manager, const SessionRecord& windows);

/// Opens the chart of unsaved work that was left behind and shows that work as its last change; a
/// file that is gone or can't be read any more is no hindrance. False, after a message, when the
/// work itself can't be read; it stays in the store then.
bool RecoverChart(DocumentManager& manager, RecoveryOffer& offer);

}  // namespace morvane
