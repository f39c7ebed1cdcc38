#include <atomic>
#include <future>
#include <gtest/gtest.h>

#include "codegen/CRedirect.h"
#include "codegen/ToolInbox.h"
#include "tests/support/Tools.h"
#include "tests/support/UiQueue.h"

namespace morvane {

namespace {

using namespace std::chrono_literals;

using Words = std::vector<std::string>;

/// Keeps all that a run reports.
class Recorder : public CRedirect {
 public:
  using CRedirect::CRedirect;
  using CRedirect::ToolEnd;

  std::string started;
  std::string output;
  std::string error;
  int exits = 0;

 protected:
  void OnToolStarted(const std::string& commandLine) override { started = commandLine; }
  void OnToolOutput(const std::string& text) override { output += text; }
  void OnToolError(const std::string& text) override { error += text; }
  void OnToolExited() override { ++exits; }
};

class GeneratorRunTest : public testing::Test {
 protected:
  bool Launch(const std::string& arguments) { return tool->LaunchTool(ToolLine(arguments), false); }
  bool WaitForOutput(const std::string& end) {
    return ui.RunUntil([&] { return tool->output.ends_with(end); });
  }
  bool WaitForExit() {
    return ui.RunUntil([&] { return tool->exits > 0; });
  }
  static bool WaitWithoutTaking() {
    return WaitUntil([] { return !CRedirect::IsRunning(); });
  }
  /// Nothing may be left of a run once its dialog is closed.
  void TearDown() override {
    tool.reset();
    ui.RunAll();
    EXPECT_EQ(leftovers.Leftovers(), "");
  }

  const LeftoverCheck leftovers;
  UiQueue ui;
  TestProcesses processes;
  std::unique_ptr<Recorder> tool = std::make_unique<Recorder>();
};

TEST_F(GeneratorRunTest, ReportsStartOutputAndEnd) {
  ASSERT_TRUE(Launch("echo -d -g /My charts/lift.mrv"));
  EXPECT_EQ(tool->started, ToolLine("echo -d -g /My charts/lift.mrv"));
  ASSERT_TRUE(WaitForOutput("idle\n"));
  EXPECT_EQ(tool->output, "[-d]\n[-g]\n[/My]\n[charts/lift.mrv]\ninput is idle\n");
  ASSERT_TRUE(WaitForExit());
  EXPECT_FALSE(CRedirect::IsRunning());
}

TEST_F(GeneratorRunTest, NothingIsLostWhenTheToolEndsAtOnce) {
  // More than a chunk, on both streams, and nearly as much as a pipe holds.
  const std::string expected = NumberedLines(0, 6000);
  ASSERT_TRUE(Launch("both 6000") && WaitWithoutTaking());
  ASSERT_TRUE(ui.RunUntil([&] {
    return tool->output.size() >= expected.size() && tool->error.size() >= expected.size();
  }));
  EXPECT_EQ(tool->output, expected);
  EXPECT_EQ(tool->error, expected);
}

TEST_F(GeneratorRunTest, AFloodThatNobodyTakesIsReadToItsEnd) {
  constexpr long count = 10'000'000;
  ASSERT_TRUE(Launch("lines " + std::to_string(count)) && WaitWithoutTaking());
  ASSERT_TRUE(WaitForOutput(NumberedLines(count - 1, count)));
  EXPECT_GE(tool->output.size(), ToolInbox::kCapacity);
  EXPECT_LT(tool->output.size(), 2 * ToolInbox::kCapacity);
  const long kept = static_cast<long>(tool->output.size() / 10);
  EXPECT_TRUE(tool->output.ends_with(NumberedLines(count - kept, count))) << "without a gap";
  // The next has no end.
  tool->output.clear();
  ASSERT_TRUE(Launch("lines 0"));
  ASSERT_TRUE(ui.RunUntil([&] { return !tool->output.empty(); }));
}

TEST_F(GeneratorRunTest, AToolThatWillNotEndIsEndedWithItsHelper) {
  ASSERT_TRUE(Launch("stubborn") && WaitForOutput("\n"));
  long pid = 0;
  long helper = 0;
  ASSERT_EQ(std::sscanf(tool->output.c_str(), "%ld %ld", &pid, &helper), 2);
  ASSERT_TRUE(IsAlive(pid) && IsAlive(helper));
  tool.reset();
  EXPECT_FALSE(IsAlive(pid));
  EXPECT_TRUE(WaitUntil([helper] { return !IsAlive(helper); }));
}

TEST_F(GeneratorRunTest, AToolWithoutStreamsStillRunsUntilTheStop) {
  ASSERT_TRUE(Launch("silent") && WaitForOutput("\n"));
  const long pid = std::stol(tool->output);
  EXPECT_TRUE(CRedirect::IsRunning() && IsAlive(pid));
  tool->StopTool();
  EXPECT_FALSE(CRedirect::IsRunning() || IsAlive(pid));
  EXPECT_EQ(tool->exits, 0);
}

TEST_F(GeneratorRunTest, ASecondRunEndsTheFirstAndDropsItsLateOutput) {
  ASSERT_TRUE(Launch("stubborn"));
  ASSERT_TRUE(WaitUntil([&] { return ui.Count() != 0; })) << "its report waits";
  ASSERT_TRUE(Launch("lines 3"));
  EXPECT_EQ(processes.slept, 0ms) << "the user waits for the new run";
  ASSERT_TRUE(WaitForExit() && WaitForOutput("2\n"));
  EXPECT_EQ(tool->output, NumberedLines(0, 3));
}

/// A process that never ends. It writes down in which order it is stopped.
class FakeProcesses : public Processes {
 public:
  std::unique_ptr<Process> Start(const std::string&, bool) override {
    return std::make_unique<Fake>(*this);
  }
  void Sleep(std::chrono::milliseconds time) override {
    calls.push_back("sleep " + std::to_string(time.count()));
  }

