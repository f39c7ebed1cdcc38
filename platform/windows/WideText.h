#pragma once

#include <string>
#include <string_view>

namespace morvane {

/// A text in UTF-8 as the system takes it. Bytes that are no UTF-8 become replacement characters.
std::wstring Wide(std::string_view text);
/// A text of the system in UTF-8.
std::string Narrow(std::wstring_view text);

/// A path as the system's calls take it: "/" and "\" alike, and of any length, for which a long one
/// gets the form that begins with "\\?\".
std::wstring WidePath(const std::string& path);
/// A path of the system as the program shows it: without the mark of the long form.
std::string NarrowPath(std::wstring_view path);
/// The system would take the file name of a path for one of its devices, such as "NUL" or
/// "COM1.mrv", and let the bytes of the file vanish there.
bool NamesDevice(const std::string& path);

/// The errno that says the same as an error of the system.
int ErrnoOf(unsigned long error);
/// That of the last call of this thread.
int LastErrno();

}  // namespace morvane
