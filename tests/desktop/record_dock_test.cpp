#include "desktop/docks/record/record_dock.h"

#include <QDoubleSpinBox>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <nlohmann/json.hpp>

#include "desktop/docks/docks.h"
#include "desktop/docks/record/record_pdf.h"
#include "desktop/figure/figure_widget.h"
#include "desktop_test.h"

namespace htr60::desktop {
namespace {

sim::Settings WithError() {
  return sim::Parse(nlohmann::json{{"device", {{"offsetErrorHi", 300}}},
                                   {"process", {{"pressureHi", 10'000}, {"pressureLo", 10'000}}}});
}

class RecordDockTest : public DesktopTest {
 protected:
  RecordDockTest() : DesktopTest(WithError()) {}
  RecordDock& Dock() { return window_.Around().Calibrated(); }
  QTableWidget& Table() { return *Dock().findChild<QTableWidget*>(QStringLiteral("recordSteps")); }
  QString Row(int row) {
    QStringList cells;
    for (int column = 1; column <= observe::Record::kRemark; ++column) cells << Table().item(row, column)->text();
    return cells.join(u'|');
  }
  void Name(const char* name) {
    auto* field = Dock().findChild<QLineEdit*>(QStringLiteral("operatorName"));
    field->setFocus();
    field->clear();
    QTest::keyClicks(field, QLatin1String(name));
    QTest::keyClick(field, Qt::Key_Return);
    QApplication::processEvents();
  }
  bool Pass(std::int64_t milliseconds) {
    const std::int64_t end = clock_.Now() + milliseconds;
    return WaitFor([&] { return clock_.Now() >= end; }, static_cast<int>(2 * milliseconds) + 10'000);
  }
  /// A lower trim at no difference of pressure; the device shows 0.3 kPa.
  void TrimLower() {
    ASSERT_TRUE(Connect());
    ASSERT_TRUE(Open("Calibration"));
    window_.Presented().Press(id::cmdCalibLower);
    ASSERT_TRUE(Settle());
    ASSERT_TRUE(Pass(6'000));
    window_.Presented().Type(id::txtParameter(103), "0");
    window_.Presented().Press(id::cmdWriteCalibLower);
    ASSERT_TRUE(Pass(6'000));
  }
  /// The text of a document, as a reader finds it.
  QString TextOf(const QString& file) {
    QProcess reader;
    reader.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), file, QStringLiteral("-")});
    EXPECT_TRUE(reader.waitForFinished()) << "pdftotext of poppler-utils is needed";
    return QString::fromUtf8(reader.readAllStandardOutput());
  }
};

TEST_F(RecordDockTest, KeepsATrimByItselfWhileItIsHidden) {
  TrimLower();
  EXPECT_EQ(Table().rowCount(), 0) << "nothing is shown before it is looked at";
  Dock().show();
  QApplication::processEvents();
  ASSERT_EQ(Table().rowCount(), 1);
  // 0.3 of 37.4 kPa are 0.802 %.
  EXPECT_EQ(Row(0), QStringLiteral("Lower trim|0|0.3|+0.802|0|+0.000|kPa|Good|"));
}

TEST_F(RecordDockTest, TheOperatorAddsNameRemarkAndTolerance) {
  TrimLower();
  Dock().show();
  QApplication::processEvents();
  Name("A. Weber");
  Table().item(0, observe::Record::kRemark)->setText(QStringLiteral("reference 12"));
  Dock().findChild<QDoubleSpinBox*>(QStringLiteral("tolerance"))->setValue(0.5);
  QApplication::processEvents();
  EXPECT_EQ(Dock().Kept().Operator(), "A. Weber");
  EXPECT_EQ(Dock().Kept().Steps().at(0).remark, "reference 12");
  EXPECT_EQ(Dock().Kept().Tolerance(), 0.5);
  EXPECT_FALSE(Table().item(0, 1)->flags().testFlag(Qt::ItemIsEditable)) << "what the device told stays as it is";
  EXPECT_EQ(Dock().findChild<QLabel*>(QStringLiteral("worstErrors"))->text(),
            QStringLiteral("Worst as found: +0.802 % of span, Lower trim, outside the tolerance.\n"
                           "Worst as left: +0.000 % of span, Lower trim, within the tolerance."));
  const auto figures = Dock().findChildren<FigureWidget*>();
  ASSERT_EQ(figures.size(), 1);
  const Figure& figure = figures.at(0)->Shown();
  ASSERT_EQ(figure.bands.size(), 1U);
  ASSERT_EQ(figure.markers.size(), 2U);
  EXPECT_EQ(figure.markers.at(0).shape, MarkerShape::kHollowSquare);
  EXPECT_NEAR(figure.markers.at(0).at.y, 0.3 / 37.4 * 100, 1e-3);
  EXPECT_EQ(figure.markers.at(1).shape, MarkerShape::kFilledSquare);
  EXPECT_NEAR(figure.markers.at(1).at.y, 0, 1e-3);
}

TEST_F(RecordDockTest, AStepKeepsTheNameOfWhoDidIt) {
  TrimLower();
  Dock().show();
  Name("A. Webr");
  EXPECT_TRUE(Table().isColumnHidden(observe::Record::kOperator)) << "one name stands above the table";
  Name("B. Klein");
  window_.Presented().Press(id::cmdWriteCalibLower);
  ASSERT_TRUE(Pass(6'000));
  ASSERT_EQ(Table().rowCount(), 2);
  EXPECT_FALSE(Table().isColumnHidden(observe::Record::kOperator));
  EXPECT_EQ(Table().item(0, observe::Record::kOperator)->text(), QStringLiteral("A. Webr"));
  EXPECT_EQ(Table().item(1, observe::Record::kOperator)->text(), QStringLiteral("B. Klein"));
  Table().item(0, observe::Record::kOperator)->setText(QStringLiteral("A. Weber"));
  const QTemporaryDir folder;
  const QString file = folder.filePath(QStringLiteral("record.pdf"));
  Dock().SaveTo(file);
  const QString text = TextOf(file);
  EXPECT_TRUE(text.contains(QLatin1String("A. Weber, B. Klein"))) << text.toStdString();
  EXPECT_FALSE(text.contains(QLatin1String("Webr")));
  Table().item(0, observe::Record::kOperator)->setText(QStringLiteral("B. Klein"));
  QApplication::processEvents();
  EXPECT_TRUE(Table().isColumnHidden(observe::Record::kOperator));
}

TEST_F(RecordDockTest, IsSavedAsADocumentThatReadsBack) {
  TrimLower();
  Dock().findChild<QLineEdit*>(QStringLiteral("operatorName"))->setText(QStringLiteral("Łukasz Weber"));
  Dock().Kept().SetTolerance(0.5);
  Dock().Kept().SetRemark(0, "reference 12");
  const QTemporaryDir folder;
  const QString file = folder.filePath(QStringLiteral("record.pdf"));
  Dock().SaveTo(file);
  const QString text = TextOf(file);
  for (const char* part : {"Calibration record", "SIMULATED", "HTR60-1", "06000001", "1.09", "2026-01-01",
                           "Łukasz Weber", "±0.5 % of span", "Lower trim", "+0.802", "reference 12",
                           "Worst as found: +0.802 % of span, Lower trim, outside the tolerance.", "Performed by",
                           "Checked by", "Page 1 of 1", "Error, % of span"}) {
    EXPECT_TRUE(text.contains(QString::fromUtf8(part))) << part << "\n" << text.toStdString();
  }
  for (const char* ending : {"html", "csv"}) {
    const QString other = folder.filePath(QStringLiteral("record.") + QLatin1String(ending));
    Dock().SaveTo(other);
    QFile saved(other);
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    EXPECT_TRUE(saved.readAll().contains("+0.802")) << ending;
  }
  Dock().SaveTo(folder.filePath(QStringLiteral("missing/record.pdf")));
  EXPECT_TRUE(Dock().findChild<DockMessage*>()->text().contains(QLatin1String("cannot be saved")));
}

TEST_F(RecordDockTest, TheNameOfTheFileGoesWithTheKindThatIsChosen) {
  ASSERT_TRUE(Connect());
  Dock().show();
  QString chosen;
  QTimer::singleShot(100, &window_, [&] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    dialog->selectNameFilter(QStringLiteral("Web page (*.html)"));
    Q_EMIT dialog->filterSelected(QStringLiteral("Web page (*.html)"));
    chosen = QFileInfo(dialog->selectedFiles().value(0)).fileName();
    dialog->reject();
  });
  for (auto* button : Dock().findChildren<QPushButton*>()) {
    if (button->text() == QLatin1String("Save...")) button->click();
  }
  EXPECT_EQ(chosen, QStringLiteral("HTR60-1 calibration 2026-01-01.html"));
}

TEST_F(RecordDockTest, ALongRecordGoesOnOverNumberedPages) {
  TrimLower();
  for (int i = 0; i < 60; ++i) window_.Presented().Press(id::cmdWriteCalibLower);
  ASSERT_TRUE(Pass(6'000));
  EXPECT_EQ(Dock().Kept().Steps().size(), 61U);
  const QTemporaryDir folder;
  const QString file = folder.filePath(QStringLiteral("record.pdf"));
  Dock().SaveTo(file);
  const QString text = TextOf(file);
  EXPECT_EQ(text.count(QLatin1String("Lower trim")), 61 + 2) << "each once, and in the two worst";
  EXPECT_TRUE(text.contains(QLatin1String("Page 1 of 3")) || text.contains(QLatin1String("Page 1 of 2")));
  const auto pages = text.count(QLatin1String("\f"));
  EXPECT_GE(pages, 2);
  EXPECT_TRUE(text.contains(QStringLiteral("Page %1 of %1").arg(pages)));
  EXPECT_EQ(text.count(QLatin1String("Device's verdict")) + text.count(QLatin1String("Device\u2019s verdict")), pages)
      << "the heads stand on every page of the table";
}

}  // namespace
}  // namespace htr60::desktop
