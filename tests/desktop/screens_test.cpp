// The window on screens of other sizes and scales. Run again by CMakeLists.txt with such screens.
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QWindow>

#include "desktop/window/session.h"
#include "desktop_test.h"

namespace htr60::desktop {
namespace {

class ScreensTest : public testing::Test {
 protected:
  ScreensTest() {
    QSettings().clear();
    sessions_.Begin({}, {});
    QApplication::processEvents();
  }
  ~ScreensTest() override { QSettings().clear(); }

  MainWindow& Window() { return sessions_.Now()->window; }

  void LookOn(const QScreen& screen) {
    SCOPED_TRACE(screen.name().toStdString());
    MainWindow& window = Window();
    const QSize room = screen.availableSize();
    EXPECT_LE(window.width(), room.width());
    EXPECT_LE(window.height(), room.height());
    const ActionArea& actions = window.Actions();
    EXPECT_TRUE(window.rect().contains(QRect(actions.mapTo(&window, QPoint()), actions.size())));
    for (const QPushButton* button : {actions.Back(), actions.Revert(), actions.Save(), actions.Write()}) {
      EXPECT_TRUE(actions.rect().contains(button->geometry())) << button->text().toStdString();
      EXPECT_GE(button->width(), button->minimumSizeHint().width()) << button->text().toStdString();
    }
    // Whatever does not fit can be scrolled to.
    const auto* scroll = window.findChild<QScrollArea*>(QStringLiteral("pageScroll"));
    const QSize hidden = scroll->widget()->size() - scroll->viewport()->size();
    EXPECT_EQ(scroll->verticalScrollBar()->maximum(), std::max(0, hidden.height()));
    EXPECT_EQ(scroll->horizontalScrollBar()->maximum(), std::max(0, hidden.width()));
    EXPECT_GE(scroll->viewport()->height(), window.fontMetrics().height() * 5) << "the page is to be seen";
  }

  QPixmap Padlock() {
    for (const QLabel* label : Window().Identification().findChildren<QLabel*>()) {
      if (!label->pixmap(Qt::ReturnByValue).isNull()) return label->pixmap(Qt::ReturnByValue);
    }
    return {};
  }

  Sessions sessions_{MainWindow::Places::kKept};
};

TEST_F(ScreensTest, TheWindowOpensOnItsScreenWithTheActionAreaWhole) { LookOn(*Window().screen()); }

TEST_F(ScreensTest, TheWindowFitsEachScreenThatItIsMovedTo) {
  const QList<QScreen*> screens = QGuiApplication::screens();
  for (QScreen* screen : screens) {
    Window().windowHandle()->setScreen(screen);
    Window().move(screen->availableGeometry().topLeft());
    QApplication::processEvents();
    EXPECT_EQ(Window().screen(), screen);
    EXPECT_EQ(Window().devicePixelRatioF(), screen->devicePixelRatio());
    EXPECT_EQ(Padlock().devicePixelRatio(), screen->devicePixelRatio()) << "pictures are drawn anew";
    LookOn(*screen);
  }
  Window().windowHandle()->setScreen(screens.first());
  QApplication::processEvents();
  LookOn(*screens.first());
}

}  // namespace
}  // namespace htr60::desktop
