#pragma once

#include <QAbstractListModel>
#include <QComboBox>
#include <QFrame>
#include <QLineEdit>
#include <QListView>
#include <QPointer>
#include <span>
#include <string_view>
#include <vector>

#include "desktop/page/field_widgets.h"

namespace htr60::desktop {

/// Rows of an open list: those that contain the search, exact matches first, else in their order; doubled rows stay.
/// A text that is none of the rows stands above them and cannot be taken.
class ChoiceRows final : public QAbstractListModel {
  Q_OBJECT

 public:
  ChoiceRows(QStringList rows, const QString& shown, QObject* parent);
  void Search(const QString& text);
  /// Number of the list's row at a line, -1 where the line is no row.
  int RowAt(int line) const;
  /// Line to begin at: the row shown, or the first that was found; -1 for none.
  int FirstLine(const QString& shown) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
  int Extra() const { return now_.isEmpty() ? 0 : 1; }
  QStringList rows_;
  QString now_;
  std::vector<int> found_;
  bool searching_ = false;
};

/// The open list, with a search line where it is long.
class ChoicePopup final : public QFrame {
  Q_OBJECT

 public:
  ChoicePopup(QStringList rows, const QString& shown, bool search, QWidget* field);
  void Open();
  void Type(const QString& text);
  QLineEdit* SearchLine() const { return search_; }
  QListView* List() const { return list_; }

 Q_SIGNALS:
  void Taken(int row);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Searched();
  void Take(const QModelIndex& index);
  bool Key(QKeyEvent& event, bool inSearch);

  QString shown_;
  ChoiceRows* model_;
  QLineEdit* search_ = nullptr;
  QListView* list_;
};

/// A choice list: shows any text, opens on the form's rows. It changes by a pick alone, never by wheel or letter.
class ChoiceField final : public QComboBox {
  Q_OBJECT

 public:
  ChoiceField(FieldWidth width, QWidget* parent);
  void Show(const QString& text, std::span<const std::string_view> rows);
  bool CutOff() const;
  /// The list while it is open.
  ChoicePopup* Popup() const { return popup_; }

  void showPopup() override;
  void hidePopup() override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 Q_SIGNALS:
  void Picked(int row);
  void Entered();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void OpenWith(const QString& letters);
  void MakePopup(const QString& letters);

  FieldWidth width_;
  std::span<const std::string_view> rows_;
  QPointer<ChoicePopup> popup_;
};

}  // namespace htr60::desktop
