#pragma once

#include <QDockWidget>
#include <vector>

#include "desktop/docks/dock_tools.h"
#include "observe/record.h"

class QDoubleSpinBox;
class QLabel;
class QLineEdit;
class QTableWidget;
class QVBoxLayout;

namespace htr60::desktop {

class FigureWidget;

/// What has been calibrated, kept by itself: error found and error left, the device's verdict, and what the operator
/// adds.
class RecordDock final : public QDockWidget {
  Q_OBJECT

 public:
  RecordDock(DockContext context, QWidget* parent);
  /// Once a turn: nothing while it is not to be seen.
  void Turn();
  /// As its ending says: PDF, HTML or CSV.
  void SaveTo(const QString& file);
  observe::Record& Kept() { return record_; }

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QWidget* MakeTools();
  void MakeTable(QWidget& parent);
  void TakeName();
  int HeightOf(int steps) const;
  void Show();
  void ShowCharts();
  observe::RecordHead Head() const;

  DockContext context_;
  observe::Record record_;
  std::uint64_t shown_ = UINT64_MAX;
  bool showing_ = false;  // what is set is no act of the operator
  QLineEdit* name_;
  QDoubleSpinBox* tolerance_;
  QTableWidget* table_;
  QVBoxLayout* charts_;
  QLabel* empty_;
  QLabel* worst_;
  std::vector<FigureWidget*> figures_;
  DockMessage* message_;
};

}  // namespace htr60::desktop
