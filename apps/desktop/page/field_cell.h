#pragma once

#include <QMenu>
#include <QObject>
#include <QString>
#include <bitset>
#include <memory>

#include "desktop/core.h"
#include "desktop/figure/shapes.h"
#include "desktop/page/choice_field.h"
#include "desktop/page/field_widgets.h"

namespace htr60::desktop {

using ControlSet = std::bitset<kControlCount>;

/// What the pages of one control share.
struct PageContext {
  UserCntrl& control;
  presentation::Presentation& presented;
};

/// One control at its place in a row: its shape and its widget, whatever the kind.
class FieldCell final : public QObject {
  Q_OBJECT

 public:
  /// `tight`: on a narrow page several columns stand beside each other, so numbers give way too.
  FieldCell(PageContext context, const LayoutRow& row, bool second, int numberWidth, bool tight, QWidget* parent);

  ControlId Control() const { return control_; }
  RowKind Kind() const { return kind_; }
  const LayoutRow& Row() const { return row_; }
  QWidget* Widget() const { return widget_; }
  ShapeSlot* Slot() const { return shape_; }  ///< none before buttons
  bool IsButton() const { return kind_ == RowKind::kOpen || kind_ == RowKind::kWrite; }
  bool CanBeTypedIn() const;
  bool Shows() const;  ///< the form shows the control itself

  /// Takes text, rows and flags from the form.
  void Refresh();
  /// Takes shape and marker.
  void RefreshState();
  /// Takes the size of its text from `page`, the font around it.
  void FollowFont(const QFont& page);
  void SetCaption(const QString& caption);
  void SetMnemonic(char letter);

  QString Words() const { return words_; }
  /// The name of its state, for where the words do not fit.
  QString Hint() const { return hint_; }
  QString ToolTip() const;
  /// What can be done with the field; none for buttons.
  std::unique_ptr<QMenu> MakeMenu();
  void SetWordsFit(std::function<bool()> fit) { wordsFit_ = std::move(fit); }

 Q_SIGNALS:
  void Pressed(htr60::ButtonId button);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MakeEntry(FieldWidth width, QWidget* parent);
  void MakeChoice(FieldWidth width, QWidget* parent);
  void MakeButton(QWidget* parent);
  QString Text() const;
  void SetPale(bool pale);
  void ShowPale();
  void Run(presentation::FieldAct act);
  bool ShowMenu(QPoint at);
  /// The row's role is that of its first control.
  RowRole Role() const { return control_ == row_.control ? row_.role : RowRole::kNone; }
  bool IsPassword() const { return Role() == RowRole::kAccessCode; }

  PageContext context_;
  const LayoutRow& row_;
  RowKind kind_;
  ControlId control_;
  QWidget* widget_ = nullptr;
  ShapeSlot* shape_ = nullptr;
  QString caption_;
  bool described_ = false;
  QString words_;
  QString hint_;
  bool pale_ = false;
  char mnemonic_ = '\0';
  std::function<bool()> wordsFit_;
};

}  // namespace htr60::desktop
