#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "presentation/announcer.h"
#include "presentation/data_line.h"
#include "presentation/field_help.h"
#include "presentation/field_states.h"
#include "presentation/health.h"
#include "presentation/keyboard.h"
#include "presentation/paste.h"
#include "presentation/screen.h"
#include "presentation/tree_marks.h"

namespace htr60::presentation {

/// What the presentation needs from its host.
struct Surroundings {
  FieldStates::Clock now;         ///< milliseconds, of a clock that does not run backwards
  DataLine::TimeOfDay timeOfDay;  ///< "hh:mm:ss" of such a time
  std::string simulated{};        ///< "SIMULATED" or "SIMULATED: tank"; empty for an instrument
  /// What is put on, or wrong with, what is simulated: stands behind the name, "2 faults"; may be none.
  std::function<std::string()> active{};
  /// What is shown has changed though the form may not have: a turn is due. May be none.
  std::function<void()> changed{};
};

/// What every view shows of one control and how it reacts. It knows pages by their layouts and no control but those of
/// the frame itself. A view hands it the operator's acts, asks once a turn what changed, and draws.
class Presentation {
 public:
  Presentation(UserCntrl& control, Surroundings surroundings);

  // The operator's acts. Each goes on to the control.

  /// A node of the tree by its text; `position` is the node's, or 0 where the tree has no such node.
  void Activate(std::string_view text, int position);
  /// The node activated last once more; before any the page of the start.
  void ActivateAgain();
  /// The view's own "Open ..." of a page that could not be read. False where there is none.
  bool Reopen();
  void Press(ButtonId button);
  void ClickTab(TabsId strip, int index);
  void Type(TextId field, std::string_view text);
  void Pick(ChoiceId list, std::size_t row);
  /// Puts the texts not written on the visible tab back; gives how many.
  int Revert();
  /// Text from the clipboard. True where it was taken as columns for a table of points, perhaps after a question; else
  /// the field takes it as it takes any text.
  bool PasteColumns(TextId field, std::string_view text);
  /// Puts back the operator's text that the program has replaced. False where there is none.
  bool PutBack(ControlId field);
  /// The node is activated on whose page the health was read. False where nothing was read.
  bool OpenHealth();
  /// The operator closes the window. False where texts are not written: a bar asks, and closing once more closes.
  bool WantsToClose();
  /// Presses a button of the bar that stands. True where the window closes now.
  bool AnswerBar(std::size_t button);
  /// The pointer brings the focus to a control.
  void Focus(ControlId control) { keyboard_.Came(control); }
  Keyboard& Keys() { return keyboard_; }

  /// Once a turn, after the handlers have ended: takes what has changed. Gives the changes for the view.
  FormChanges Turn();

  /// What is to be seen now. Stands until the next call.
  const Screen& Show();
  const Screen& Shown() const { return screen_; }
  /// The row of a field as shown last; null where it was not to be seen.
  const ScreenRow* Row(ControlId control) const;
  /// The figure of the page in front. Stands until the next act or turn.
  const Figure& Drawing();
  /// What a field offers in its menu; empty where it is not to be seen.
  std::vector<FieldMenuItem> Menu(ControlId field) const;
  /// What the host adds to it; `additions` may be none.
  void AddToMenus(std::function<std::vector<FieldAddition>(ControlId)> additions) { additions_ = std::move(additions); }
  std::vector<FieldAddition> Additions(ControlId field) const {
    return additions_ ? additions_(field) : std::vector<FieldAddition>();
  }
  /// When the health was read, and where; empty where nothing was.
  std::string HealthTip() const;
  TreeMarks Marks() const;
  /// What there is to tell assistive technology since the last call, in order.
  std::vector<std::string> TakeAnnounced() { return announcer_.Take(); }
  /// When time alone changes what is shown; none where it does not.
  std::optional<std::int64_t> NextDeadline() const;
  std::int64_t Now() const { return surroundings_.now(); }
  /// The values of the page in front are there, and nothing is under way.
  bool Settled() const;
  /// The next field that the footer counts, after the one given last, brought to the front, with the focus; none where
  /// there is none.
  ControlId StepCounted();

  /// The page in front, null where none is.
  const PageLayout* Page() const { return page_; }
  /// What can take the focus depends on.
  Sight InSight();
  FieldStates& States() { return states_; }

 private:
  // Why a page area is empty.
  struct Activation {
    std::string node;
    std::string pageName;  // as its row says; empty: the node's text
    bool refused = false;  // the device was disconnected
    bool hasPage = true;
    bool offered = false;  // it is connected since: "Open ..." stands there
  };
  // A page that an act has left.
  struct Left {
    const PageLayout* page = nullptr;
    std::string title;
  };

  const PageLayout* InFront();
  std::string TitleOf(const PageLayout* page) const;
  void Opened(const PageLayout* page, bool again);
  void NotePage();
  void TakeTraffic();
  void SayLeft(const PageLayout& page, const std::string& title);
  void SayNothingSent(ButtonId button);
  void Say(std::string sentence);
  std::string WhyEmpty() const;
  bool CanReopen() const;
  std::string StartNode() const;
  std::string CurrentNode() const;
  void ActivateNode(const std::string& node);
  void Edited(ControlId field);
  void Changed() const {
    if (surroundings_.changed) surroundings_.changed();
  }
  void FillPasted();
  std::optional<ScreenBar> Bar() const;
  int PollingInterval() const;
  void AddStrip(Screen& screen);
  void AddPage(Screen& screen);
  void AddFrameButtons(Screen& screen);
  bool IsOld() const;
  Figure MakeFigure();
  std::optional<ScreenFigure> FigureOf();
  bool BearsHint(ControlId control, double number) const;

  UserCntrl& control_;
  Surroundings surroundings_;
  FieldStates states_;
  DataLine line_;
  Health health_;
  std::vector<const PageLayout*> layouts_;
  const PageLayout* page_ = nullptr;
  std::string title_;
  Keyboard keyboard_;
  ControlId counted_;  // the field that a press of the footer led to last
  Activation activation_;
  std::string message_;
  std::int64_t messageEnd_ = 0;
  bool acting_ = false;  // an act tells of the page that it opens
  Left left_;
  Paste paste_;
  bool asksToClose_ = false;
  EditedNodes editedNodes_;
  std::function<std::vector<FieldAddition>(ControlId)> additions_;
  Announcer announcer_;

  // What is shown, and whether it still holds.
  Screen screen_;
  bool touched_ = true;
  std::string shownState_;
  std::string shownActive_;
  std::uint32_t shownRevision_ = 0;
  std::optional<std::int64_t> shownUntil_;
  Figure figure_;
  bool figureOld_ = true;
  ControlId figureFocus_;  // the field whose point is ringed there
};

}  // namespace htr60::presentation
