#pragma once

#include <QDockWidget>
#include <QTimer>
#include <vector>

#include "desktop/docks/dock_tools.h"
#include "observe/simulator_panel.h"

class QAction;
class QBoxLayout;
class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLineEdit;
class QListWidget;
class QPushButton;
class QSlider;
class QSpinBox;

namespace htr60::desktop {

/// Process, faults and link of the simulated transmitter, by hand: everything acts at once.
class SimulatorDock final : public QDockWidget {
  Q_OBJECT

 public:
  SimulatorDock(DockContext context, QWidget* parent);
  /// Once a turn: nothing while it is not to be seen.
  void Turn();
  /// The action that takes the link off and on, in the menu, too.
  void UseLink(QAction& offline);
  observe::SimulatorPanel& Panel() { return panel_; }

 Q_SIGNALS:
  /// The operator wants another transmitter: the name of ready-made settings.
  void TransmitterWanted(const QString& preset);

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  struct Row {
    const observe::ProcessRow* row = nullptr;
    QLabel* caption = nullptr;
    QDoubleSpinBox* number = nullptr;
    QSlider* slider = nullptr;
    QLabel* unit = nullptr;
  };

  QWidget* MakeProcess(QWidget& parent);
  void AddRow(const observe::ProcessRow& row, QWidget& group);
  QWidget* MakeRamp(QWidget& parent);
  QWidget* MakeFaults(QWidget& parent);
  void MakeOptions(QWidget& group);
  QWidget* MakePresent(QWidget& parent);
  QWidget* MakeLink(QWidget& parent);
  void SetNumber(const Row& row, double value);
  void ShowKind();
  void ShowProcess();
  void ShowFaults();
  void BeginFault();
  void EndFault();
  void Acted();

  DockContext context_;
  observe::SimulatorPanel panel_;
  QTimer second_;
  bool showing_ = false;  // what is set is no act of the operator
  std::vector<Row> rows_;
  QComboBox* rampRow_;
  QDoubleSpinBox* rampTarget_;
  QSpinBox* rampSeconds_;
  QPushButton* rampStop_;
  QComboBox* kind_;
  QLabel* sentence_;
  QLineEdit* codes_;
  QLineEdit* tags_;
  QComboBox* sensor_;
  QSpinBox* milliseconds_;
  QSpinBox* count_;
  QSpinBox* seconds_;
  QListWidget* present_;
  QPushButton* end_;
  QPushButton* endAll_;
  QCheckBox* link_;
  QComboBox* preset_;
  QLabel* presetSentence_;
  DockMessage* message_;
};

}  // namespace htr60::desktop
