#include "desktop/docks/simulator/simulator_dock.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>

#include <nlohmann/json.hpp>

#include "desktop/docks/docks.h"
#include "desktop_test.h"

namespace htr60::desktop {
namespace {

class SimulatorDockTest : public DesktopTest {
 protected:
  explicit SimulatorDockTest(const sim::Settings& settings = {}) : DesktopTest(settings) {
    Dock().show();
    QApplication::processEvents();
  }
  SimulatorDock& Dock() { return window_.Around().Simulator(); }
  QDoubleSpinBox& Number(const char* member) { return *Dock().findChild<QDoubleSpinBox*>(QLatin1String(member)); }
  QPushButton& Button(const char* text) {
    for (QPushButton* button : Dock().findChildren<QPushButton*>()) {
      if (button->text() == QLatin1String(text)) return *button;
    }
    throw std::runtime_error(text);
  }
  void Begin(const char* kind) {
    auto* kinds = Dock().findChild<QComboBox*>(QStringLiteral("faultKind"));
    kinds->setCurrentIndex(kinds->findText(QLatin1String(kind)));
    Button("Begin").click();
    QApplication::processEvents();
  }
  QLabel& BadgeLabel() { return *window_.Identification().findChild<QLabel*>(QStringLiteral("simulated")); }
  QString Badge() { return BadgeLabel().text(); }
  int Faults() { return Dock().findChild<QListWidget*>(QStringLiteral("presentFaults"))->count(); }
};

TEST_F(SimulatorDockTest, APressureActsAtOnceAndTheSliderGoesWithIt) {
  ASSERT_TRUE(Connect());
  EXPECT_EQ(Number("pressureHi").value(), 20);
  Number("pressureHi").setValue(25);
  ASSERT_TRUE(Open("AI 1 View"));
  EXPECT_EQ(TheForm().TextOf(id::lbDeviceView(36)), "15.000");
  const auto name = Number("pressureHi").accessibleName();
  QSlider* slider = nullptr;
  for (QSlider* one : Dock().findChildren<QSlider*>()) {
    if (one->accessibleName() == name) slider = one;
  }
  ASSERT_NE(slider, nullptr);
  slider->setValue(slider->minimum());
  EXPECT_DOUBLE_EQ(Number("pressureHi").value(), -37.4) << "the end of the sensor's range";
  EXPECT_DOUBLE_EQ(host_.Transmitter().ProcessValue(sim::Quantity::kPressureHi), -37400);
}

TEST_F(SimulatorDockTest, AnAlarmAppearsOnThePageAndInTheHealthAndOnTheBadge) {
  ASSERT_TRUE(Connect());
  Begin("boardFailure");
  EXPECT_EQ(Faults(), 1);
  EXPECT_EQ(Badge(), QStringLiteral("SIMULATED, 1 fault"));
  ASSERT_TRUE(Open("Diagnosis"));
  EXPECT_TRUE(window_.Presented().Shown().healthText.starts_with("Failure: "))
      << window_.Presented().Shown().healthText;
  EXPECT_EQ(TheForm().TextOf(id::txtParameter(145)), "Sensor Failure");
  // Beside the dock there is little room: the rest gives way, for the badge tells what not to trust.
  window_.resize(window_.minimumSizeHint());
  QApplication::processEvents();
  EXPECT_GE(BadgeLabel().width(), BadgeLabel().sizeHint().width());
  Button("End").click();
  QApplication::processEvents();
  EXPECT_EQ(Faults(), 0);
  EXPECT_EQ(Badge(), QStringLiteral("SIMULATED"));
}

TEST_F(SimulatorDockTest, EveryKindHasASentenceAndTheOptionsThatMeanSomething) {
  const auto kinds = sim::FaultKinds();
  ASSERT_EQ(kinds.size(), 25U);
  auto* box = Dock().findChild<QComboBox*>(QStringLiteral("faultKind"));
  ASSERT_EQ(box->count(), 25);
  for (int row = 0; row < box->count(); ++row) {
    const sim::FaultKindRow& kind = kinds[static_cast<std::size_t>(row)];
    SCOPED_TRACE(std::string(kind.name));
    EXPECT_TRUE(kind.sentence.ends_with('.'));
    box->setCurrentIndex(row);
    Button("Begin").click();
    const auto* message = Dock().findChild<DockMessage*>();
    EXPECT_EQ(message->text(), QString());
    EXPECT_FALSE(host_.Transmitter().Faults().empty());
    EXPECT_EQ(host_.Transmitter().Faults().back().settings.kind, static_cast<sim::FaultKind>(row));
    host_.Transmitter().ClearAllFaults();
  }
}

TEST_F(SimulatorDockTest, AWrongOptionIsSaidInASentence) {
  auto* box = Dock().findChild<QComboBox*>(QStringLiteral("faultKind"));
  box->setCurrentIndex(box->findText(QStringLiteral("missingTag")));
  for (QLineEdit* field : Dock().findChildren<QLineEdit*>()) {
    if (field->accessibleName() == QLatin1String("Codes")) field->setText(QStringLiteral("5, five"));
  }
  Button("Begin").click();
  EXPECT_EQ(Dock().findChild<DockMessage*>()->text(), QStringLiteral("Reads: \"five\" is no number."));
  EXPECT_TRUE(host_.Transmitter().Faults().empty());
}

TEST_F(SimulatorDockTest, ARampRunsAndIsStopped) {
  ASSERT_TRUE(Connect());
  Dock().findChild<QDoubleSpinBox*>(QStringLiteral("rampTarget"))->setValue(30);
  Dock().findChild<QSpinBox*>(QStringLiteral("rampSeconds"))->setValue(10);
  EXPECT_FALSE(Button("Stop").isEnabled());
  Button("Start").click();
  EXPECT_TRUE(Button("Stop").isEnabled());
  const auto pressure = [&] { return host_.Transmitter().ProcessValue(sim::Quantity::kPressureHi); };
  ASSERT_TRUE(Open("AI 1 View"));  // whose polls let the time pass
  const std::int64_t start = clock_.Now();
  ASSERT_TRUE(WaitFor([&] { return clock_.Now() > start + 4000 || pressure() > 20'500; }));
  EXPECT_GT(pressure(), 20'000);
  EXPECT_LT(pressure(), 30'000.1);
  Button("Stop").click();
  EXPECT_FALSE(Button("Stop").isEnabled());
}

TEST_F(SimulatorDockTest, TheLinkGoesOffAndOnWithTheMenu) {
  ASSERT_TRUE(Connect());
  auto* off = Dock().findChild<QCheckBox*>(QStringLiteral("linkOff"));
  off->setChecked(true);
  ASSERT_TRUE(WaitFor([&] { return Panel(1) == "Disconnected"; }));
  EXPECT_EQ(Badge(), QStringLiteral("SIMULATED, link off"));
  off->setChecked(false);
  ASSERT_TRUE(WaitFor([&] { return Panel(1) == "Connected"; }));
  EXPECT_EQ(Badge(), QStringLiteral("SIMULATED"));
}

TEST_F(SimulatorDockTest, ReadyMadeSettingsAreAskedForByTheirName) {
  QString wanted;
  QObject::connect(&window_, &MainWindow::TransmitterWanted, &window_, [&](const QString& name) { wanted = name; });
  auto* presets = Dock().findChild<QComboBox*>(QStringLiteral("preset"));
  ASSERT_EQ(presets->count(), static_cast<int>(sim::PresetNames().size()));
  for (int row = 0; row < presets->count(); ++row) {
    EXPECT_FALSE(sim::PresetSentence(ToUtf8(presets->itemText(row))).empty());
  }
  presets->setCurrentIndex(presets->findText(QStringLiteral("tank")));
  Button("Start anew").click();
  EXPECT_EQ(wanted, QStringLiteral("tank"));
}

sim::Settings Tank() { return sim::Parse(sim::PresetObject("tank")); }
class VesselDockTest : public SimulatorDockTest {
 protected:
  VesselDockTest() : SimulatorDockTest(Tank()) {}
};

TEST_F(VesselDockTest, AVesselShowsItsLevelInPlaceOfThePressures) {
  EXPECT_FALSE(Number("pressureHi").isVisible());
  ASSERT_TRUE(Number("level").isVisible());
  Number("level").setValue(2);
  EXPECT_DOUBLE_EQ(host_.Transmitter().ProcessValue(sim::Quantity::kVesselLevel), 2);
  EXPECT_TRUE(host_.Transmitter().HasVessel());
}

}  // namespace
}  // namespace htr60::desktop
