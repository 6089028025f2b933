#include "desktop/tour/tour.h"

#include <QLocale>
#include <QTemporaryDir>
#include <csignal>

#ifdef Q_OS_UNIX
#include <sys/resource.h>
#endif

#include "desktop_test.h"

namespace htr60::desktop {
namespace {

class TourTest : public DesktopTest {
 protected:
  int Run(std::span<const TourStep> steps) {
    const auto print = [this](std::string_view text) {
      printed_ += text;
      return printed_.size() < roomForLines_;
    };
    Tour tour(window_, clock_, Control(), steps, QDir(folder_.path()), print);
    int exitCode = -1;
    QObject::connect(&tour, &Tour::Finished, &window_, [&](int code) { exitCode = code; });
    tour.Start();
    EXPECT_TRUE(desktop::WaitFor([&] { return exitCode >= 0; }, 30'000));
    notWritten_ = tour.NotWritten();
    return exitCode;
  }
  QStringList Files() const { return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden); }

  QTemporaryDir folder_;
  std::string printed_;
  std::size_t roomForLines_ = std::string::npos;
  QString notWritten_;
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
  const QImage picture(folder_.filePath(QStringLiteral("001-flange-tab.png")));
  EXPECT_EQ(picture.size(), window_.size() * picture.devicePixelRatio());
}

TEST_F(TourTest, TellsItsStepsInWordsWithItsProgressAndHowItWent) {
  constexpr TourStep kSteps[] = {
      {TourDo::kWait},
      {TourDo::kType, id::txtParameter(0), "N 7"},
      {TourDo::kChoose, id::cmbWriteProtection, "Write Locked"},
      {TourDo::kRevert},
      {TourDo::kButton, id::cmdSensorDetails},
      {TourDo::kTab, id::SSTabInfoSensors, {}, 1},
      {TourDo::kPass, {}, {}, 12},
      {TourDo::kNode, {}, "Calibration"},
      {TourDo::kWait},
      {TourDo::kButton, id::cmdCalibLower},
      {TourDo::kWait},
      {TourDo::kType, id::txtParameter(95), "2"},
      {TourDo::kCode, id::txtParameter(103), "31415"},
      {TourDo::kPicture, {}, "two points"},
  };
  const std::int64_t before = clock_.Now();
  EXPECT_EQ(Run(kSteps), 0);
  EXPECT_GE(clock_.Now() - before, 12'000);
  EXPECT_EQ(printed_,
            "  1/14  Waits until everything is read\n"
            "  2/14  Types N 7 as Physical Block Tag\n"
            "  3/14  Chooses Write Locked as Write Protection\n"
            "  4/14  Presses Revert\n"
            "  5/14  Presses Sensor Details\n"
            "  6/14  Turns to the tab Lo Sensor\n"
            "  7/14  Lets 12 s go by\n"
            "  8/14  Opens Calibration in the tree\n"
            "  9/14  Waits until everything is read\n"
            " 10/14  Presses Lower/Upper\n"
            " 11/14  Waits until everything is read\n"
            " 12/14  Types 2 as Calib Point of Upper\n"
            " 13/14  Types the access code\n"
            " 14/14  Leaves the picture 001-two-points.png\n"
            "Done: all 14 steps, 1 pictures in " +
                folder_.path().toStdString() + "\n");
}

TEST_F(TourTest, AnswersBars) {
  constexpr TourStep kSteps[] = {
      {TourDo::kWait},
      {TourDo::kType, id::txtParameter(0), "N 7"},
      {TourDo::kClose},
      {TourDo::kBar, {}, "Stay"},
      {TourDo::kRevert},
      {TourDo::kNode, {}, "Pressure/Flow"},
      {TourDo::kWait},
      {TourDo::kChoose, id::cmbLinearizationType, "User Defined(Table)"},
      {TourDo::kButton, id::cmdTablePoints},
      {TourDo::kWait},
      {TourDo::kChoose, id::cmbNrPoints, "2"},
      {TourDo::kPaste, id::txtParameter(21), "0\t0\n50\t40\n100\t100"},
      {TourDo::kBar, {}, "Set 3 points"},
      {TourDo::kExpect, id::txtParameter(53), "100"},
      {TourDo::kMenu, {}, "Offline"},
  };
  EXPECT_EQ(Run(kSteps), 0) << printed_;
  EXPECT_TRUE(WaitFor([&] { return Panel(1) == "Disconnected"; }));
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
    SCOPED_TRACE(NameOf(step.control) + " " + std::string(step.text));
    const TourStep steps[] = {step, {TourDo::kPicture, {}, "never"}};
    printed_.clear();
    EXPECT_EQ(Run(steps), 1);
    EXPECT_TRUE(printed_.ends_with("\nStopped at step 1 of 2: it cannot be done\n")) << printed_;
  }
  EXPECT_TRUE(Files().isEmpty());
}

TEST_F(TourTest, EndsWhereItsLinesCannotBePrinted) {
  constexpr TourStep kSteps[] = {{TourDo::kWait}, {TourDo::kWait}, {TourDo::kPicture, {}, "never"}};
  constexpr std::string_view kTwoLines =
      "  1/3  Waits until everything is read\n  2/3  Waits until everything is read\n";
  roomForLines_ = kTwoLines.size();
  EXPECT_EQ(Run(kSteps), 1);
  EXPECT_EQ(printed_, kTwoLines);
  EXPECT_TRUE(notWritten_.contains(QLatin1String("standard output"))) << notWritten_.toStdString();
  EXPECT_TRUE(Files().isEmpty());
}

#ifdef Q_OS_UNIX
// Files of this process stay small, as on a full disk.
class SmallFiles {
 public:
  SmallFiles() {
    getrlimit(RLIMIT_FSIZE, &before_);
    rlimit small = before_;
    small.rlim_cur = 1000;
    setrlimit(RLIMIT_FSIZE, &small);
    handler_ = std::signal(SIGXFSZ, SIG_IGN);
  }
  ~SmallFiles() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  SmallFiles(const SmallFiles&) = delete;
  SmallFiles& operator=(const SmallFiles&) = delete;

