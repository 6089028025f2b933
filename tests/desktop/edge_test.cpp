#include "desktop/edge.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <sstream>

#include "desktop/figure/figure_widget.h"
#include "desktop/options.h"
#include "desktop/page/page_view.h"
#include "desktop_test.h"
#include "pages/table_points.h"
#include "text/failure.h"

namespace htr60::desktop {
namespace {

int Lines(const std::string& text) { return static_cast<int>(std::count(text.begin(), text.end(), '\n')); }

TEST(FailureLog, TellsEachFailureOnceAndNotForEver) {
  std::ostringstream out;
  FailureLog log(out);
  for (int i = 0; i < 1000; ++i) log.Report("of a paint");
  EXPECT_EQ(out.str(), "htr60: failure: of a paint\n");
  for (int i = 0; i < 1000; ++i) log.Report(std::to_string(i));
  EXPECT_EQ(Lines(out.str()), static_cast<int>(FailureLog::kMostLines) + 1);
}

class EdgeTest : public DesktopTest {
 protected:
  EdgeTest() { testing::internal::CaptureStderr(); }
  ~EdgeTest() override {
    if (!taken_) testing::internal::GetCapturedStderr();
  }
  std::string Told() {
    taken_ = true;
    return testing::internal::GetCapturedStderr();
  }

 private:
  bool taken_ = false;
};

TEST_F(EdgeTest, AFailureInASlotEndsThatSlotAlone) {
  int after = 0;
  desktop::Connect(&host_, &DesktopHost::TurnEnded, &window_, [] { throw RuntimeFailure("in a slot"); });
  desktop::Connect(&host_, &DesktopHost::TurnEnded, &window_, [&] { ++after; });
  ASSERT_TRUE(Open("Device Identification"));
  EXPECT_GT(after, 0);
  EXPECT_EQ(window_.Header().Title(), QStringLiteral("Device Identification"));
  EXPECT_EQ(Told(), "htr60: failure: in a slot\n");
}

class ThrowingWidget final : public QWidget {
 public:
  using QWidget::QWidget;
  int paints = 0;

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    ++paints;
    throw std::runtime_error("in a paint");
  }
  void customEvent(QEvent* /*event*/) override { throw 7; }
};

TEST_F(EdgeTest, AFailureInAHandlerOfQtEndsThatHandlerAlone) {
  auto* widget = new ThrowingWidget(window_.centralWidget());
  widget->resize(20, 20);
  widget->show();
  QTimer::singleShot(0, widget, [] { throw RuntimeFailure("in a timer"); });
  ASSERT_TRUE(Open("Device Identification"));
  const int paints = widget->paints;
  EXPECT_GT(paints, 0);
  widget->update();
  QApplication::processEvents();
  EXPECT_GT(widget->paints, paints);
  QEvent event(QEvent::User);
  QApplication::sendEvent(widget, &event);
  EXPECT_FALSE(window_.grab().isNull());
  const std::string told = Told();
  EXPECT_EQ(Lines(told), 3) << told;
  for (const char* line : {"in a paint\n", "in a timer\n", "of an unknown kind\n"}) {
    EXPECT_NE(told.find(line), std::string::npos) << line;
  }
}

class FigureTest : public DesktopTest {
 protected:
  FigureTest() : DesktopTest(LoadSettings({.preset = QStringLiteral("flow")})) {}
  void Press(ControlId button) {
    auto* shown = Find<QAbstractButton>(button);
    ASSERT_NE(shown, nullptr);
    shown->click();
    ASSERT_TRUE(Settle());
  }
  void Type(ControlId field, const char* text) {
    auto* entry = Find<QLineEdit>(field);
    ASSERT_NE(entry, nullptr);
    entry->setFocus();
    entry->selectAll();
    SendKey(*entry, Qt::Key_Delete);
    SendText(*entry, QLatin1String(text));
    ASSERT_EQ(entry->text(), QLatin1String(text));
    ASSERT_FALSE(window_.grab().isNull());
  }
  const Figure& Shown() { return window_.Page().View()->Picture()->Shown(); }
};

TEST_F(FigureTest, NoTextInATableEndsTheProgram) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(Open("Pressure/Flow"));
  Control().SetList(id::cmbLinearizationType, "Square Root & Table");
  QApplication::processEvents();
  Press(id::cmdTablePoints);
  ASSERT_NE(window_.Page().View()->Picture(), nullptr);
  for (const char* text : {"1.7E308", "-1.7E308", "1E999", "4.94E-324", "nan", "-", ""}) {
    SCOPED_TRACE(text);
    Type(pages::kTablePoints[0].y, text);
    Type(pages::kTablePoints[1].x, text);
  }
  Type(pages::kTablePoints[1].x, "1.7E308");
  Type(pages::kTablePoints[1].y, "1");
  EXPECT_EQ(Shown().remarks.back(), "Point 2: too large to be drawn.");
}

}  // namespace
}  // namespace htr60::desktop
