#include "shell/CommandLine.h"

#include <filesystem>
#include <sstream>

#include "fuzz/FuzzTarget.h"
#include "platform/Files.h"
#include "tests/support/TempFolder.h"

namespace morvane {

// A start with any arguments: one in each line, and behind the first NUL the bytes of the file
// "in.mrv". Every path is taken into a folder of the target's own, so that nothing else is touched.

namespace {

const TempFolder& Folder() {
  static const TempFolder folder;
  return folder;
}

std::string IntoFolder(const std::string& path) {
  const std::string name = FileNameOf(path);
  const bool isDots = name == "." || name == "..";
  return Folder().Path(isDots || name.empty() ? "none" : name);
}

std::vector<std::string> ArgumentsOf(const std::string& lines) {
  std::vector<std::string> arguments;
  std::istringstream in(lines);
  for (std::string line; std::getline(in, line);) {
    arguments.push_back(arguments.empty() ? line : IntoFolder(line));
  }
  return arguments;
}

std::string BytesOf(const std::string& path) {
  std::string bytes;
  ReadWholeFile(path, bytes);
  return bytes;
}

/// Starts with an empty folder but for the chart, and gives the bytes of the output.
std::string Start(const std::vector<std::string>& arguments, const std::string& chart) {
  for (const auto& entry : std::filesystem::directory_iterator(Folder().Root())) {
    std::filesystem::remove_all(entry.path());
  }
  WriteWholeFile(Folder().Path("in.mrv"), chart);
  const CommandLine line = CommandLine::Parse(arguments);
  if (!line.IsJob()) return {};
  std::ostringstream out;
  std::ostringstream err;
  const int status = line.Run(out, err);
  const bool succeeds = status == CommandLine::kSuccess;
  Require(succeeds || status == CommandLine::kFailure || status == CommandLine::kWrongUse,
          "an exit status that has no meaning");
  Require(err.str().empty() == succeeds, "success is not silent, or failure is");
  Require(BytesOf(Folder().Path("in.mrv")) == chart || succeeds, "a failure changes a file");
  return out.str() + (arguments.size() > 1 ? BytesOf(arguments[1]) : "");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input = TextOf(data, size);
  const std::size_t end = std::min(input.find('\0'), size);
  const std::vector<std::string> arguments = ArgumentsOf(input.substr(0, end));
  const std::string chart = input.substr(std::min(end + 1, size));
  const std::string first = Start(arguments, chart);
  Require(Start(arguments, chart) == first, "another run gives other bytes");
  return 0;
}

}  // namespace morvane
