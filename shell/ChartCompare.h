#pragma once

#include <memory>
#include <string>

namespace morvane {

class CDocument;
class ChartComparison;

/// Compares a file, the older version, with the chart of a document as it is on the screen, and
/// places both for a picture. Null, after a message, if the file can't be read or nothing differs.
std::unique_ptr<ChartComparison> CompareWithFile(const CDocument& document,
                                                 const std::string& file);

}  // namespace morvane
