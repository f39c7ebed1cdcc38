#include "persistence/DiskFile.h"

#include <exception>
#include <functional>

#include "persistence/ModelFile.h"
#include "platform/Files.h"

namespace morvane {

namespace {

std::size_t HashOf(std::string_view text) { return std::hash<std::string_view>()(text); }

}  // namespace

void DiskFile::Remember(const std::string& file, const FileStamp& asOf, std::string_view text) {
  RememberStamp(file, asOf);
  hash = HashOf(text);
}

void DiskFile::RememberStamp(const std::string& file, const FileStamp& asOf) {
  path = file;
  stamp = asOf;
  hash.reset();
  state = State::Same;
}

void DiskFile::Forget() { RememberStamp({}, {}); }

DiskFile::State DiskFile::StateOf(const FileStamp& now) {
  if (now == stamp) return State::Same;
  if (!now.exists) return State::Gone;
  std::string bytes;
  if (!hash || !ReadWholeFile(path, bytes).Ok()) return State::Changed;
  if (HashOf(ModelFile::FromDisk(ModelFile::WithoutMark(std::move(bytes)))) != *hash)
    return State::Changed;
  stamp = now;
  return State::Same;
}

DiskFile::State DiskFile::Look() {
  if (path.empty()) return State::Same;
  try {
    state = StateOf(FileStamp::Of(path));
  } catch (const std::exception&) {
    state = State::Changed;  // without memory for its text nobody can say that it is the same
  }
  return state;
}

void DiskFile::Accept() { RememberStamp(path, FileStamp::Of(path)); }

}  // namespace morvane
