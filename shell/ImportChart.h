#pragma once

namespace morvane {

class DocumentManager;

/// Asks for an SCXML file and opens the chart that comes of it as a new one. What it has no
/// counterpart for, and why a file can't be read, the user is told.
void ImportChart(DocumentManager& manager);

}  // namespace morvane
