#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace morvane {

// Files and paths. Code that cuts paths takes "/" and "\" alike.

struct FileResult {
  /// How far it came: `Reserve` means that there is no room for the bytes.
  enum class Stage { Done, Open, Reserve, Transfer };
  Stage stage = Stage::Done;
  int error = 0;  ///< errno of the failed step

  bool Ok() const { return stage == Stage::Done; }
  /// The system's text for the error.
  std::string ErrorText() const;
};

/// Reads all bytes of a file. A folder can't be read.
FileResult ReadWholeFile(const std::string& path, std::string& bytes);
/// True for a file that exists and holds nothing.
bool IsEmptyFile(const std::string& path);
/// Writes a file in place, with its bytes on the disk when this returns. Before one is overwritten
/// there is room for all: `Stage::Open` and `Stage::Reserve` mean that an old file is as it was,
/// `Stage::Transfer` that it may be incomplete. A file that this has made goes again when it fails.
/// One that nobody may write is not opened, whoever asks. Symbolic links are followed, also to
/// where there is no file yet; pipes and devices are just written to.
FileResult WriteWholeFile(const std::string& path, std::string_view bytes);
/// Writes a file of a name of its own beside the old one and puts it in its place at the end, so
/// that a failure changes nothing and a killed process leaves the old bytes or the new ones. It has
/// the mode of the old one and, where that is allowed, its owner and group. What is no ordinary
/// file, has several names, or lies where no new file may take its place is written in place. If
/// only the folder can't be brought to the disk, that is said though the new bytes are there.
FileResult ReplaceWholeFile(const std::string& path, std::string_view bytes);

/// The part behind the last separator.
std::string FileNameOf(std::string_view path);
/// The part before the last separator, which goes too; empty if there is none.
std::string FolderOf(std::string_view path);
/// The part from the last dot of the file name on, in lower case; empty if there is none.
std::string ExtensionOf(std::string_view path);
/// An absolute form of the path with symbolic links and dots resolved as far as it exists.
std::string FullPath(const std::string& path);
/// The path as it exists: as written, or else with each piece matched without regard to case. What
/// leads to the program's own folder is taken as the program's own. The path itself, with "/"
/// between the pieces, if there is no such file.
std::string FindPath(const std::string& path);
/// The same for a file that `isWanted`, of all that the path may mean.
std::string FindPath(const std::string& path,
                     const std::function<bool(const std::string& path)>& isWanted);
/// The full file name of the running program; empty if the system doesn't tell.
std::string ProgramPath();

}  // namespace morvane
