#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "platform/Process.h"
#include "platform/UseService.h"
#include "tests/support/Leftovers.h"
#include "tests/support/Places.h"

namespace morvane {

/// The command line of the tests' own tool.
inline std::string ToolLine(const std::string& arguments) {
  return TestToolPath() + " " + arguments;
}

/// Starts real programs, or `instead` whatever it is told, and never rests.
class TestProcesses : public Processes {
 public:
  std::unique_ptr<Process> Start(const std::string& commandLine, bool showWindow) override {
    started.push_back(commandLine);
    return Processes::Default().Start(instead.empty() ? commandLine : instead, showWindow);
  }
  void Sleep(std::chrono::milliseconds time) override { slept += time; }

  std::vector<std::string> started;
  std::string instead;
  std::chrono::milliseconds slept{};

 private:
  const UseService<Processes> use{*this};
};

/// The tool's lines from one number to before another.
inline std::string NumberedLines(long first, long end) {
  std::string text;
  for (long i = first; i < end; ++i) text += std::to_string(1'000'000'000 + i).substr(1) + "\n";
  return text;
}

}  // namespace morvane
