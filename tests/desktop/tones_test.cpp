#include "desktop/figure/tones.h"

#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QTabBar>
#include <map>

#include "desktop/application.h"
#include "desktop_test.h"

namespace htr60::desktop {
namespace {

TEST(Tones, ContrastIsThatOfTheRelativeLuminances) {
  EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 0.001);
  EXPECT_NEAR(Contrast(Qt::white, Qt::white), 1, 0.001);
  EXPECT_NEAR(Contrast(0x777777, Qt::white), 4.48, 0.01);
  EXPECT_EQ(Against(Qt::white, 0x767676, 4.5), QColor(0x767676)) << "enough already";
  EXPECT_GE(Contrast(Against(Qt::white, 0xCCCCCC, 4.5), Qt::white), 4.5);
  EXPECT_GE(Contrast(Against(Qt::black, 0x101010, 4.5), Qt::black), 4.5);
}

// The colours of another room, and back.
class Coloured {
 public:
  explicit Coloured(const QString& name) { App().UsePalette(name); }
  ~Coloured() { App().UsePalette({}); }
  Coloured(const Coloured&) = delete;
  Coloured& operator=(const Coloured&) = delete;

 private:
  static Application& App() { return *static_cast<Application*>(qApp); }
};

TEST(Tones, EveryTextAndEveryMarkIsSeenInEveryPalette) {
  QStringList names = PaletteNames();
  names << QString();
  for (const QString& name : names) {
    SCOPED_TRACE(name.toStdString());
    const Coloured coloured(name);
    const QPalette palette = QApplication::palette();
    const auto of = [&](QPalette::ColorRole role) { return palette.color(QPalette::Active, role); };
    const std::pair<QPalette::ColorRole, QPalette::ColorRole> kTexts[] = {
        {QPalette::WindowText, QPalette::Window},
        {QPalette::Text, QPalette::Base},
        {QPalette::Text, QPalette::Window},
        {QPalette::PlaceholderText, QPalette::Base},
        {QPalette::ButtonText, QPalette::Button},
        {QPalette::HighlightedText, QPalette::Highlight},
        {QPalette::ToolTipText, QPalette::ToolTipBase}};
    for (const auto& [text, ground] : kTexts) EXPECT_GE(Contrast(of(text), of(ground)), kTextContrast) << text;
    for (const QPalette::ColorRole ground : {QPalette::Window, QPalette::Base}) {
      for (const QColor& color : {AccentColor(palette), WarningColor(palette), AlertColor(palette)}) {
        EXPECT_GE(Contrast(color, of(ground)), kTextContrast) << color.name().toStdString();
      }
      EXPECT_GE(Contrast(PaleColor(palette, ground), of(ground)), kTextContrast);
      EXPECT_GE(Contrast(EdgeColor(palette), of(ground)), kShapeContrast);
    }
    EXPECT_NE(WarningColor(palette), AlertColor(palette));
    EXPECT_NE(WarningColor(palette), AccentColor(palette));
  }
}

class RecolouredTest : public DesktopTest {
 protected:
  // Of the text to the shades of its ground: those that fill a row at least.
  static double TextContrast(QWidget& widget) {
    const QImage image = widget.grab().toImage();
    std::map<QRgb, int> counts;
    for (int y = 3; y < image.height() - 3; ++y) {
      for (int x = 3; x < image.width() - 3; ++x) ++counts[image.pixel(x, y)];
    }
    double least = 21;
    const QColor ink = widget.palette().color(QPalette::Active, QPalette::ButtonText);
    for (const auto& [pixel, count] : counts) {
      if (count > image.width() - 6 && QColor(pixel) != ink) least = std::min(least, Contrast(QColor(pixel), ink));
    }
    return least;
  }
};

TEST_F(RecolouredTest, WriteIsReadableWhileItIsProminent) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(Open("Device Identification"));
  window_.Presented().Type(id::txtParameter(0), "A");
  ASSERT_TRUE(WaitFor([&] { return window_.Actions().Footer() == QLatin1String("1 not written"); }));
  for (const QString& name : PaletteNames()) {
    const Coloured coloured(name);
    QApplication::processEvents();
    EXPECT_GE(TextContrast(*window_.Actions().Write()), kTextContrast) << name.toStdString();
  }
}

