#include <QScrollArea>

#include "shell/qt/ChartThumbnail.h"
#include "shell/qt/RecoveryWindow.h"
#include "tests/support/Places.h"
#include "tests/ui/Canvas.h"
#include "tests/ui/WindowTest.h"

namespace morvane {

namespace {

class RecoveryWindowTest : public testing::Test {
 protected:
  static RecoveryOffer Offer(const std::string& name) {
    RecoveryOffer offer;
    offer.path = "/charts/" + name;
    offer.text = SmallChart();
    offer.difference = "1 added";
    return offer;
  }
  static std::vector<RecoveryOffer> Offers(int count) {
    std::vector<RecoveryOffer> offers;
    for (int i = 0; i < count; ++i) offers.push_back(Offer(std::to_string(i) + ".mrv"));
    return offers;
  }
  static QPushButton& Button(RecoveryWindow& window, const QString& name) {
    for (QPushButton* button : window.findChildren<QPushButton*>()) {
      if (button->accessibleName() == name || button->text() == name) return *button;
    }
    throw std::runtime_error("no button " + name.toStdString());
  }
  static void Click(RecoveryWindow& window, const QString& name) {
    Button(window, name).click();
    QApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  static QStringList Texts(RecoveryWindow& window) {
    QStringList texts;
    for (const QLabel* label : window.findChildren<QLabel*>()) {
      if (!label->text().isEmpty()) texts << label->text();
    }
    return texts;
  }

  ScriptedMessageBoxes boxes;
};

TEST_F(RecoveryWindowTest, RowsGoAsTheyAreDoneAndTheWindowWithTheLast) {
  std::vector<std::string> recovered;
  RecoveryList list(Offers(3), [&](RecoveryOffer& offer) {
    recovered.push_back(offer.path);
    return true;
  });
  RecoveryWindow window(list);
  window.show();
  EXPECT_TRUE(Texts(window).contains("1.mrv"));
  Click(window, "Recover 1.mrv");
  EXPECT_EQ(recovered, std::vector<std::string>{"/charts/1.mrv"});
  EXPECT_FALSE(Texts(window).contains("1.mrv"));
  boxes.Expect("2.mrv", MessageAnswer::No);
  Click(window, "Discard 2.mrv");
  EXPECT_TRUE(Texts(window).contains("2.mrv"));
  boxes.Expect("2.mrv", MessageAnswer::Yes);
  Click(window, "Discard 2.mrv");
  EXPECT_TRUE(window.isVisible());
  SendKey(*window.focusWidget(), Qt::Key_Return);
  QApplication::processEvents();
  EXPECT_EQ(recovered.size(), 2U) << "the button for all has the keyboard first";
  EXPECT_FALSE(window.isVisible());
}

TEST_F(RecoveryWindowTest, APictureShowsTheChartAtAnyScaleAndDamageShowsNone) {
  const std::string lift = [] {
    std::string text;
    ModelFile::ReadText(SourcePath("Examples/Lift/Lift.mrv"), text);
    return text;
  }();
  for (const double ratio : {1.0, 1.5, 2.0}) {
    const auto picture = MakeThumbnail(lift, {160, 110}, ratio);
    ASSERT_TRUE(picture);
    EXPECT_TRUE(picture->width() == 160 * ratio || picture->height() == 110 * ratio);
    EXPECT_EQ(picture->devicePixelRatio(), ratio);
    // The chart fills its picture, with states and paper in it.
    const QRect ink = InkOf(picture->convertToFormat(QImage::Format_RGB32));
    EXPECT_GT(ink.width(), picture->width() * 0.9);
    EXPECT_GT(ink.height(), picture->height() * 0.9);
    EXPECT_EQ(picture->pixel(1, 1), 0xFFFFFFFF);
  }
  const std::string cases[] = {"", "damaged", lift.substr(0, lift.size() / 2),
                               lift + std::string(4'000'000, '\n')};
  for (const std::string& text : cases) {
    EXPECT_FALSE(MakeThumbnail(text, {160, 110}, 1)) << text.size();
    ChartThumbnail widget(text, {160, 110});
    EXPECT_EQ(widget.grab().size(), QSize(160, 110));
  }
  EXPECT_TRUE(MakeThumbnail(ChartText(""), {160, 110}, 1)) << "an empty chart is white paper";
}

}  // namespace

}  // namespace morvane
