#pragma once

#include <array>
#include <bitset>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "presentation/field_state.h"
#include "shell/user_cntrl.h"

namespace htr60::presentation {

/// States of all fields of the kinds edit, num and list that the layouts place. It sees what a view sees: the
/// operator's edits and presses, how often the program has set a field, the requests that went out,
/// `TimerReadAfterWrite`. The control knows nothing of it. Times are milliseconds of any clock that does not run
/// backwards.
class FieldStates {
 public:
  using Clock = std::function<std::int64_t()>;

  FieldStates(UserCntrl& control, Clock now);

  // What the operator does; each hands it on to the control.

  void Type(TextId field, std::string_view text);
  void Pick(ChoiceId list, std::size_t row);
  /// A write that leaves while the press is handled takes with it the texts that were edited in its reach when the
  /// press began. `page`: the one in front, or none.
  void Press(ButtonId button, const PageLayout* page);
  /// Puts the texts not written on the visible tab of `page` back to the program's last; gives how many.
  int Revert(const PageLayout& page);
  int Revertable(const PageLayout& page) const;
  /// Puts the operator's text back over which the program has set another. False where there is none.
  bool PutBack(ControlId field);

  /// A node or an open button has opened `page`; `again`: the same node as before, so what comes is compared with what
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
  /// When to come back, or earlier.
  std::optional<std::int64_t> NextDeadline() const;
  std::int64_t Now() const { return now_(); }

  /// As read where the control is no such field, or has no state.
  FieldState Of(ControlId field) const;
  /// "not written", "device: 12.499, sent: 12.5", ...; empty where there is nothing to say.
  std::string Words(ControlId field) const;
  /// Whether the field has a state at all.
  bool HasState(ControlId field) const;
  /// The program has set it since the page was opened, or the operator has typed into it.
  bool ReadOrEdited(ControlId field) const;
  /// Whether the press of a write button sends that field, hidden or not.
  bool IsSentBy(ButtonId button, const PageLayout& page, ControlId field) const;
  /// A part of the line that says who the instrument is, as the program set it last; empty where it was not read.
  std::string IdentityText(IdentityItem item) const;
  /// The operator's text that was not written when the program set another, while it can be put back.
  std::optional<std::string> ReplacedText(ControlId field) const;

  /// "1 differs, 2 confirmed", "all confirmed", or empty: the fields of the page that can be seen.
  std::string Footer(const PageLayout& page) const;
  /// The fields of the page that the footer counts, tab by tab in reading order.
  std::vector<ControlId> Counted(const PageLayout& page) const;
  /// Fields with an unwritten text on `page`, by the tab on which they stand, -1: on none.
  std::vector<int> UnwrittenTabs(const PageLayout& page) const;
  /// All fields with a text not written, on every page, hidden and disabled ones included.
  std::vector<ControlId> Unwritten() const;
  /// Whether the visible tab has a text that is not written.
  bool AnyUnwritten(const PageLayout& page) const;

  /// Rises whenever a state or its words may have changed.
  std::uint32_t Revision() const { return revision_; }

 private:
  // What only a field that is not at rest has: most are.
  struct Past {
    std::optional<std::string> program;  // what the program set last, where it is not the text
    std::string other;                   // the text sent, or the one replaced
    std::string loss;                    // of a number that the code cannot hold
    std::int64_t until = 0;              // end of the state by time, 0: none
    std::int64_t windowEnd = 0;          // sets up to then give the verdict, 0: the re-read is still to be sent
  };
  struct Field {
    ControlId control;
    const PageLayout* page = nullptr;
    const LayoutGroup* group = nullptr;
    RowKind kind = RowKind::kEdit;
    RowRole role = RowRole::kNone;
    bool live = false;
    bool read = false;      // set by the program since the page was opened
    bool edited = false;    // by the operator since the program's last set
    bool compares = false;  // the page was opened again by its own node
    FieldState state = FieldState::kNotRead;
    std::uint32_t sets = 0;
    std::string text;            // last seen on the form
    std::unique_ptr<Past> past;  // none at rest
  };

  static constexpr std::int64_t kNever = std::numeric_limits<std::int64_t>::max();

  void Add(const LayoutRow& row, RowKind kind, ControlId control, const LayoutGroup& group, const PageLayout& page);
  Field* Find(ControlId control);
  const Field* Find(ControlId control) const;
  std::span<const Field> On(const PageLayout& page) const;
  std::span<Field> On(const PageLayout& page);
  void Await(const Field& field);
  static Past& PastOf(Field& field);
  static const Past& Recalled(const Field& field);
  static const std::string& Program(const Field& field);
  static void Replace(Field& field, std::string_view text);
  std::uint32_t SetsOf(ControlId control) const;
  void Apply(Field& field, FieldEvent event);
  void Look(Field& field);
  void Edited(Field& field);
  void ProgramSet(Field& field, const std::string& before);
  FieldEvent EventOfSet(Field& field, const std::string& before);
  FieldEvent VerdictOf(Field& field) const;
  bool IsSame(const Field& field, std::string_view a, std::string_view b) const;
  bool Covers(ButtonId button, const PageLayout& page, const Field& field) const;
  bool Shown(const Field& field) const;
  bool IsRevertable(const Field& field) const;
  void Put(Field& field, const std::string& text);
  std::string Cause(const Field& field) const;

  UserCntrl& control_;
  Clock now_;
  struct Stretch {
    const PageLayout* page;
    std::size_t first;
    std::size_t count;
  };

  std::vector<Field> fields_;            // page by page
  std::vector<Stretch> pages_;           // where the fields of each page stand
  std::vector<int> fieldOf_;             // by ordinal, -1: none
  std::array<ControlId, 7> identity_{};  // by item
  ControlId tableVerdict_;
  std::uint32_t revision_ = 0;
  std::int64_t deadline_ = kNever;       // nothing ends by time before it
  std::vector<std::uint32_t> nodeSets_;  // by ordinal, as counted when the node was activated
  std::bitset<kControlCount> typed_;     // since then
  bool acting_ = false;                  // the operator's pick is under way: what it empties keeps its last text
  bool rereadAwaited_ = false;
  const PageLayout* rereadPage_ = nullptr;  // the page that was written
  std::int64_t rereadEnd_ = 0;              // what is set there up to then is its re-read
};

/// The tab of `page` in front, and that of its inner strip; -1 where there is none.
struct TabsInFront {
  int tab = -1;
  int innerTab = -1;
  TabsId inner;
};
TabsInFront TabsOf(Form& form, const PageLayout& page);

/// `group` stands on that tab and inner tab, or beside or without strips.
constexpr bool StandsOn(const LayoutGroup& group, const TabsInFront& tabs) {
  return (group.tab < 0 || group.tab == tabs.tab) && (group.innerTab < 0 || group.innerTab == tabs.innerTab);
}

}  // namespace htr60::presentation
