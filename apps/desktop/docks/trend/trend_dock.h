#pragma once

#include <QDockWidget>
#include <QTimer>
#include <vector>

#include "desktop/docks/dock_tools.h"
#include "observe/trend.h"

class QComboBox;
class QPushButton;
class QTableWidget;
class QVBoxLayout;

namespace htr60::desktop {

class FigureWidget;

/// One drawing for each unit, above each other, with a cursor that the pointer and the keys move.
class TrendPlots final : public QWidget {
  Q_OBJECT

 public:
  TrendPlots(observe::Trend& trend, QWidget* parent);
  void Refresh();
  const std::vector<FigureWidget*>& Figures() const { return figures_; }

 Q_SIGNALS:
  void CursorMoved();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void MoveTo(std::optional<std::int64_t> at);
  bool Key(int key);

  observe::Trend& trend_;
  QVBoxLayout* column_;
  QLabel* empty_;
  std::vector<FigureWidget*> figures_;
};

/// Up to four live fields of the pages over time.
class TrendDock final : public QDockWidget {
  Q_OBJECT

 public:
  TrendDock(DockContext context, QWidget* parent);
  ~TrendDock() override;
  /// Once a turn: nothing while it is not to be seen.
  void Turn();
  void SaveTo(const QString& file);
  observe::Trend& Followed() { return trend_; }
  TrendPlots& Plots() { return *plots_; }

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QWidget* MakeTools();
  void MakeTable(QWidget& parent);
  std::vector<presentation::FieldAddition> Offer(ControlId field);
  void Refresh();
  void ShowFields();

  DockContext context_;
  observe::Trend trend_;
  QTimer second_;
  std::uint64_t shown_ = 0;
  std::int64_t shownAt_ = -1;
  TrendPlots* plots_;
  QTableWidget* fields_;
  QComboBox* window_;
  QPushButton* pause_;
  QPushButton* remove_;
  QLabel* at_;
  DockMessage* message_;
};

}  // namespace htr60::desktop
