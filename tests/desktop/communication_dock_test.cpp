#include "desktop/docks/communication/communication_dock.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <nlohmann/json.hpp>

#include "desktop/docks/docks.h"
#include "desktop_test.h"

namespace htr60::desktop {
namespace {

class CommunicationTest : public DesktopTest {
 protected:
  CommunicationDock& Dock() { return window_.Around().Communication(); }
  QTableView& Table() { return *Dock().findChild<QTableView*>(QStringLiteral("traffic")); }
  void Show() {
    Dock().show();
    QApplication::processEvents();
  }
  /// What a row shows in all its columns.
  QString Row(int row) {
    QStringList cells;
    for (int column = 0; column < Table().model()->columnCount(); ++column) {
      cells << Table().model()->index(row, column).data().toString();
    }
    return cells.join(u'|');
  }
  int Rows() { return Table().model()->rowCount(); }
  QPushButton& Button(const char* text) {
    for (QPushButton* button : Dock().findChildren<QPushButton*>()) {
      if (button->text() == QLatin1String(text)) return *button;
    }
    throw std::runtime_error(text);
  }
};

TEST_F(CommunicationTest, TellsEveryStepOfAChangeOfUnit) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(Open("Calibration"));
  Show();
  const int before = Rows();
  window_.Presented().Pick(id::cmbCalibUnit, 0);
  const QString unit = ToQt(TheForm().TextOf(id::cmbCalibUnit));
  window_.Actions().Write()->click();
  ASSERT_TRUE(WaitFor([&] { return Rows() == before + 3; }));
  EXPECT_TRUE(Row(before).contains(QLatin1String("write|12|Calibration, Diff. Pressure|Sensor unit: ") + unit));
  EXPECT_TRUE(Row(before).endsWith(QLatin1String("|taken"))) << Row(before).toStdString();
  EXPECT_TRUE(Row(before + 1).endsWith(QLatin1String("|50|answered"))) << Row(before + 1).toStdString();
  EXPECT_TRUE(Row(before + 2).contains(QLatin1String("answer|1500|"))) << Row(before + 2).toStdString();
  Table().selectRow(before);
  const auto* values = Dock().findChild<QTreeWidget*>(QStringLiteral("trafficValues"));
  ASSERT_EQ(values->topLevelItemCount(), 1);
  EXPECT_EQ(values->topLevelItem(0)->text(0), QStringLiteral("Sensor unit"));
  EXPECT_EQ(values->topLevelItem(0)->text(1), unit);
  EXPECT_EQ(values->topLevelItem(0)->text(4).size(), 4) << "the digits";
}

TEST_F(CommunicationTest, DecodesNothingWhileItIsHiddenAndAllOnceItIsShown) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(Open("Observe"));
  EXPECT_EQ(Dock().List().All(), 0U);
  EXPECT_GT(host_.Watched().Entries().size(), 4U) << "recorded all the same";
  Show();
  EXPECT_EQ(Dock().List().All(), host_.Watched().Entries().size());
  Dock().hide();
  const std::size_t seen = Dock().List().All();
  ASSERT_TRUE(Open("Diagnosis"));
  EXPECT_EQ(Dock().List().All(), seen);
}

TEST_F(CommunicationTest, FiltersHoldsAndClears) {
  ASSERT_TRUE(Connect());
  ASSERT_TRUE(Open("Pressure/Flow"));
  Show();
  const int all = Rows();
  auto* text = Dock().findChild<QLineEdit*>(QStringLiteral("trafficText"));
  auto* kind = Dock().findChild<QComboBox*>(QStringLiteral("trafficKind"));
  text->setText(QStringLiteral("cut off"));
  EXPECT_EQ(Rows(), 1);
  text->clear();
  kind->setCurrentIndex(1);
  const int reads = Rows();
  kind->setCurrentIndex(3);
  EXPECT_EQ(Rows() + reads, all);
  kind->setCurrentIndex(0);
  EXPECT_EQ(Rows(), all);
  Dock().findChild<QCheckBox*>()->setChecked(true);
  EXPECT_EQ(Rows(), 0);
  Dock().findChild<QCheckBox*>()->setChecked(false);
  Button("Pause").click();
  ASSERT_TRUE(Open("Observe"));
  EXPECT_EQ(Rows(), all);
  Button("Pause").click();
  EXPECT_EQ(Rows(), all + 2) << "nothing was lost meanwhile";
  Button("Clear").click();
  EXPECT_EQ(Rows(), 0);
}

TEST_F(CommunicationTest, MarksWhatFails) {
  ASSERT_TRUE(Connect());
  Show();
  host_.Transmitter().BeginFault({{"kind", "readFails"}, {"count", 1}});
  window_.Tree().Press(QStringLiteral("Pressure/Flow"));
  QApplication::processEvents();
  const int last = Rows() - 1;
  EXPECT_TRUE(Row(last).endsWith(QLatin1String("|failed"))) << Row(last).toStdString();
  EXPECT_TRUE(Table().model()->index(last, 0).data(Qt::FontRole).value<QFont>().bold()) << "not by its colour alone";
}

TEST_F(CommunicationTest, CopiesAndSaves) {
  ASSERT_TRUE(Connect());
  Show();
  Table().selectRow(Rows() - 1);
  Button("Copy").click();
  const QString copied = QApplication::clipboard()->text();
  EXPECT_TRUE(copied.contains(QLatin1String("PHYTag\tTag\tHTR60-1"))) << copied.toStdString();
  const QTemporaryDir folder;
  const QString file = folder.filePath(QStringLiteral("traffic.jsonl"));
  Dock().SaveTo(file);
  QFile saved(file);
  ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
  int lines = 0;
  while (!saved.atEnd()) {
    const auto json = nlohmann::json::parse(saved.readLine().toStdString());
    EXPECT_EQ(json.at("number"), ++lines);
  }
  EXPECT_EQ(lines, Rows());
  const auto* message = Dock().findChild<DockMessage*>();
  EXPECT_EQ(message->text(), QStringLiteral("Saved as %1.").arg(QDir::toNativeSeparators(file)));
  Dock().SaveTo(folder.filePath(QStringLiteral("missing/traffic.jsonl")));
  EXPECT_TRUE(message->text().contains(QLatin1String(" cannot be saved: "))) << message->text().toStdString();
}

TEST(ProposedName, LeavesOutWhatNoFileCanBearInItsName) {
  using observe::ProposedName;
  EXPECT_EQ(ProposedName("HTR60-1", "traffic", "2026-01-31", "jsonl"), "HTR60-1 traffic 2026-01-31.jsonl");
  EXPECT_EQ(ProposedName("../P:1*?", "trend", "2026-01-31", "csv"), "P1 trend 2026-01-31.csv");
  EXPECT_EQ(ProposedName("  ", "trend", "2026-01-31", "csv"), "HTR60 trend 2026-01-31.csv");
}

}  // namespace
}  // namespace htr60::desktop
