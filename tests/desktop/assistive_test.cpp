// What a screen reader is told of every page: what the presentation says, in its words.
#include <QAccessible>
#include <QLabel>
#include <QTabBar>
#include <set>

#include "desktop_test.h"
#include "pages/pages.h"

namespace htr60::desktop {
namespace {

QString Told(QWidget& widget, QAccessible::Text what) {
  QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&widget);
  return interface == nullptr ? QStringLiteral("nothing") : interface->text(what);
}

class AssistiveTest : public DesktopTest {
 protected:
  void CheckRow(const presentation::ScreenRow& row) {
    if (row.kind == RowKind::kFixed || !row.control) return;
    auto* widget = Find<QWidget>(row.control);
    SCOPED_TRACE(NameOf(row.control));
    ASSERT_NE(widget, nullptr);
    ++rows_;
    if (row.kind == RowKind::kOpen || row.kind == RowKind::kWrite) {
      EXPECT_EQ(Told(*widget, QAccessible::Name).remove(u'&').trimmed().toStdString(),
                presentation::Trimmed(row.caption));
      EXPECT_TRUE(row.kind == RowKind::kOpen || !Told(*widget, QAccessible::Description).isEmpty());
      return;
    }
    if (row.kind == RowKind::kMsg) {
      EXPECT_EQ(Told(*widget, QAccessible::Name).toStdString(), row.text);
      return;
    }
    EXPECT_EQ(Told(*widget, QAccessible::Name).toStdString(), row.name);
    EXPECT_NE(row.name, "");
    if (row.kind != RowKind::kListBox) {
      EXPECT_EQ(Told(*widget, QAccessible::Value).toStdString(), row.text);
    }
    const std::string told = Told(*widget, QAccessible::Description).toStdString();
    for (const std::string& part : {row.words, row.hint}) {
      EXPECT_NE(told.find(part), std::string::npos) << part << " in " << told;
    }
  }

  void CheckScreen() {
    SCOPED_TRACE(window_.Presented().Shown().title);
    for (const presentation::ScreenRow& row : window_.Presented().Shown().rows) CheckRow(row);
    for (QTabBar* strip : window_.findChildren<QTabBar*>()) {
      if (!strip->isVisible()) continue;
      EXPECT_NE(Told(*strip, QAccessible::Name), QString()) << strip->objectName().toStdString();
    }
  }

  // The tab in front, and what its buttons open.
  void CheckTab() {
    CheckScreen();
    const std::vector<presentation::ScreenRow> rows = window_.Presented().Shown().rows;
    for (const presentation::ScreenRow& row : rows) {
      if (row.kind != RowKind::kOpen || !row.enabled || row.control == ControlId(id::cmdFactory)) continue;
      window_.Presented().Press(ButtonId{row.control});
      Settle();  // false on a page that reads nothing
      CheckScreen();
      window_.Presented().Press(id::cmdBack);
      QApplication::processEvents();
    }
  }

  int rows_ = 0;
};

TEST_F(AssistiveTest, TellsEveryRowOfEveryNodeAndTab) {
  ASSERT_TRUE(Connect());
  std::vector<std::string> nodes;
  for (const TreeNode& node : TheForm().treeView.Nodes()) nodes.emplace_back(node.text);
  for (const std::string& node : nodes) {
    SCOPED_TRACE(node);
    if (!Open(node.c_str()) || window_.Presented().Page() == nullptr) continue;
    CheckTab();
    const auto strips = window_.Presented().Shown().tabs;
    if (strips.empty()) continue;
    for (int tab = 1; tab < static_cast<int>(strips.front().captions.size()); ++tab) {
      window_.Presented().ClickTab(strips.front().control, tab);
      EXPECT_TRUE(Settle());
      CheckTab();
    }
  }
  EXPECT_GT(rows_, 250);
}

TEST_F(AssistiveTest, TellsStatesHintsAndTheBar) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(Open("Pressure/Flow"));
  window_.Presented().ClickTab(id::SSTabTRDSettings, 1);
  window_.Presented().Press(id::cmdTRDInScale);
  ASSERT_TRUE(Settle());
  window_.Presented().Type(id::txtParameter(99), "12345678901");
  ASSERT_FALSE(window_.close());
  QApplication::processEvents();
  CheckScreen();
  auto* field = Find<QWidget>(id::txtParameter(99));
  EXPECT_TRUE(Told(*field, QAccessible::Description).contains(QLatin1String("not written")));
  EXPECT_TRUE(Told(*field, QAccessible::Description).contains(QLatin1String("Too many digits")));
  PageBar& bar = window_.Page().Bar();
  EXPECT_EQ(Told(bar, QAccessible::Name), QStringLiteral("1 not written"));
  EXPECT_EQ(Told(*bar.Buttons()[0], QAccessible::Name), QStringLiteral("Stay"));
  EXPECT_EQ(Told(*bar.Buttons()[0], QAccessible::Description), QStringLiteral("1 not written"));
}

TEST_F(AssistiveTest, TellsStripPanelsAndActions) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(Open("Device Identification"));
  std::set<QString> told;
  for (QWidget* widget : window_.findChildren<QWidget*>()) {
    if (widget->isVisible()) told.insert(Told(*widget, QAccessible::Name));
  }
  for (const char* name : {"Pages", "Tag", "Serial number", "Firmware", "Write protection", "Health", "Connection",
                           "Traffic", "Age of the values", "Write", "Save", "Back", "Revert"}) {
    EXPECT_EQ(told.count(QLatin1String(name)), 1U) << name;
  }
}

}  // namespace
}  // namespace htr60::desktop
