#include "tests/ui/InstanceMeeting.h"

namespace morvane {

namespace {

TEST_F(SingleInstanceTest, LaterStartsHandOverWhateverTheyAskFor) {
  Requests taken;
  SingleInstance first(Into(taken), Place());
  EXPECT_FALSE(first.Begin({}));
  QApplication::processEvents();
  const Requests sent = {{folder.Path("x") + "\xFF\n.mrv", "id", "token"}, {}};
  for (const InstanceRequest& request : sent) EXPECT_TRUE(StartElsewhere(request));
  EXPECT_EQ(taken, sent);
  EXPECT_FALSE(StartElsewhere({"relative.mrv", "", ""})) << "it means another file here";

  SingleInstance beside([](const InstanceRequest&) { FAIL(); }, Place());
  EXPECT_FALSE(beside.Begin({folder.Path("y.mrv"), "", ""}, SingleInstance::Wish::Stay));
  EXPECT_TRUE(StartElsewhere({})) << "the first one is still the one that is found";
  EXPECT_EQ(taken.size(), 3U);
  first.End();
  EXPECT_FALSE(StartElsewhere({}));
}

TEST_F(SingleInstanceTest, OneThatHangsGetsNoRequestLaterAndIsNotAskedAgain) {
  Requests late;
  SingleInstance hanging(Into(late), Place());
  EXPECT_FALSE(hanging.Begin({}));
  QApplication::processEvents();
  EXPECT_FALSE(StartElsewhere({folder.Path("a"), "", ""}, true, milliseconds(30)));

  Requests taken;
  SingleInstance next(Into(taken), Place());
  for (int i = 0; i < 10; ++i) QApplication::processEvents();  // it wakes up
  EXPECT_TRUE(late.empty()) << "the other start has opened its own window meanwhile";
  EXPECT_FALSE(next.Begin({}));
  QApplication::processEvents();
  hanging.End();
  EXPECT_TRUE(StartElsewhere({folder.Path("b"), "", ""}));
  EXPECT_EQ(taken, (Requests{{folder.Path("b"), "", ""}}));
}

}  // namespace

}  // namespace morvane
