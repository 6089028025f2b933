#include "desktop/data_line.h"

#include <gtest/gtest.h>

#include <QDateTime>

namespace htr60::desktop {
namespace {

constexpr FrameId kPage = id::frmInfo;
constexpr FrameId kBelow = id::frmInfoSensor;

std::int64_t At(int hour, int minute, int second) {
  return QDateTime(QDate(2026, 5, 4), QTime(hour, minute, second)).toMSecsSinceEpoch();
}

TEST(DataLine, TellsHowOldThePageIs) {
  DataLine line;
  EXPECT_EQ(line.Text(At(10, 0, 0)), QString());  // no page is open
  line.Opened(kPage);
  line.Look(At(10, 0, 0), true, false, 0);
  EXPECT_EQ(line.Text(At(10, 0, 1)), QStringLiteral("Not read since opened"));
  EXPECT_FALSE(line.HasRead());
  line.Look(At(10, 0, 2), false, true, 0);
  EXPECT_EQ(line.Text(At(10, 5, 0)), QStringLiteral("Read 10:00:02"));
  EXPECT_TRUE(line.HasRead());
  line.Look(At(10, 6, 0), false, true, 5000);
  EXPECT_EQ(line.Text(At(10, 6, 1)), QStringLiteral("Read 10:06:00, every 5 s"));
}

TEST(DataLine, BackShowsWhatWasReadBeforeAndOpeningBeginsAnew) {
  DataLine line;
  line.Opened(kPage);
  line.Look(At(8, 0, 0), false, true, 0);
  line.Opened(kBelow);
  line.Look(At(8, 1, 0), false, true, 0);
  line.Returned(kPage);
  EXPECT_EQ(line.Text(At(8, 2, 0)), QStringLiteral("As read 08:00:00"));
  line.Look(At(8, 3, 0), false, true, 0);
  EXPECT_EQ(line.Text(At(8, 3, 0)), QStringLiteral("Read 08:03:00"));
  line.Opened(kPage);
  EXPECT_EQ(line.Text(At(8, 4, 0)), QStringLiteral("Not read since opened"));
  line.Returned(kBelow);
  EXPECT_EQ(line.Text(At(8, 4, 0)), QStringLiteral("As read 08:01:00"));
}

TEST(DataLine, AReadWithoutAnswerIsLateAfterTenSecondsOrThreeIntervals) {
  const struct {
    int intervalMs;
    int inTime;
    int late;
  } kCases[] = {{0, 9, 10}, {3000, 8, 9}, {15000, 44, 45}};
  for (const auto& one : kCases) {
    SCOPED_TRACE(one.intervalMs);
    DataLine line;
    line.Opened(kPage);
    line.Look(At(9, 0, 0), true, false, one.intervalMs);
    line.Look(At(9, 0, 5), true, false, one.intervalMs);  // a further read does not begin the wait anew
    EXPECT_TRUE(line.Waits());
    EXPECT_FALSE(line.Late(At(9, 0, one.inTime)));
    EXPECT_TRUE(line.Late(At(9, 0, one.late)));
    EXPECT_EQ(line.Text(At(9, 0, one.late)), QStringLiteral("No answer since 09:00:00"));
    line.Look(At(9, 1, 0), false, true, one.intervalMs);
    EXPECT_FALSE(line.Late(At(9, 10, 0)));
    EXPECT_FALSE(line.Waits());
  }
}

}  // namespace
}  // namespace htr60::desktop
