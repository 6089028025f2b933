#include "desktop/docks/trend/trend_dock.h"

#include <QComboBox>
#include <QFile>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <nlohmann/json.hpp>

#include "desktop/docks/docks.h"
#include "desktop/figure/figure_widget.h"
#include "desktop_test.h"

namespace htr60::desktop {
namespace {

constexpr ControlId kOutput = id::lbDeviceView(36);

class TrendDockTest : public DesktopTest {
 protected:
  TrendDock& Dock() { return window_.Around().Trend(); }
  QTableWidget& Table() { return *Dock().findChild<QTableWidget*>(QStringLiteral("trendFields")); }
  QString Cell(int row, int column) { return Table().item(row, column)->text(); }
  std::string Offered(ControlId field) {
    std::string captions;
    for (const auto& addition : window_.Presented().Additions(field)) {
      captions += addition.caption + (addition.enabled ? "" : " (off)");
    }
    return captions;
  }
  void Pick(ControlId field) { window_.Presented().Additions(field).at(0).run(); }
  bool WaitForSamples(std::size_t count) {
    return WaitFor([&] { return Dock().Followed().Fields().at(0).samples.size() >= count; }, 120'000);
  }
};

TEST_F(TrendDockTest, TheMenuOfALiveFieldOffersIt) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(Open("AI 1 View"));
  EXPECT_EQ(Offered(kOutput), "Add to trend");
  EXPECT_EQ(Offered(id::txtParameter(0)), "");
  Pick(kOutput);
  EXPECT_TRUE(Dock().isVisible());
  EXPECT_EQ(Offered(kOutput), "Remove from trend");
  for (const ControlId other : {id::lbDeviceView(40), id::lbDeviceView(29), id::lbDeviceView(30)}) Pick(other);
  EXPECT_EQ(Offered(id::lbDeviceView(37)), "Add to trend (four fields are there) (off)");
  Pick(kOutput);
  EXPECT_EQ(Offered(id::lbDeviceView(37)), "Add to trend");
}

TEST_F(TrendDockTest, AFieldsOwnMenuHasIt) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(Open("AI 1 View"));
  auto* field = Find<QWidget>(kOutput);
  ASSERT_NE(field, nullptr);
  QStringList seen;
  QTimer::singleShot(50, &window_, [&] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    for (QAction* action : menu->actions()) {
      seen << action->text();
      if (action->text() == QLatin1String("Add to trend")) action->trigger();
    }
    menu->close();
  });
  QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(1, 1), field->mapToGlobal(QPoint(1, 1)));
  QApplication::sendEvent(field, &event);
  EXPECT_TRUE(seen.contains(QLatin1String("Add to trend"))) << seen.join(u',').toStdString();
  EXPECT_EQ(Dock().Followed().Fields().size(), 1U);
}

TEST_F(TrendDockTest, ShowsCurvesAndValues) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(Open("AI 1 View"));
  Pick(kOutput);
  ASSERT_TRUE(WaitForSamples(3));
  QApplication::processEvents();
  ASSERT_EQ(Dock().Plots().Figures().size(), 1U);
  const Figure& figure = Dock().Plots().Figures().at(0)->Shown();
  ASSERT_EQ(figure.lines.size(), 1U);
  EXPECT_EQ(figure.lines.at(0).points.size(), 3U);
  EXPECT_EQ(figure.y.caption, "kPa");
  EXPECT_EQ(Cell(0, 0), QStringLiteral("AI 1 View, Output, Value"));
  EXPECT_EQ(Cell(0, 1), QStringLiteral("10"));
  EXPECT_EQ(Cell(0, 4), QStringLiteral("live"));
  ASSERT_TRUE(Open("Device Identification"));
  Dock().Turn();
  EXPECT_EQ(Dock().Followed().StateOf(Dock().Followed().Fields().at(0)), observe::TrendState::kEnded);
}

TEST_F(TrendDockTest, GoesOnWhileItIsHiddenAndDrawsNothing) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(Open("AI 1 View"));
  Pick(kOutput);
  Dock().hide();
  ASSERT_TRUE(WaitForSamples(3));
  EXPECT_EQ(Dock().Plots().Figures().at(0)->Shown().lines.at(0).points.size(), 1U) << "as it was when it was hidden";
  Dock().show();
  QApplication::processEvents();
  EXPECT_EQ(Dock().Plots().Figures().at(0)->Shown().lines.at(0).points.size(), 3U);
}

TEST_F(TrendDockTest, TheCursorFollowsPointerAndKeys) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(Open("AI 1 View"));
  Pick(kOutput);
  ASSERT_TRUE(WaitForSamples(3));
  host_.Transmitter().Set(nlohmann::json{{"process", {{"pressureHi", 25000}}}});
  ASSERT_TRUE(WaitForSamples(5));
  QApplication::processEvents();
  FigureWidget& figure = *Dock().Plots().Figures().at(0);
  const auto& samples = Dock().Followed().Fields().at(0).samples;
  const auto move = [&](std::int64_t at) {
    const QPointF place = figure.Place({static_cast<double>(at), 10});
    QMouseEvent event(QEvent::MouseMove, place, figure.mapToGlobal(place), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&figure, &event);
  };
  move(samples[1].at + 100);
  EXPECT_EQ(Cell(0, 1), QStringLiteral("10"));
  move(samples[4].at + 100);
  EXPECT_EQ(Cell(0, 1), QStringLiteral("15"));
  Dock().Plots().setFocus();
  PressKey(Qt::Key_Home);
  PressKey(Qt::Key_Right);
  EXPECT_EQ(Dock().Followed().Cursor(), samples[0].at);
  PressKey(Qt::Key_Right);
  EXPECT_EQ(Dock().Followed().Cursor(), samples[1].at);
  PressKey(Qt::Key_Left);
  EXPECT_EQ(Dock().Followed().Cursor(), samples[0].at);
  PressKey(Qt::Key_Escape);
  EXPECT_EQ(Dock().Followed().Cursor(), std::nullopt);
  EXPECT_EQ(Cell(0, 1), QStringLiteral("15"));
}

TEST_F(TrendDockTest, WindowPauseAndTable) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(Open("AI 1 View"));
  Pick(kOutput);
  ASSERT_TRUE(WaitForSamples(6));
  auto* window = Dock().findChild<QComboBox*>(QStringLiteral("trendWindow"));
  window->setCurrentIndex(0);
  EXPECT_EQ(Dock().Followed().Window(), 1);
  const auto seen = static_cast<int>(Dock().Plots().Figures().at(0)->Shown().lines.at(0).points.size());
  EXPECT_EQ(seen, 5) << "a minute, with one every 15 s at both its ends";
  const QTemporaryDir folder;
  const QString file = folder.filePath(QStringLiteral("trend.csv"));
  Dock().SaveTo(file);
  QFile saved(file);
  ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
  const QList<QByteArray> lines = saved.readAll().trimmed().split('\n');
  ASSERT_EQ(lines.size(), 1 + seen);
  EXPECT_TRUE(lines.at(1).startsWith("2026-01-01 10:0")) << lines.at(1).toStdString();
  EXPECT_TRUE(lines.at(1).contains(",10,kPa,Good (NC)")) << lines.at(1).toStdString();
}

}  // namespace
}  // namespace htr60::desktop
