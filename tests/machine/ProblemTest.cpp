#include <gtest/gtest.h>

#include "machine/Problem.h"

namespace morvane {

namespace {

using Severity = Problem::Severity;

TEST(Problem, IsALineWithItsPlace) {
  EXPECT_EQ(FormatProblem("Lift.mrv", {Severity::Error, 105, 47, "GenericState 105 overlaps"}),
            "Lift.mrv:47: error: GenericState 105 overlaps");
  EXPECT_EQ(FormatProblem("a b.mrv", {Severity::Warning, 0, 0, "no state"}),
            "a b.mrv: warning: no state");
}

TEST(Problem, AreSummed) {
  const Problem error{Severity::Error, 0, 0, ""};
  const Problem warning{Severity::Warning, 0, 0, ""};
  EXPECT_EQ(SummaryOf({}), "");
  EXPECT_EQ(SummaryOf({error}), "1 error");
  EXPECT_EQ(SummaryOf({warning, warning}), "2 warnings");
  EXPECT_EQ(SummaryOf({error, warning, error}), "2 errors, 1 warning");
  EXPECT_TRUE(HasErrors({warning, error}));
  EXPECT_FALSE(HasErrors({warning}));
}

}  // namespace

}  // namespace morvane
