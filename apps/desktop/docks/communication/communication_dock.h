#pragma once

#include <QAbstractTableModel>
#include <QDockWidget>

#include "desktop/docks/dock_tools.h"
#include "observe/traffic_list.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;
class QTableView;
class QTreeWidget;

namespace htr60::desktop {

/// The rows of a traffic list as Qt asks for them.
class TrafficModel final : public QAbstractTableModel {
  Q_OBJECT

 public:
  TrafficModel(observe::TrafficList& list, QObject* parent) : QAbstractTableModel(parent), list_(list) {}
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  /// Takes what has passed; true where rows came.
  bool Refresh();
  void SetFilter(observe::TrafficFilter filter);
  void Clear();

 private:
  observe::TrafficList& list_;
};

/// Every request and answer between the control and the DTM manager, in words.
class CommunicationDock final : public QDockWidget {
  Q_OBJECT

 public:
  CommunicationDock(DockContext context, QWidget* parent);
  /// Once a turn: nothing while it is not to be seen.
  void Turn();
  void SaveTo(const QString& file);
  const observe::TrafficList& List() const { return list_; }

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QWidget* MakeTools();
  void MakeTables(QWidget& parent);
  void Follow();
  void ApplyFilter();
  void ShowSelected();
  void Copy();

  DockContext context_;
  observe::TrafficList list_;
  bool follows_ = true;
  TrafficModel* model_;
  QLineEdit* text_;
  QComboBox* kind_;
  QCheckBox* marked_;
  QPushButton* pause_;
  QTableView* table_;
  QTreeWidget* values_;
  QLabel* count_;
  DockMessage* message_;
};

}  // namespace htr60::desktop
