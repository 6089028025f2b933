#include "desktop/figure/drawings.h"

#include <QLabel>

#include "desktop/window/status_panels.h"
#include "desktop_test.h"

namespace htr60::desktop {
namespace {

bool ShowsSomething(const QPixmap& picture) {
  const QImage image = picture.toImage();
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (qAlpha(image.pixel(x, y)) > 200) return true;
    }
  }
  return false;
}

// As on a system that has the libraries of the program and no plug-in beside them.
struct NoPlugins {
  NoPlugins() : before(QApplication::libraryPaths()) { QApplication::setLibraryPaths({}); }
  ~NoPlugins() { QApplication::setLibraryPaths(before); }
  QStringList before;
};
class DrawingsTest : private NoPlugins, public DesktopTest {};

TEST_F(DrawingsTest, AreShownWithoutAnyPlugin) {
  ASSERT_TRUE(Connect());
  const auto items = window_.Tree().findItems(QStringLiteral("*"), Qt::MatchWildcard | Qt::MatchRecursive);
  ASSERT_GT(items.size(), 5);
  for (const QTreeWidgetItem* item : items) {
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected}) {
      EXPECT_TRUE(ShowsSomething(item->icon(0).pixmap(16, mode))) << item->text(0).toStdString() << mode;
    }
  }
  EXPECT_TRUE(ShowsSomething(window_.windowIcon().pixmap(32)));
  int pictures = 0;
  for (const QLabel* label : window_.findChildren<QLabel*>()) {
    if (label->pixmap(Qt::ReturnByValue).isNull()) continue;
    EXPECT_TRUE(ShowsSomething(label->pixmap(Qt::ReturnByValue)));
    ++pictures;
  }
  EXPECT_EQ(pictures, 2) << "the padlock and the symbol of the link";
}

TEST(Drawings, AreDrawnOnceAndKept) {
  const QString name = ConnectionPicture("no connection.ico");
  const QPixmap picture = Drawing(name, 20, 2);
  EXPECT_EQ(picture.size(), QSize(40, 40));
  EXPECT_EQ(Drawing(name, 20, 2).cacheKey(), picture.cacheKey());
  EXPECT_NE(Drawing(name, 21, 2).cacheKey(), picture.cacheKey());
  EXPECT_TRUE(Drawing(QStringLiteral("no such drawing"), 16, 1).isNull());
}

}  // namespace
}  // namespace htr60::desktop
