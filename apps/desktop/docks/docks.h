#pragma once

#include <QObject>
#include <vector>

#include "desktop/docks/dock_tools.h"

class QAction;
class QDockWidget;
class QMainWindow;
class QMenu;
class QSettings;

namespace htr60::desktop {

class CommunicationDock;
class RecordDock;
class SimulatorDock;
class TrendDock;

/// What stands around the pages for the person before the screen. None of it changes what the control does.
class Docks final : public QObject {
  Q_OBJECT

 public:
  Docks(DockContext context, QMainWindow& window);
  ~Docks() override;

  /// Adds an entry for each dock: shows it and goes there, or closes it; and one that lets it float.
  void AddTo(QMenu& menu);
  /// Once a turn.
  void Turn();
  /// Where the docks stand, from run to run.
  void Restore(const QSettings& settings);
  void Keep(QSettings& settings) const;
  /// The entries of the menu, one a dock.
  const std::vector<QAction*>& Actions() const { return actions_; }

  CommunicationDock& Communication() { return *communication_; }
  TrendDock& Trend() { return *trend_; }
  SimulatorDock& Simulator() { return *simulator_; }
  RecordDock& Calibrated() { return *record_; }

 private:
  void Add(QDockWidget& dock, Qt::DockWidgetArea area, int side);
  void AddFloating(QMenu& menu);
  void Float();
  void Toggle(QDockWidget& dock, bool shown);
  int SideOf(QDockWidget& dock) const;
  Qt::Orientation OrientationOf(QDockWidget& dock) const;

  QMainWindow& window_;
  CommunicationDock* communication_;
  TrendDock* trend_;
  SimulatorDock* simulator_;
  RecordDock* record_;
  std::vector<QDockWidget*> docks_;
  std::vector<QAction*> actions_;
  std::vector<int> sides_;      // of 1/96 inch: how far a dock reaches into the window at first
  QList<QDockWidget*> placed_;  // shown before in this run
};

}  // namespace htr60::desktop
