#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "presentation/focus.h"
#include "presentation/keys.h"
#include "presentation/list_search.h"
#include "presentation/screen.h"

namespace htr60::presentation {

class Presentation;

/// What a key leaves to the view.
struct KeyOutcome {
  bool taken = false;               ///< else the key is the toolkit's own
  bool help = false;                ///< shows `Keyboard::Help`
  bool closes = false;              ///< the window closes now
  bool activatesNode = false;       ///< of the node at the tree's cursor, which is the toolkit's
  std::optional<std::string> copy;  ///< goes to the clipboard, unless a part of the field's text is selected
};

/// Title of a page, its purpose, and what is noted of the field at the focus.
struct HelpText {
  std::string title;
  std::vector<std::string> lines;
};

/// The operator's keyboard: what keys do, where the focus is, and the list that stands open. A view translates its key
/// events, puts its focus where `At` says, and draws the open list. It changes what is shown at the next turn.
class Keyboard {
 public:
  Keyboard(Presentation& presented, UserCntrl& control) : presented_(presented), control_(control), focus_(control) {}

  /// What the key would do where the focus is.
  KeyAct Means(const KeyPress& press) const;
  KeyOutcome Press(const KeyPress& press);
  /// Typing for a host without text fields: into the search line, or the field at the focus, over the whole text while
  /// that is selected, else at its end. False where nothing can be typed into.
  bool Edit(std::string_view letters);

  Spot At() const { return focus_.At(); }
  /// The operator brings the focus there by pointer.
  void Came(Spot spot) { focus_.Came(spot); }
  void GoTo(Spot spot) { focus_.GoTo(spot); }
  /// Once a turn: whether the text of the field at the focus is to be selected.
  bool TakeSelect() { return focus_.TakeSelect(); }
  HelpText Help() const;

  // The open list.

  const std::shared_ptr<ListSearch>& Opened() const { return list_; }
  ControlId OpenedOf() const { return listOf_; }
  /// Opens a list that is enabled and has rows.
  void Open(ControlId list);
  void Search(std::string_view text);
  /// Takes a line; one that is no row is not taken, and the list stays open.
  void Take(int line);
  void Close();

  // What the presentation tells.

  void NodeActivated() { focus_.NodeActivated(); }
  void PageOpened(ControlId opener) { focus_.PageOpened(opener); }
  void PageReopened() { focus_.PageReopened(); }
  void Returned() { focus_.Returned(); }
  void BarAsks() { focus_.BarAsks(); }
  void Edited(ControlId control) { focus_.Edited(control); }
  /// Once a turn, after the page in front was noted. `changed`: what is shown may have.
  void Turn(bool changed);

 private:
  std::vector<Stop> Stops() const;
  Place PlaceNow(const std::vector<Stop>& stops) const;
  bool MoveFocus(KeyAct act, const std::vector<Stop>& stops);
  bool UseList(KeyAct act, const KeyPress& press);
  bool ActOnPage(KeyAct act, const std::vector<Stop>& stops);
  bool PressAt(const std::vector<Stop>& stops);
  void PressIfEnabled(ButtonId button);
  bool PressMnemonic(const std::string& letter, const std::vector<Stop>& stops);
  void PutBack(const std::vector<Stop>& stops);
  void StepTab(int step);
  void StepTabHere(int step);

  Presentation& presented_;
  UserCntrl& control_;
  Focus focus_;
  std::shared_ptr<ListSearch> list_;
  ControlId listOf_;
};

}  // namespace htr60::presentation
