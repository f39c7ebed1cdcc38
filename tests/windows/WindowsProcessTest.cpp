#include <cstdio>
#include <future>
#include <gtest/gtest.h>
#include <thread>
#include <windows.h>

#include "platform/CrashReport.h"
#include "platform/FileLock.h"
#include "platform/Files.h"
#include "platform/Process.h"
#include "platform/ThisProcess.h"
#include "platform/windows/WideText.h"
#include "tests/support/Leftovers.h"
#include "tests/support/Places.h"
#include "tests/windows/WideFolder.h"

namespace morvane {

namespace {

using namespace std::chrono_literals;

std::unique_ptr<Process> StartTool(const std::string& arguments) {
  return Processes::Default().Start(TestToolPath() + " " + arguments, false);
}

/// All of a stream, or what there is up to its first line end.
std::string ReadFrom(Process& process, bool toEnd) {
  std::string text;
  char chunk[4096];
  while (toEnd || !text.ends_with('\n')) {
    const std::size_t count = process.Read(Process::Stream::Output, chunk);
    if (count == 0) break;
    text.append(chunk, count);
  }
  return text;
}

TEST(WindowsProcessTest, GetsItsLineAndGivesItsBytes) {
  const auto process = StartTool("echo -d \"a b\" Zust\u00E4nde");
  ASSERT_NE(process, nullptr);
  EXPECT_TRUE(ReadFrom(*process, true).starts_with("[-d]\n[a b]\n[Zust"));
  EXPECT_TRUE(process->WaitForEnd(30s));
  EXPECT_EQ(Processes::Default().Start("C:\\none.exe -d", false), nullptr);
  EXPECT_EQ(Processes::Default().Start("", false), nullptr);
}

TEST(WindowsProcessTest, TellsHowItEnded) {
  const std::tuple<const char*, ProcessEnd::How, int> cases[] = {
      {"exit 7", ProcessEnd::How::Exited, 7},
      {"exit 259", ProcessEnd::How::Exited, 259},
      {"signal -1073741819", ProcessEnd::How::Killed, static_cast<int>(0xC0000005)}};
  for (const auto& [arguments, how, number] : cases) {
    const auto process = StartTool(arguments);
    ASSERT_NE(process, nullptr);
    ASSERT_TRUE(process->WaitForEnd(30s)) << arguments;
    const auto end = process->End();
    ASSERT_TRUE(end) << arguments;
    EXPECT_EQ(end->how, how) << arguments;
    EXPECT_EQ(end->number, number) << arguments;
  }
}

TEST(WindowsProcessTest, EndsWithItsHelpersAndItsReadersWake) {
  const auto process = StartTool("stubborn");
  ASSERT_NE(process, nullptr);
  long tool = 0;
  long helper = 0;
  ASSERT_EQ(std::sscanf(ReadFrom(*process, false).c_str(), "%ld %ld", &tool, &helper), 2);
  EXPECT_TRUE(IsAlive(tool) && IsAlive(helper));
  EXPECT_FALSE(process->End());
  auto reader = std::async(std::launch::async, [&] { return ReadFrom(*process, true); });
  process->SignalStop();
  EXPECT_EQ(reader.get(), "");
  process->CloseOwn();
  process->Terminate();
  EXPECT_TRUE(process->WaitForEnd(30s));
  EXPECT_EQ(process->End()->how, ProcessEnd::How::Killed);
  EXPECT_TRUE(WaitUntil([&] { return !IsAlive(tool) && !IsAlive(helper); }));
}

TEST(WindowsLockTest, HoldsAgainstOthersAndCanBeReadMeanwhile) {
  const WideFolder folder;
  const std::string path = folder.Path("a.lock");
  {
    FileLock lock = FileLock::Take(path);
    ASSERT_TRUE(lock.Held());
    lock.Write("a longer text\n");
    lock.Write("text\n");
    EXPECT_TRUE(FileLock::IsHeld(path));
    EXPECT_FALSE(FileLock::Take(path).Held());
    std::string bytes;
    EXPECT_TRUE(ReadWholeFile(path, bytes).Ok());
    EXPECT_EQ(bytes, "text\n");
  }
  EXPECT_FALSE(FileLock::IsHeld(path)) << "a stale one";
  FileLock again = FileLock::Take(path);
  EXPECT_TRUE(again.Held());
  again.Remove();
  EXPECT_FALSE(IsThere(path));
}

/// Runs this program once more for a test that is left out by itself.
int RunSelf(const char* test, const std::string& report) {
  SetEnvironmentVariableW(L"MORVANE_CRASH", Wide(report).c_str());
  const auto process = Processes::Default().Start(
      "\"" + ProgramPath() +
          "\" --gtest_also_run_disabled_tests --gtest_catch_exceptions=0 "
          "--gtest_filter=*." +
          test,
      false);
  if (process == nullptr) return 0;
  ReadFrom(*process, true);
  process->WaitForEnd(30s);
  return process->End() ? process->End()->number : 0;
}

std::string ReportOfParent() {
  wchar_t path[MAX_PATH] = {};
  GetEnvironmentVariableW(L"MORVANE_CRASH", path, MAX_PATH);
  return Narrow(path);
}

TEST(WindowsCrash, DISABLED_Violation) {
  SetErrorMode(SEM_NOGPFAULTERRORBOX);
  CrashReport::Install(ReportOfParent(), "9.8.7");
  RaiseException(EXCEPTION_ACCESS_VIOLATION, 0, 0, nullptr);
}

TEST(WindowsCrash, DISABLED_Uncaught) {
  CrashReport::Install(ReportOfParent(), "9.8.7");
  std::terminate();
}

TEST(WindowsCrash, IsReportedAndStillACrash) {
  const WideFolder folder;
  const std::pair<const char*, const char*> cases[] = {{"DISABLED_Violation", "access violation"},
                                                       {"DISABLED_Uncaught", "abort"}};
  for (const auto& [test, cause] : cases) {
    const std::string path = folder.Path(std::string(test) + ".crash");
    EXPECT_NE(RunSelf(test, path), 0) << test;
    std::string report;
    EXPECT_TRUE(ReadWholeFile(path, report).Ok()) << test;
    EXPECT_TRUE(report.starts_with("Morvane 9.8.7\nSignal: " + std::string(cause))) << report;
    EXPECT_NE(report.find("morvane_windows_tests.exe+0x"), std::string::npos) << "the calls";
  }
}

}  // namespace

}  // namespace morvane
