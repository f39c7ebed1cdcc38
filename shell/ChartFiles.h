#pragma once

#include <string>
#include <string_view>

namespace morvane {

class DocumentManager;

/// The path is that of a chart file, by its name.
bool IsChartFile(std::string_view path);

/// Opens a chart file, or brings its window forward; any other path does nothing.
void OpenChartFile(DocumentManager& manager, const std::string& path);

}  // namespace morvane
