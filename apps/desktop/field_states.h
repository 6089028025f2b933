#pragma once

#include <bitset>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "desktop/core.h"

namespace htr60::desktop {

/// What is known of the text in a field that the operator can change.
enum class FieldState : std::uint8_t {
  kAsRead,       ///< the program's text: nothing to say
  kNotRead,      ///< the program has not set it since the page was opened
  kNotWritten,   ///< the operator's text, not the program's last
  kSent,         ///< a write left with it
  kConfirmed,    ///< the re-read after the write gave the same
  kDiffers,      ///< the re-read gave something else
  kReplaced,     ///< the program set another text over one not written
  kChanged,      ///< a re-read gave another text than before
  kNotReadBack,  ///< no re-read came after the write
  kDeviceShows,  ///< a command's re-read: no verdict
};

struct StateCounts {
  int notWritten = 0;
  int sent = 0;
  int confirmed = 0;
  int unconfirmed = 0;  ///< the device holds something else, or no re-read has come
};

/// States of all fields of the kinds edit, num and list that the layouts place. It sees what a view sees: the
/// operator's edits and presses, how often the program has set a field, status panel 4 and `TimerReadAfterWrite`. The
/// control knows nothing of it. No widget; times are milliseconds of any clock that does not run backwards.
class FieldStates {
 public:
  using Clock = std::function<std::int64_t()>;

  FieldStates(UserCntrl& control, Clock now);

  // What the operator does; each hands it on to the control.

  void Type(TextId field, std::string_view text);
  void Pick(ChoiceId list, std::size_t row);
  /// A write that leaves while the press is handled takes the edited fields of its reach with it.
  void Press(ButtonId button, const PageLayout* page);

  /// A node or an open button has opened `page`; `again`: it was in front before, so what comes is compared with what
  /// stands there.
  void PageOpened(const PageLayout& page, bool again);
  /// A node was activated: what was set or typed before does not count for figures.
  void NodeActivated();
  bool SetOrTypedSinceNode(ControlId control) const;
  /// The page went out of sight.
  void PageLeft(const PageLayout& page);

  /// Once a turn, after the handlers have ended.
  void Turn(const FormChanges& changes);
  /// What time alone ends; `NextDeadline` says when to come back.
  void Tick();
  std::optional<std::int64_t> NextDeadline() const;
  std::int64_t Now() const { return now_(); }

  FieldState Of(ControlId field) const;
  /// "not written", "device: 12.499, sent: 12.5", ...; empty where there is nothing to say.
  std::string Words(ControlId field) const;
  /// The program has set it since the page was opened, or the operator has typed into it.
  bool ReadOrEdited(ControlId field) const;

  /// Fields of the visible tab that are themselves to be seen and enabled.
  StateCounts Counts(const PageLayout& page) const;
  /// The first of them in that state, in reading order.
  ControlId First(const PageLayout& page, FieldState state) const;
  /// Fields with an unwritten text on one tab, whatever tab is in front.
  int Unwritten(const PageLayout& page, int tab, int innerTab) const;

  /// Fields whose state or words may have changed since the last call.
  std::vector<ControlId> TakeChanged();

 private:
  struct Field {
    ControlId control;
    const PageLayout* page = nullptr;
    const LayoutGroup* group = nullptr;
    bool list = false;
    bool live = false;
    bool command = false;
    bool stateless = false;
    bool read = false;      // set by the program since the page was opened
    bool edited = false;    // by the operator since the program's last set
    bool compares = false;  // the page was opened while it was in front
    bool dirty = false;
    FieldState state = FieldState::kNotRead;
    std::uint32_t sets = 0;
    std::string text;            // last seen on the form
    std::string program;         // what the program set last
    std::string other;           // the text sent, or the one replaced
    std::int64_t until = 0;      // end of the state by time, 0: none
    std::int64_t windowEnd = 0;  // sets up to then give the verdict, 0: the re-read is still to be sent
  };

  void Add(const LayoutRow& row, RowKind kind, ControlId control, const LayoutGroup& group, const PageLayout& page);
  Field* Find(ControlId control);
  const Field* Find(ControlId control) const;
  std::uint32_t SetsOf(ControlId control) const;
  void Enter(Field& field, FieldState state, std::int64_t lasts = 0);
  void Rest(Field& field);
  void Look(Field& field);
  void Edited(Field& field);
  void ProgramSet(Field& field, const std::string& before);
  void Verdict(Field& field);
  void Compare(Field& field, const std::string& before);
  void TakeWritten(ButtonId button, const PageLayout& page);
  bool Shown(const Field& field) const;
  bool SameValue(const Field& field, std::string_view device, std::string_view sent) const;

  UserCntrl& control_;
  Clock now_;
  std::vector<Field> fields_;
  std::vector<int> fieldOf_;  // by ordinal, -1: none
  std::vector<ControlId> changed_;
  std::vector<std::uint32_t> nodeSets_;  // by ordinal, as counted when the node was activated
  std::bitset<kControlCount> typed_;     // since then
  bool rereadAwaited_ = false;
};

/// The tab of `page` in front, and that of its inner strip; -1 where there is none.
struct TabsInFront {
  int tab = -1;
  int innerTab = -1;
  TabsId inner;
};
TabsInFront TabsOf(Form& form, const PageLayout& page);

/// `group` stands on that tab and inner tab, or beside or without strips.
constexpr bool StandsOn(const LayoutGroup& group, int tab, int innerTab) {
  return (group.tab < 0 || group.tab == tab) && (group.innerTab < 0 || group.innerTab == innerTab);
}

}  // namespace htr60::desktop
