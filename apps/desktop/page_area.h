#pragma once

#include <QTimer>
#include <QWidget>
#include <map>
#include <memory>
#include <vector>

#include "desktop/core.h"
#include "desktop/field_states.h"

class QLabel;
class QStackedWidget;

namespace htr60::desktop {

class PageView;
class WaitingStrip;

/// The page area: the waiting strip, and below it the page frame shown last or the word that none is open.
/// It renders the form and hands the operator's actions to the control; it decides nothing.
class PageArea final : public QWidget {
  Q_OBJECT

 public:
  explicit PageArea(UserCntrl& control, QWidget* parent = nullptr);
  ~PageArea() override;

  /// Once a turn, with what has changed since the last.
  void Apply(const FormChanges& changes);
  /// A node has opened a page: its states begin anew. Called right after `UserCntrl::Activate`, before the turn's
  /// `Apply`; the page asks the form which page is in front now. Open buttons on the page do this themselves.
  void PageActivated();
  /// Presses a button of the control as the operator does, and takes note of what it writes. For Write too.
  void Press(ButtonId button);

  /// The first field that can be typed in, else the strip.
  void FocusFirstField();
  /// The place where Tab enters the page: the strip, else the first field.
  void FocusPage();
  /// A field or a button of the page in front; false where it is not to be seen.
  bool FocusControl(ControlId control);
  /// The first field of the visible tab in that state.
  void FocusFirst(FieldState state);

  const PageLayout* Current() const { return current_; }
  FieldStates& States() { return states_; }
  /// Title of the page in front, empty where none is.
  QString Title() const;
  /// What the layout notes of the row that has the focus, empty where nothing.
  QString NoteOfFocus() const;
  /// The page in front, null where none is; for tests and for looking.
  PageView* View() const;

 Q_SIGNALS:
  /// An open button was pressed and has led to another page; Back leads to `openButton` again.
  void Activated(htr60::ControlId openButton);
  /// Counts of the visible tab may have changed: see `FieldStates::Counts`.
  void CountsChanged();
  /// A tab or page was left with texts that were not written: a sentence for the message line.
  void LeftWithoutWriting(const QString& sentence);

 private:
  struct Place {
    const PageLayout* page = nullptr;
    QString title;
    int tab = -1;
    int innerTab = -1;
    friend bool operator==(const Place&, const Place&) = default;
  };

  const PageLayout* InFront() const;
  bool Show(const PageLayout* page);
  Place PlaceNow(const PageLayout* page) const;
  void NotePlace();
  void ShowStates();
  void Opened(const PageLayout& page);
  void ChangeTab(int step);

  UserCntrl& control_;
  FieldStates states_;
  std::vector<const PageLayout*> layouts_;
  std::vector<WaitingStrip*> strips_;
  QStackedWidget* stack_;
  QLabel* none_;
  std::map<const PageLayout*, PageView*> views_;
  const PageLayout* current_ = nullptr;
  Place place_;
  QTimer deadline_;
};

}  // namespace htr60::desktop