 private:
  rlimit before_{};
  void (*handler_)(int);
};

TEST_F(TourTest, LeavesNoTruncatedPicture) {
  constexpr TourStep kSteps[] = {{TourDo::kPicture, {}, "large"}, {TourDo::kPicture, {}, "never"}};
  {
    const SmallFiles small;
    EXPECT_EQ(Run(kSteps), 1);
  }
  EXPECT_EQ(printed_, "  1/2  Leaves the picture 001-large.png\nStopped at step 1 of 2: it cannot be done\n");
  EXPECT_TRUE(notWritten_.contains(QLatin1String("001-large.png cannot be written"))) << notWritten_.toStdString();
  EXPECT_TRUE(Files().isEmpty()) << Files().join(u' ').toStdString();
}
#endif

// A host asks for the separator when it is made, so the locale comes before the base.
struct German {
  German() { QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany)); }
  ~German() { QLocale::setDefault(QLocale::c()); }
};
class CommaTourTest : private German, public TourTest {};

TEST_F(CommaTourTest, TypesAndExpectsNumbersWithTheOperatorsSeparator) {
  constexpr TourStep kSteps[] = {
      {TourDo::kWait},
      {TourDo::kType, id::txtParameter(0), "N 7.5"},
      {TourDo::kExpect, id::txtParameter(0), "N 7.5"},
      {TourDo::kNode, {}, "Pressure/Flow"},
      {TourDo::kWait},
      {TourDo::kTab, id::SSTabTRDSettings, {}, 1},
      {TourDo::kButton, id::cmdTRDInScale},
      {TourDo::kWait},
      {TourDo::kType, id::txtParameter(99), "20.5"},
      {TourDo::kWrite},
      {TourDo::kWait},
      {TourDo::kExpect, id::txtParameter(99), "20.500"},
  };
  EXPECT_EQ(Run(kSteps), 0) << printed_;
  EXPECT_EQ(TheForm().txtParameter(99).Text(), "20,500");
}

}  // namespace
}  // namespace htr60::desktop
