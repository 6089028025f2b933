#include "desktop/tour.h"

#include <QTemporaryDir>

#include "desktop_test.h"

namespace htr60::desktop {
namespace {

class TourTest : public DesktopTest {
 protected:
  int Run(std::span<const TourStep> steps) {
    Tour tour(window_, Control(), steps, QDir(folder_.path()));
    int exitCode = -1;
    QObject::connect(&tour, &Tour::Finished, &window_, [&](int code) { exitCode = code; });
    tour.Start();
    WaitFor([&] { return exitCode >= 0; }, 30'000);
    return exitCode;
  }
  QTemporaryDir folder_;
};

TEST_F(TourTest, WalksByItsTableAndLeavesPictures) {
  constexpr TourStep kSteps[] = {
      {TourDo::kWait},
      {TourDo::kNode, {}, "Device Identification"},
      {TourDo::kWait},
      {TourDo::kType, id::txtParameter(0), "N 7"},
      {TourDo::kChoose, id::cmbWriteProtection, "Write Locked"},
      {TourDo::kWrite},
      {TourDo::kWait},
      {TourDo::kExpect, id::cmbWriteProtection, "Write Locked"},
      {TourDo::kButton, id::cmdSensorDetails},
      {TourDo::kWait},
      {TourDo::kTab, id::SSTabInfoSensor, {}, 1},
      {TourDo::kPicture, {}, "flange tab"},
  };
  EXPECT_EQ(Run(kSteps), 0);
  EXPECT_EQ(window_.Identification().Tag(), QStringLiteral("N 7"));
  EXPECT_EQ(TheForm().SSTabInfoSensor.Index(), 1);
  const QImage picture(folder_.filePath(QStringLiteral("01-flange-tab.png")));
  EXPECT_EQ(picture.size(), window_.size() * picture.devicePixelRatio());
}

TEST_F(TourTest, AStepThatCannotBeDoneEndsIt) {
  const TourStep kCases[] = {
      {TourDo::kNode, {}, "No Such Node"},
      {TourDo::kButton, id::cmdBack},  // disabled
      {TourDo::kType, id::txtParameter(1), "read-only"},
      {TourDo::kType, id::txtParameter(45), "on no page that is open"},
      {TourDo::kChoose, id::cmbWriteProtection, "No Such Row"},
  };
  for (const TourStep& step : kCases) {
    SCOPED_TRACE(Describe(step).toStdString());
    const TourStep steps[] = {step, {TourDo::kPicture, {}, "never"}};
    EXPECT_EQ(Run(steps), 1);
  }
  EXPECT_TRUE(QDir(folder_.path()).entryList(QDir::Files).isEmpty());
}

}  // namespace
}  // namespace htr60::desktop
