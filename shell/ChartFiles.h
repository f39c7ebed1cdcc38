#pragma once

#include <string>
#include <string_view>

class CDocManager;

/// The path is that of a chart file, by its name.
bool IsChartFile(std::string_view path);

/// Opens a chart file, or brings its window forward; any other path does nothing.
void OpenChartFile(CDocManager& manager, const std::string& path);
