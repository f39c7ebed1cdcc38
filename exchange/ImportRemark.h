#pragma once

#include <string>
#include <vector>

namespace morvane {

/// Something of a file that a chart has no counterpart for.
struct ImportRemark {
  int line = 0;      ///< of the file
  std::string text;  ///< what becomes of it
  std::string kept;  ///< as the file has it, where that is worth keeping
};

using ImportRemarks = std::vector<ImportRemark>;

}  // namespace morvane