  Words calls;  ///< of the test's own thread
  std::atomic<bool> alive = false;
  std::atomic<int> reading = 0;
  std::promise<void> release;  ///< what the readers wait for
  const std::shared_future<void> released = release.get_future();

 private:
  struct Fake : public Process {
    explicit Fake(FakeProcesses& owner) : owner(owner) { owner.alive = true; }
    ~Fake() override { owner.alive = false; }
    std::size_t Read(Stream, std::span<char>) override {
      ++owner.reading;
      owner.released.wait();
      return 0;
    }
    bool WaitForEnd(std::chrono::milliseconds limit) override {
      if (std::this_thread::get_id() != main) return false;
      owner.calls.push_back("wait " + std::to_string(limit.count()));
      return false;
    }
    std::optional<ProcessEnd> End() override { return std::nullopt; }
    void SignalStop() override { owner.calls.push_back("signal"); }
    void CloseInherited() override { owner.calls.push_back("close inherited"); }
    void CloseOwn() override { owner.calls.push_back("close own"); }
    void Terminate() override { owner.calls.push_back("terminate"); }

    FakeProcesses& owner;
    const std::thread::id main = std::this_thread::get_id();
  };

  const UseService<Processes> use{*this};
};

TEST(GeneratorStopTest, KeepsItsOrderAndItsTimesAndForgetsThreadsThatDoNotEnd) {
  const LeftoverCheck leftovers;
  UiQueue ui;
  FakeProcesses processes;
  auto tool = std::make_unique<Recorder>(1ms);
  tool->StopTool();
  EXPECT_EQ(processes.calls, (Words{"sleep 500", "sleep 100", "sleep 100", "sleep 100"}));
  ASSERT_TRUE(tool->LaunchTool("x", false));
  ASSERT_TRUE(WaitUntil([&] { return processes.reading == 2; }));
  processes.calls.clear();
  tool.reset();
  EXPECT_EQ(processes.calls,
            (Words{"signal", "sleep 500", "close inherited", "sleep 100", "close own", "sleep 100",
                   "sleep 100", "wait 0", "terminate", "wait 1"}));
  EXPECT_TRUE(processes.alive) << "the readers still use it";
  processes.release.set_value();
  EXPECT_TRUE(WaitUntil([&] { return !processes.alive; }));
  EXPECT_EQ(leftovers.Leftovers(), "");
}

}  // namespace

}  // namespace morvane
