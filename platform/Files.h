#pragma once

#include <string>
#include <string_view>

// Files and paths. Code that cuts paths takes "/" and "\" alike.

struct FileResult {
  enum class Stage { Done, Open, Transfer };
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
/// Writes a file in place, truncating what was there. `Stage::Open` means that nothing was touched,
/// `Stage::Transfer` that the file may be incomplete.
FileResult WriteWholeFile(const std::string& path, std::string_view bytes);
/// Writes a file beside the old one and puts it in its place at the end, so that a failure changes
/// nothing. What is no ordinary file is written in place.
FileResult ReplaceWholeFile(const std::string& path, std::string_view bytes);

/// The part behind the last separator.
std::string FileNameOf(std::string_view path);
/// The part before the last separator, which goes too; empty if there is none.
std::string FolderOf(std::string_view path);
/// The part from the last dot of the file name on, in lower case; empty if there is none.
std::string ExtensionOf(std::string_view path);
/// An absolute form of the path with symbolic links and dots resolved as far as it exists.
std::string FullPath(const std::string& path);
/// The path as it exists: as written, or else with each piece matched without regard to case. The
/// path itself, with "/" between the pieces, if there is no such file.
std::string FindPath(const std::string& path);
/// The full file name of the running program; empty if the system doesn't tell.
std::string ProgramPath();
