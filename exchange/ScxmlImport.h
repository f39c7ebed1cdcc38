#pragma once

#include <string>
#include <string_view>

#include "exchange/ImportRemark.h"

namespace morvane {

/// What came of a document: a chart, or the reason why there is none.
struct ImportResult {
  std::string modelText;  ///< with LF between the lines
  ImportRemarks remarks;  ///< in the order of the lines
  std::string failure;    ///< empty on success
};

/// Makes a chart of a document of SCXML. `fileName` is what it is called where it says nothing.
ImportResult ImportScxml(std::string_view bytes, const std::string& fileName);
/// The same of a file.
ImportResult ImportScxmlFile(const std::string& path);

/// A line for each remark, as problems are listed.
std::string RemarkLines(const std::string& path, const ImportRemarks& remarks);

}  // namespace morvane
