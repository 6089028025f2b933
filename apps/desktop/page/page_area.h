#pragma once

#include <QTimer>
#include <QWidget>
#include <map>
#include <vector>

#include "desktop/core.h"

class QLabel;
class QPushButton;
class QStackedWidget;

namespace htr60::desktop {

class PageBar;
class PageView;
class WaitingStrip;

/// The page area: the waiting strip, and below it the page in front or why there is none.
/// It draws what the presentation shows and hands the operator's acts to it; it decides nothing.
class PageArea final : public QWidget {
  Q_OBJECT

 public:
  PageArea(UserCntrl& control, presentation::Presentation& presented, QWidget* parent = nullptr);
  ~PageArea() override;

  /// Once a turn, with what has changed since the last, after the presentation has shown it.
  void Apply(const FormChanges& changes);
  /// Presses a button of the control as the operator does. For Write too.
  void Press(ButtonId button);

  const PageLayout* Current() const { return current_; }
  /// Title of the page in front, empty where none is.
  QString Title() const;
  /// The page in front, null where none is; for tests and for looking.
  PageView* View() const;
  PageBar& Bar() const { return *bar_; }

 Q_SIGNALS:
  /// The view's own "Open ..." was pressed.
  void ReopenPressed();
  /// The operator has said that the window closes.
  void CloseWanted();

 private:
  bool Show(const PageLayout* page);
  void ShowEmpty();

  UserCntrl& control_;
  presentation::Presentation& presented_;
  WaitingStrip* waiting_;
  PageBar* bar_ = nullptr;
  QStackedWidget* stack_;
  QWidget* empty_;
  QLabel* why_;
  QPushButton* reopen_;
  std::map<const PageLayout*, PageView*> views_;
  const PageLayout* current_ = nullptr;
};

}  // namespace htr60::desktop
