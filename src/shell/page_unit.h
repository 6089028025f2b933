#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

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
  int rereadMs = 2000;  ///< from the write to the re-read
};

/// A step on a page, before the row of its sub-page is looked for.
struct PageStepRow {
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

/// What a click on one tab does after the common beginning: names, write button, read, timer.
struct TabStep {
  std::string_view page{};     ///< empty: unchanged
  std::string_view subPage{};  ///< empty: unchanged
  ButtonState write = ButtonState::kUnchanged;
  int read = 0;  ///< 0: none
  bool polls = false;
  TimerId timer = TimerId::TimerInit;  ///< with `polls`, started after the read
  int interval = 0;
};

/// The click of a tab strip. `run` takes the tab now in front; without it the tab's step runs as it stands. `steps`,
/// where there are any, are one a tab: a table shorter or longer than the strip does not compile.
struct TabRow {
  TabsId strip{};
  std::span<const TabStep> steps{};
  Call<void, int> run = {};
};

/// The change handler of a list.
struct ListRow {
  ChoiceId list;
  Call<void> run;
};

/// A finished operation that no control of the form invokes, for scripts: `run` takes an index below `indexes`.
struct OperationRow {
  std::string_view name{};
  int indexes = 1;
  Call<void, int> run = {};
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
  bool endsAtWrite = false;  ///< `cmdWriteParameter` stops it; the re-read may start it again
};

/// When a list is filled: at start, or at the first visit of a page or a tab, which clears that member of the control.
using FirstVisitFlag = std::int16_t UserCntrl::*;
inline constexpr FirstVisitFlag kAtStart = nullptr;

struct FillRow {
  ChoiceId list;
  FirstVisitFlag moment;
  std::span<const std::string_view> rows{};
};

/// The shapes of the tree: before the primary value type is known, and one for each group of types.
enum class TreeShape : std::uint8_t { kBase, kPressureFlow, kDensity, kLevel };
inline constexpr std::size_t kTreeShapes = 4;

/// A set of shapes.
class TreeShapes {
 public:
  template <class... Shapes>
  requires(std::is_same_v<Shapes, TreeShape>&&...)
      // NOLINTNEXTLINE(google-explicit-constructor): a node names one shape or a braced list of shapes.
      constexpr TreeShapes(Shapes... shapes)
      : bits_(static_cast<std::uint8_t>((BitOf(shapes) | ... | 0U))) {}
  constexpr bool Has(TreeShape shape) const { return (bits_ & BitOf(shape)) != 0; }
  constexpr bool Any() const { return bits_ != 0; }
  constexpr bool Meets(TreeShapes other) const { return (bits_ & other.bits_) != 0; }

 private:
  static constexpr unsigned BitOf(TreeShape shape) { return 1U << static_cast<unsigned>(shape); }
  std::uint8_t bits_;
};
inline constexpr TreeShapes kEveryTree{TreeShape::kBase, TreeShape::kPressureFlow, TreeShape::kDensity,
                                       TreeShape::kLevel};

/// A text that activates a row, and where it stands in the tree. Its place among the nodes is that of the table of
/// contents.
struct NodeText {
  std::string_view text{};
  std::string_view parent{};  ///< text of the node above it; empty: top level
  std::string_view picture{};
  TreeShapes trees = kEveryTree;
  bool byTextAlone = false;  ///< in no tree of this version: a frame or a script activates it by name
};

constexpr NodeText ByTextAlone(std::string_view text) {
  return {.text = text, .trees = TreeShapes(), .byTextAlone = true};
}

/// What activating a node of the tree does while the device is not disconnected.
struct NodeRow {
  std::span<const NodeText> texts{};
  std::string_view page{};     ///< empty: the node's text
  std::string_view subPage{};  ///< empty: unchanged
  FrameId frame{};
  TabsId strip{};  ///< set to tab 0
  bool writeEnabled = true;
  int read = 0;                         ///< 0: none
  FirstVisitFlag firstVisit = nullptr;  ///< fills the lists of that moment, once
  bool polls = false;
  TimerId timer = TimerId::TimerInit;  ///< with `polls`
  int interval = 0;
  bool readsOnce = false;  ///< the offline texts: read 91 once in the control's life, node expanded, Save enabled
  bool (*when)(UserCntrl&) = nullptr;      ///< the row counts only where this holds
  Call<void, std::string_view> also = {};  ///< with the node's text, after the page's names
};

/// The page that is shown when the control is made; what is read and which page is current once `TimerInit` is due.
struct StartPage {
  FrameId frame{};
  int read = 0;
  std::string_view page{};
};

/// State that scripts know by name beside the members of the control.
using MemberValue = std::variant<int, std::vector<std::string>>;
struct MemberRow {
  std::string_view name;
  MemberValue (*get)(UserCntrl&);
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
  std::span<const PageStepRow> beforeWrites{};
  std::span<const RereadRow> rereads{};
  std::span<const PageStepRow> beforeRereads{};
  std::span<const BackRow> backs{};
  std::span<const ButtonRow> buttons{};
  std::span<const TabRow> tabs{};
  std::span<const ListRow> lists{};
  std::span<const OperationRow> operations{};
  std::span<const PollRow> polls{};
  std::span<const FillRow> fills{};
  std::span<const NodeRow> nodes{};
  std::span<const ControlId> workingFields{};  ///< controls with no place on any page
  PageState state{};
  std::span<const MemberRow> members{};
  StartPage start{};  ///< of one unit alone
};

/// One node of a tree as it is built: its position is that in the row, from 1.
struct TreeEntry {
  std::string_view text{};
  int parent = 0;  ///< position, 0: top level
  std::string_view picture{};
};

/// The units of a control, what follows from them, and what navigates between them; handed in at its creation.
struct PageRegistry {
  std::span<const PageUnit* const> units{};
  std::array<std::span<const TreeEntry>, kTreeShapes> trees{};  ///< by shape
  StartPage start{};
  void (*buildTree)(UserCntrl&, TreeShape) = nullptr;
  /// The operator activates a node: its text, and its position or 0 where the tree has no such node.
  void (*onTreeNodeClick)(UserCntrl&, std::string_view text, int position) = nullptr;
};

}  // namespace htr60
