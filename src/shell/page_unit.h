#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "form/control_id.h"
#include "form/layout.h"
#include "form/widgets.h"

namespace htr60 {

class Answer;
class Operands;
class UserCntrl;

/// What a row calls: a function, or a function and the number of the twin. Default-made it does nothing.
template <class Result, class... Args>
class Call {
 public:
  using Plain = Result (*)(UserCntrl&, Args...);
  using Twin = Result (*)(UserCntrl&, int, Args...);

  constexpr Call() = default;
  // NOLINTBEGIN(google-explicit-constructor): rows name functions as they stand.
  constexpr Call(Plain function) : plain_(function) {}
  constexpr Call(Twin function, int twin) : twin_(function), number_(twin) {}
  // NOLINTEND(google-explicit-constructor)

  constexpr explicit operator bool() const { return plain_ != nullptr || twin_ != nullptr; }
  Result operator()(UserCntrl& c, Args... args) const {
    return plain_ != nullptr ? plain_(c, args...) : twin_(c, number_, args...);
  }

 private:
  Plain plain_ = nullptr;
  Twin twin_ = nullptr;
  int number_ = 0;
};

/// A set of names of pages or sub-pages, compared exactly.
class NameSet {
 public:
  template <class... Names>
  // NOLINTNEXTLINE(google-explicit-constructor): a row names one page or a braced list of pages.
  constexpr NameSet(Names... names) : names_{std::string_view(names)...}, count_(sizeof...(names)) {}

  constexpr bool Has(std::string_view name) const {
    for (std::size_t i = 0; i < count_; ++i) {
      if (names_[i] == name) return true;
    }
    return false;
  }
  constexpr std::size_t Count() const { return count_; }
  constexpr std::string_view operator[](std::size_t i) const { return names_[i]; }

 private:
  std::array<std::string_view, 6> names_{};
  std::size_t count_ = 0;
};

struct AnySubPage {};
inline constexpr AnySubPage kAnySubPage{};

/// Sub-pages of a row: any, or a set. "Any" is a thing of its own, for the empty name is a name too.
class SubPages {
 public:
  // NOLINTBEGIN(google-explicit-constructor)
  constexpr SubPages(AnySubPage) : any_(true) {}
  template <class... Names>
  constexpr SubPages(const char* first, Names... names) : set_(first, names...) {}
  // NOLINTEND(google-explicit-constructor)

  constexpr bool Has(std::string_view name) const { return any_ || set_.Has(name); }
  constexpr bool Any() const { return any_; }
  constexpr const NameSet& Set() const { return set_; }

 private:
  bool any_ = false;
  NameSet set_{};
};

enum class ButtonState : std::uint8_t { kUnchanged, kEnabled, kDisabled };

/// An answer by its response code: the read's code times 100. A code without a handler does nothing.
struct AnswerRow {
  int code;
  Call<void, const Answer&> run = {};
  Call<void> unreadable = {};  ///< runs instead where the document is not well-formed
};

/// A write of `cmdWriteParameter`: the operands of a document, or none where its check failed.
struct WriteRow {
  NameSet pages{};
  SubPages subPages;
  int code;
  Call<Operands> operands;
};

/// A step of `cmdWriteParameter` on a page, before its sub-page is looked at.
struct BeforeWriteRow {
  NameSet pages{};
  Call<void> run;
};

/// The read that follows a write; `also` runs before it is sent.
struct RereadRow {
  NameSet pages{};
  SubPages subPages;
  int read;
  Call<void> also = {};
};

/// Where `cmdBack` leads. An empty page or sub-page keeps the name.
struct BackTarget {
  std::string_view page{};
  std::string_view subPage{};
  FrameId frame{};
  bool (*showIf)(UserCntrl&) = nullptr;  ///< the frame is shown only where this holds
  bool backEnabled = false;
  ButtonState write = ButtonState::kUnchanged;
};

struct BackRow {
  NameSet pages{};
  BackTarget to{};
};

struct ButtonRow {
  ButtonId button;
  Call<void> run;
};

/// The click handler of a tab strip; the argument is the tab now in front.
struct TabRow {
  TabsId strip{};
  Call<void, int> run;
};

/// The change handler of a list.
struct ListRow {
  ChoiceId list;
  Call<void> run;
};

/// Which document a polling timer sends.
enum class PollDocument : std::uint8_t {
  kFresh,   ///< all "None"
  kStored,  ///< whatever the last request left
  kOwn,     ///< `operands` of the row
};

struct PollRow {
  TimerId timer;
  int read;
  PollDocument document = PollDocument::kFresh;
  Call<Operands> operands = {};
};

/// When a choice list is filled. Each but the first is the first visit of a page or a tab.
enum class FillMoment : std::uint8_t {
  kStart,
  kSensor,
  kTrd,
  kDensity,
  kLevel,
  kAi,
  kFactory,
  kLcd,
  kMonit2,
  kMonit3,
  kMonit4,
  kCalib,
  kCalRef,
  kDensityCalib,
};

struct FillRow {
  ChoiceId list;
  FillMoment moment;
  std::span<const std::string_view> rows{};
};

/// What activating a node of the tree does while the device is not disconnected.
struct NodeRow {
  NameSet texts{};
  std::string_view page{};     ///< empty: the node's text
  std::string_view subPage{};  ///< empty: unchanged
  FrameId frame{};
  TabsId strip{};  ///< set to tab 0
  bool writeEnabled = true;
  int read = 0;  ///< 0: none
  std::int16_t UserCntrl::*firstVisit = nullptr;
  FillMoment fills = FillMoment::kStart;  ///< with `firstVisit`
  bool polls = false;
  TimerId timer = TimerId::TimerInit;  ///< with `polls`
  int interval = 0;
  bool readsOnce = false;  ///< the offline texts: read 91 once in the control's life, node expanded, Save enabled
  bool (*when)(UserCntrl&) = nullptr;      ///< the row counts only where this holds
  Call<void, std::string_view> also = {};  ///< with the node's text, after the page's names
};

/// State that one page needs, made and destroyed with the control.
struct PageState {
  void* (*make)() = nullptr;
  void (*destroy)(void*) = nullptr;
};

template <class State>
constexpr PageState StateOf() {
  return {[]() -> void* { return new State; }, [](void* state) { delete static_cast<State*>(state); }};
}

/// Everything one page family is. A unit names its tables here; the control knows them by nothing else.
struct PageUnit {
  std::span<const PageLayout> layouts{};
  std::span<const AnswerRow> answers{};
  std::span<const WriteRow> writes{};
  std::span<const BeforeWriteRow> beforeWrites{};
  std::span<const RereadRow> rereads{};
  std::span<const BackRow> backs{};
  std::span<const ButtonRow> buttons{};
  std::span<const TabRow> tabs{};
  std::span<const ListRow> lists{};
  std::span<const PollRow> polls{};
  std::span<const FillRow> fills{};
  std::span<const NodeRow> nodes{};
  std::span<const ControlId> workingFields{};  ///< controls with no place on any page
  PageState state{};
};

/// The units of a control and what navigates between them, handed in at its creation.
struct PageRegistry {
  std::span<const PageUnit* const> units{};
  void (*buildBaseTree)(UserCntrl&);
  /// The operator activates a node: its text, and its position or 0 where the tree has no such node.
  void (*onTreeNodeClick)(UserCntrl&, std::string_view text, int position);
};

}  // namespace htr60
