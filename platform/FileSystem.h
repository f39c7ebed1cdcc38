#pragma once

#include <string>
#include <vector>

#include "platform/Folders.h"

namespace morvane {

// Plain questions to the system's files. Paths are its own bytes, or UTF-8 where it knows letters.

/// Something is at the path, links followed.
bool IsThere(const std::string& path);
/// An ordinary file is at the path, links followed.
bool IsFileAt(const std::string& path);
/// A folder is at the path, links followed.
bool IsFolderAt(const std::string& path);
/// An ordinary file that this user can run is at the path.
bool IsProgramAt(const std::string& path);
/// The path begins at the root of a file system.
bool IsAbsolute(const std::string& path);
/// The path from the root on, with links and dots as they are; itself if the system can't tell.
std::string AbsolutePath(const std::string& path);

/// Hands over what `Folders::Visit` does, of the real file system.
void VisitFolder(const std::string& folder, const Folders::Visitor& visitor);
/// The names in a folder, in no order; none if it can't be read.
std::vector<std::string> NamesIn(const std::string& folder);
/// The places at which paths of this system begin, as `Folders::Drives` gives them.
std::vector<std::string> SystemDrives();

/// Makes a folder, and those above it, that nobody but the user reads. False if there is none after
/// that in which files can be made.
bool MakePrivateFolder(const std::string& folder);
/// Takes a file away; false if there is none or it has to stay.
bool RemoveFile(const std::string& path);
/// Where programs keep what outlives them and is nobody else's business; empty without such a
/// place.
std::string UserStateFolder();

}  // namespace morvane
