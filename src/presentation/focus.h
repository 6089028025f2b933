#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "form/layout.h"
#include "presentation/keys.h"
#include "shell/user_cntrl.h"

namespace htr60::presentation {

/// Where the keyboard may be: a control of the form, strips and the frame's own buttons included, or a part of the
/// view.
struct Spot {
  enum class Part : std::uint8_t {
    kElsewhere,
    kTree,
    kControl,
    kFooter,  ///< the line of the action area
    kRevert,
    kReopen,  ///< the view's own "Open ..."
    kBar,     ///< an answer of the bar
  };
  Part part = Part::kElsewhere;
  ControlId control{};
  std::uint8_t answer = 0;  ///< which of the bar's buttons

  constexpr Spot() = default;
  // NOLINTBEGIN(google-explicit-constructor): a control is a spot.
  constexpr Spot(Part which) : part(which) {}
  constexpr Spot(ControlId which) : part(which ? Part::kControl : Part::kElsewhere), control(which) {}
  // NOLINTEND(google-explicit-constructor)
  static constexpr Spot BarButton(std::size_t number) {
    Spot spot(Part::kBar);
    spot.answer = static_cast<std::uint8_t>(number);
    return spot;
  }
  friend constexpr bool operator==(const Spot&, const Spot&) = default;
};

enum class Region : std::uint8_t { kTree, kPage, kActions };
inline constexpr int kRegions = 3;

/// Something that can take the focus now.
struct Stop {
  Spot spot;
  Region region = Region::kTree;
  Place place = Place::kTree;
  const LayoutGroup* group = nullptr;
  const LayoutRow* row = nullptr;
};

/// What stands in the view at an instant.
struct Sight {
  UserCntrl& control;
  const PageLayout* page = nullptr;
  std::size_t answers = 0;  ///< buttons of the bar
  bool reopens = false;     ///< the view's own "Open ..." stands there
  bool counted = false;     ///< the line of the action area says something
  bool revertable = false;  ///< there is something to put back
};

/// All stops in the order of Tab: tree, bar, strips, rows in reading order, Write, Save, Back, the action area's line,
/// Revert. What is hidden or disabled is none. Every label stands there, though Tab stops once in a group of them.
std::vector<Stop> StopsOf(const Sight& sight);

/// Where the keyboard's focus is, and where an act leads it. A view puts its own focus there after each turn.
class Focus {
 public:
  explicit Focus(UserCntrl& control) : control_(control) {}

  Spot At() const { return at_; }
  /// The row and place of the focus among the stops; null where it is none of them.
  const Stop* Among(const std::vector<Stop>& stops) const;
  /// The operator brings the focus there by pointer: no text is selected.
  void Came(Spot spot);
  /// The keyboard or the program brings it there: a text is selected.
  void GoTo(Spot spot);
  /// Once after it was asked for: the text of the field at the focus is to be selected.
  bool TakeSelect() { return std::exchange(select_, false); }
  /// No turn moves it: it stands where nothing goes out of sight, and no act has left anything.
  bool Rests() const { return !Moved() && (at_ == Spot::Part::kTree || at_ == Spot()); }
  /// It came here, or is to go somewhere, since the last turn.
  bool Moved() const { return moved_ || pending_ != Pending::kNone; }

  /// The operator has edited that control.
  void Edited(ControlId control) { edited_ = edited_ || at_ == Spot(control); }
  /// What Esc brings back: the text at the arrival of the focus, or a later one of the program before any edit.
  const std::string& TextBefore() const { return before_; }
  /// It was brought back: nothing is edited, and the text is selected.
  void PutBack();

  // What an act leads to; settled with the page that it brings.

  void NodeActivated();
  void PageOpened(ControlId opener);
  void PageReopened();
  void Returned();
  /// A bar has come up: the focus goes to its first answer, and back when it goes.
  void BarAsks();

  /// Once a turn: carries out what the acts have left, leaves what is no longer there, selects anew what was set.
  void Turn(const std::vector<Stop>& stops, const PageLayout* page);

  // Steps; each stays where it is when there is nothing to step to.

  void Step(const std::vector<Stop>& stops, int step);
  void StepRegion(const std::vector<Stop>& stops, int step);
  void NextField(const std::vector<Stop>& stops);
  void StepLabel(const std::vector<Stop>& stops, int step);
  /// To the first field of a group, else to its first button.
  void EnterGroup(const std::vector<Stop>& stops, const LayoutGroup* group);

 private:
  enum class Pending : std::uint8_t { kNone, kTree, kFirstField, kOpener, kBar };

  void Arrive(Spot spot);
  void NoteSet();
  bool IsStop(const std::vector<Stop>& stops, const Stop& stop) const;
  void Settle(const std::vector<Stop>& stops, const PageLayout* page, bool lost);
  void ToPageStart(const std::vector<Stop>& stops);
  void ToInnermostStrip(const std::vector<Stop>& stops);

  UserCntrl& control_;
  Spot at_ = Spot::Part::kTree;
  bool moved_ = false;
  bool select_ = false;
  bool edited_ = false;  // since the focus came
  std::string before_;
  std::string text_;        // last seen, of what counts no sets
  std::uint32_t sets_ = 0;  // last seen
  Pending pending_ = Pending::kNone;
  std::vector<ControlId> openers_;  // the buttons that led here, for Back
  ControlId opener_;
  Spot beforeBar_;
  std::vector<std::pair<const LayoutGroup*, ControlId>> labels_;  // where the focus was in a group of labels
};

}  // namespace htr60::presentation
