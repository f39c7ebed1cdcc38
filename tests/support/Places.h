#pragma once

#include <string>
#include <string_view>

namespace morvane {

// One source knows where things lie, so that a clone in another folder compiles no other anew.

/// The path of a file or folder of the sources, which is given from their root.
std::string SourcePath(std::string_view path);
/// The path of a file or folder that tests write, which is given from their build folder.
std::string OutputPath(std::string_view path);
/// The designer itself.
std::string DesignerPath();
/// The tests' own tool.
std::string TestToolPath();

}  // namespace morvane