TEST_F(RecolouredTest, ListsGroupsAndTheTabInFrontHaveEdgesThatAreSeen) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(Open("Analog Input 1"));
  window_.Presented().ClickTab(id::SSTabAI, 2);
  ASSERT_TRUE(Settle());
  auto* list = Find<QListWidget>(id::ListAIAlarm);
  auto* strip = Find<QTabBar>(id::SSTabAI);
  ASSERT_NE(list, nullptr);
  ASSERT_NE(strip, nullptr);
  QGroupBox* box = nullptr;
  for (QGroupBox* one : window_.findChildren<QGroupBox*>()) {
    if (one->isVisible()) box = one;
  }
  ASSERT_NE(box, nullptr);
  for (const QString& name : PaletteNames()) {
    SCOPED_TRACE(name.toStdString());
    const Coloured coloured(name);
    QApplication::processEvents();
    const QColor ground = QApplication::palette().color(QPalette::Window);
    const QImage frame = list->grab().toImage();
    EXPECT_GE(Contrast(frame.pixelColor(frame.width() / 2, 0), ground), kShapeContrast);
    EXPECT_GE(Contrast(frame.pixelColor(0, frame.height() / 2), ground), kShapeContrast);
    const QImage group = box->grab().toImage();
    EXPECT_GE(Contrast(group.pixelColor(0, group.height() / 2), ground), 1.5);
    const QImage tabs = strip->grab().toImage();
    const QPoint front = strip->tabRect(2).center();
    EXPECT_GE(Contrast(tabs.pixelColor(front.x(), strip->tabRect(2).top() + 1), ground), kShapeContrast);
  }
}

TEST_F(RecolouredTest, TheFocusIsSeenOnAButton) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(Open("Device Identification"));
  QPushButton& button = *window_.Actions().Write();
  const auto edge = [&] {
    const QImage image = button.grab().toImage();
    return image.pixelColor(image.width() / 2, 0);
  };
  for (const QString& name : PaletteNames()) {
    SCOPED_TRACE(name.toStdString());
    const Coloured coloured(name);
    QApplication::processEvents();
    window_.Tree().setFocus();
    const QColor without = edge();
    button.setFocus();
    ASSERT_TRUE(button.hasFocus());
    EXPECT_NE(edge(), without);
    EXPECT_GE(Contrast(edge(), QApplication::palette().color(QPalette::Window)), kShapeContrast);
  }
}

TEST_F(RecolouredTest, PicturesFollowAThemeThatChangesWhileTheProgramRuns) {
  ASSERT_TRUE(Connect());
  const auto picture = [&] { return window_.Tree().topLevelItem(0)->icon(0).pixmap(16).toImage(); };
  const auto ink = [&] {
    const QImage image = picture();
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (qAlpha(image.pixel(x, y)) == 255) return image.pixelColor(x, y).name();
      }
    }
    return QString();
  };
  for (const QString& name : PaletteNames()) {
    const Coloured coloured(name);
    QApplication::processEvents();
    EXPECT_EQ(ink(), QApplication::palette().color(QPalette::Text).name()) << name.toStdString();
    for (const QLabel* label : window_.findChildren<QLabel*>()) {
      const QImage shown = label->pixmap(Qt::ReturnByValue).toImage();
      if (shown.isNull()) continue;
      bool found = false;
      for (int y = 0; y < shown.height() && !found; ++y) {
        for (int x = 0; x < shown.width() && !found; ++x) {
          found = shown.pixelColor(x, y) == QApplication::palette().color(QPalette::WindowText);
        }
      }
      EXPECT_TRUE(found) << label->accessibleName().toStdString() << name.toStdString();
    }
  }
}

}  // namespace
}  // namespace htr60::desktop
