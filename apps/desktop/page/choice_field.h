#pragma once

#include <QAbstractListModel>
#include <QComboBox>
#include <QFrame>
#include <QLineEdit>
#include <QListView>
#include <QPointer>
#include <memory>

#include "desktop/page/field_widgets.h"

namespace htr60::desktop {

/// Lines of an open list, for Qt to show.
class ChoiceLines final : public QAbstractListModel {
  Q_OBJECT

 public:
  ChoiceLines(std::shared_ptr<presentation::ListSearch> list, QObject* parent);
  /// Takes what was searched since.
  void Follow();

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  std::shared_ptr<presentation::ListSearch> list_;
  int generation_;
};

/// The open list, with a search line where it is long. It draws; keys are the presentation's.
class ChoicePopup final : public QFrame {
  Q_OBJECT

 public:
  ChoicePopup(presentation::Keyboard& keys, QWidget* field);
  void Open();
  /// Takes the lines and the one that Enter would take.
  void Follow();
  bool Shows(const std::shared_ptr<presentation::ListSearch>& list) const { return list == shown_; }
  QLineEdit* SearchLine() const { return search_; }
  QListView* List() const { return list_; }

 protected:
  void hideEvent(QHideEvent* event) override;

 private:
  presentation::Keyboard& keys_;
  std::shared_ptr<presentation::ListSearch> shown_;
  ChoiceLines* model_;
  QLineEdit* search_ = nullptr;
  QListView* list_;
  bool following_ = false;
};

/// A choice list: shows any text, opens on the form's rows. It changes by a pick alone, never by the wheel.
class ChoiceField final : public QComboBox {
  Q_OBJECT

 public:
  ChoiceField(presentation::Keyboard& keys, ControlId control, FieldWidth width, QWidget* parent);
  void Show(const QString& text);
  bool CutOff() const;
  /// The list while it is open.
  ChoicePopup* Popup() const { return popup_; }
  /// Opens, draws or closes its list as the presentation has it.
  void Follow();

  void showPopup() override;
  void hidePopup() override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  presentation::Keyboard& keys_;
  ControlId control_;
  FieldWidth width_;
  QPointer<ChoicePopup> popup_;
};

}  // namespace htr60::desktop
