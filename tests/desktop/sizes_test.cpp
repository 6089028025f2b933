// Every page at the smallest size: all its rows are to be seen, none is cut.
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>

#include "desktop/options.h"
#include "desktop/page/page_view.h"
#include "desktop_test.h"

namespace htr60::desktop {
namespace {

class SizesTest : public DesktopTest, public testing::WithParamInterface<const char*> {
 protected:
  SizesTest() : DesktopTest(LoadSettings({.preset = QLatin1String(GetParam())})) {}

  void Look() {
    QApplication::processEvents();
    PageView* view = window_.Page().View();
    ASSERT_NE(view, nullptr);
    SCOPED_TRACE(window_.Header().Title().toStdString());
    ++looked_;
    const auto* scroll = view->findChild<QScrollArea*>();
    EXPECT_EQ(scroll->horizontalScrollBar()->maximum(), 0);
    // The page of the whole signal is the one that may be higher than the smallest window.
    if (!(view->Page().frame == id::frmDeviceView)) {
      EXPECT_EQ(scroll->verticalScrollBar()->maximum(), 0);
    }
    const auto* outside = window_.findChild<QScrollArea*>(QStringLiteral("pageScroll"));
    EXPECT_EQ(outside->horizontalScrollBar()->maximum(), 0);
    EXPECT_EQ(outside->verticalScrollBar()->maximum(), 0);
    for (const QTabBar* strip : view->findChildren<QTabBar*>()) {
      if (!strip->isVisible()) continue;
      EXPECT_LE(strip->sizeHint().width(), strip->width()) << "its tabs scroll";
    }
    LookAtTexts(*view);
  }

  // Captions and numbers are whole.
  static void LookAtTexts(const PageView& view) {
    for (const QLabel* label : view.findChildren<QLabel*>()) {
      if (!label->isVisible() || label->wordWrap() || label->text().isEmpty()) continue;
      EXPECT_LE(label->fontMetrics().horizontalAdvance(label->text()), label->width()) << label->text().toStdString();
    }
    for (const TextEntry* entry : view.findChildren<TextEntry*>()) {
      const bool number = !entry->text().isEmpty() && entry->alignment().testFlag(Qt::AlignRight);
      if (!entry->isVisible() || !number) continue;
      EXPECT_FALSE(entry->CutOff()) << entry->accessibleName().toStdString() << ", " << entry->text().toStdString()
                                    << " in " << entry->width();
    }
  }

  void LookAtTab() {
    Look();
    const std::vector<presentation::ScreenRow> rows = window_.Presented().Shown().rows;
    for (const presentation::ScreenRow& row : rows) {
      if (row.kind != RowKind::kOpen || !row.enabled || row.control == ControlId(id::cmdFactory)) continue;
      window_.Presented().Press(ButtonId{row.control});
      Settle();  // false on a page that reads nothing
      Look();
      window_.Presented().Press(id::cmdBack);
      QApplication::processEvents();
    }
  }

  int looked_ = 0;
};

TEST_P(SizesTest, TheSmallestWindowShowsAllRowsOfEveryPage) {
  ASSERT_TRUE(Connect());
  window_.resize(window_.minimumSize());
  std::vector<std::string> nodes;
  for (const TreeNode& node : TheForm().treeView.Nodes()) nodes.emplace_back(node.text);
  for (const std::string& node : nodes) {
    if (!Open(node.c_str()) || window_.Presented().Page() == nullptr) continue;
    LookAtTab();
    const auto strips = window_.Presented().Shown().tabs;
    if (strips.empty()) continue;
    for (int tab = 1; tab < static_cast<int>(strips.front().captions.size()); ++tab) {
      window_.Presented().ClickTab(strips.front().control, tab);
      EXPECT_TRUE(Settle());
      LookAtTab();
    }
  }
  EXPECT_GT(looked_, 40);
}

INSTANTIATE_TEST_SUITE_P(EveryType, SizesTest, testing::Values("pressure", "flow", "level", "density"),
                         [](const auto& type) { return std::string(type.param); });

}  // namespace
}  // namespace htr60::desktop
