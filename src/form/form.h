#pragma once

#include <array>
#include <bitset>
#include <string_view>
#include <vector>

#include "form/control_id.h"
#include "form/widgets.h"

namespace htr60 {

/// One control array of the form: `form.txtParameter(45)`. An index that does not exist does not compile.
template <class Widget, const auto& kExisting>
class ControlArray {
 public:
  explicit ControlArray(Widget* first) : first_(first) {}
  Widget& operator()(ArrayIndex<kExisting> index) const { return first_[index.slot]; }

 private:
  Widget* first_;
};

/// What has changed since a view last asked.
struct FormChanges {
  std::vector<ControlId> controls;  ///< each once, in the order of their first change
  bool tree = false;
  bool status = false;
  bool timers = false;
  bool any() const { return !controls.empty() || tree || status || timers; }
};

/// The form as a model, with no toolkit: every control of the flat namespace under the name it bears.
/// A set that changes nothing marks nothing.
class Form {
  std::array<TextField, CountOf(ControlKind::kText)> texts_;
  std::array<Label, CountOf(ControlKind::kLabel)> labels_;
  std::array<Button, CountOf(ControlKind::kButton)> buttons_;
  std::array<ChoiceList, CountOf(ControlKind::kChoice)> choices_;
  std::array<ListBox, CountOf(ControlKind::kListBox)> listBoxes_;
  std::array<TabStrip, CountOf(ControlKind::kTabs)> tabs_;
  std::array<Frame, CountOf(ControlKind::kFrame)> frames_;
  std::array<Picture, CountOf(ControlKind::kPicture)> pictures_;
  std::array<Timer, kTimerCount> timers_;

 public:
  explicit Form(FormEvents& events);
  ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

#define HTR60_MEMBER(type, store, kind, name) type& name = store[SlotOf(id::name)];
#define HTR60_MEMBER_ARRAY(type, store, kind, name) \
  ControlArray<type, indexes::name> name{&store[SlotOf(KindId<ControlKind::kind>{{ordinals::name}})]};
#define HTR60_TEXT(name) HTR60_MEMBER(TextField, texts_, kText, name)
#define HTR60_TEXT_ARRAY(name) HTR60_MEMBER_ARRAY(TextField, texts_, kText, name)
#define HTR60_LABEL(name) HTR60_MEMBER(Label, labels_, kLabel, name)
#define HTR60_LABEL_ARRAY(name) HTR60_MEMBER_ARRAY(Label, labels_, kLabel, name)
#define HTR60_BUTTON(name) HTR60_MEMBER(Button, buttons_, kButton, name)
#define HTR60_CHOICE(name) HTR60_MEMBER(ChoiceList, choices_, kChoice, name)
#define HTR60_CHOICE_ARRAY(name) HTR60_MEMBER_ARRAY(ChoiceList, choices_, kChoice, name)
#define HTR60_LISTBOX(name) HTR60_MEMBER(ListBox, listBoxes_, kListBox, name)
#define HTR60_TABS(name) HTR60_MEMBER(TabStrip, tabs_, kTabs, name)
#define HTR60_TABS_ARRAY(name) HTR60_MEMBER_ARRAY(TabStrip, tabs_, kTabs, name)
#define HTR60_FRAME(name) HTR60_MEMBER(Frame, frames_, kFrame, name)
#define HTR60_FRAME_ARRAY(name) HTR60_MEMBER_ARRAY(Frame, frames_, kFrame, name)
#define HTR60_PICTURE(name) HTR60_MEMBER(Picture, pictures_, kPicture, name)
#include "form/controls.def"
#undef HTR60_MEMBER
#undef HTR60_MEMBER_ARRAY

  // NOLINTNEXTLINE(readability-identifier-naming): the control's own name
  TreeView treeView{*this};
  StatusBar statusBar{*this};

  TextField& At(TextId control) { return texts_[SlotOf(control)]; }
  Label& At(LabelId control) { return labels_[SlotOf(control)]; }
  Button& At(ButtonId control) { return buttons_[SlotOf(control)]; }
  ChoiceList& At(ChoiceId control) { return choices_[SlotOf(control)]; }
  ListBox& At(ListBoxId control) { return listBoxes_[SlotOf(control)]; }
  TabStrip& At(TabsId control) { return tabs_[SlotOf(control)]; }
  Frame& At(FrameId control) { return frames_[SlotOf(control)]; }
  Picture& At(PictureId control) { return pictures_[SlotOf(control)]; }
  Timer& At(TimerId timer) { return timers_[static_cast<std::size_t>(timer)]; }
  const Timer& At(TimerId timer) const { return timers_[static_cast<std::size_t>(timer)]; }

  /// Calls `visit` with the widget of `control`, as the class of its kind.
  template <class Visitor>
  decltype(auto) Visit(ControlId control, Visitor&& visit);

  /// Flags of a control of any kind.
  const Control& Any(ControlId control);

  /// Text as shown of a text field, label, button, list or frame; empty for the kinds without a text.
  std::string_view TextOf(ControlId control);

  /// Hands out the marks and forgets them; views ask once a turn.
  FormChanges TakeChanges();
  bool HasChanges() const { return changes_.any(); }

  /// `frame` is a page: one of those of which the one shown last stands in front. `shown`: it does from the start.
  void DeclarePage(FrameId frame, bool shown);
  /// The page frame shown last since the last common hide; none where none was.
  FrameId FrameShownLast() const { return frameShownLast_; }
  void ForgetFrameShown();

 private:
  friend class Control;
  friend class ChoiceList;
  friend class Frame;
  friend class StatusBar;
  friend class TabStrip;
  friend class Timer;
  friend class TreeView;

  void Mark(ControlId control);
  void MarkTree();
  void MarkStatus();
  void MarkTimers();
  void FirstChange();
  void SetStartState();

  FormEvents& events_;
  FormChanges changes_;
  std::bitset<kControlCount> marked_;
  FrameId frameShownLast_;
  bool announcing_ = false;  // not while the form is being made: its control is not whole yet
};

template <class Visitor>
decltype(auto) Form::Visit(ControlId control, Visitor&& visit) {
  switch (KindOf(control)) {
    case ControlKind::kText:
      return visit(At(TextId{control}));
    case ControlKind::kLabel:
      return visit(At(LabelId{control}));
    case ControlKind::kButton:
      return visit(At(ButtonId{control}));
    case ControlKind::kChoice:
      return visit(At(ChoiceId{control}));
    case ControlKind::kListBox:
      return visit(At(ListBoxId{control}));
    case ControlKind::kTabs:
      return visit(At(TabsId{control}));
    case ControlKind::kFrame:
      return visit(At(FrameId{control}));
    case ControlKind::kPicture:
      break;
  }
  return visit(At(PictureId{control}));
}

}  // namespace htr60
