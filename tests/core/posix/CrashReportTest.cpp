#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/CrashReport.h"
#include "tests/support/ChartTest.h"

namespace morvane {

namespace {

TEST(CrashReportTest, ACrashIsReportedAndStillACrash) {
  const TempFolder folder;
  for (const int signal : {SIGSEGV, SIGABRT}) {
    const std::string report = folder.Path("crash");
    const pid_t child = fork();
    if (child == 0) {
      CrashReport::Install(report, "9.8.7");
      if (signal == SIGABRT) std::terminate();
      raise(signal);
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal);
    EXPECT_NE(folder.Read("crash").find("Morvane 9.8.7\nSignal: SIG"), std::string::npos);
    EXPECT_NE(folder.Read("crash").find(signal == SIGABRT ? "ABRT" : "SEGV"), std::string::npos);
    EXPECT_NE(folder.Read("crash").find("morvane_core_tests"), std::string::npos) << "the calls";
  }
}

}  // namespace

}  // namespace morvane
