#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// The folder above the program's `bin` folder, in upper case, with its trailing separator; "bin",
/// "Docs" and "Examples" are added to it. `FindPath` turns it into a path that exists.
std::string GetInstallFolder();

/// The same for a given full file name of the program: cut before the last folder whose whole name
/// is "bin". A name without it comes back whole, in upper case.
std::string InstallFolderOf(std::string_view programPath);

}  // namespace morvane
