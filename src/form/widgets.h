#pragma once

#include <array>
#include <cstdint>
#include <iterator>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "form/control_id.h"

namespace htr60 {

class ChoiceList;
class Form;
class TabStrip;
class Timer;

/// What the form tells the control about: events that a set or the operator raises.
class FormEvents {
 public:
  virtual void TabChanged(const TabStrip& strip) = 0;
  virtual void ListChanged(const ChoiceList& list) = 0;
  /// The wait of `timer` begins anew (`armed`) or ends.
  virtual void TimerChanged(const Timer& timer, bool armed) = 0;
  /// The form has its first unseen change since a view last took them.
  virtual void Changed() = 0;

 protected:
  ~FormEvents() = default;
};

/// What all controls have: a name, and the two flags of their own, whatever their containers show.
class Control {
 public:
  Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  ControlId Id() const { return id_; }
  bool Visible() const { return visible_; }
  bool Enabled() const { return enabled_; }
  void SetVisible(bool visible);
  void SetEnabled(bool enabled);

 protected:
  ~Control() = default;
  void Mark();
  void SetText(std::string& text, std::string_view value);

  Form* form_ = nullptr;

 private:
  friend class Form;
  ControlId id_{};
  bool visible_ = true;
  bool enabled_ = true;
};

/// A field with one line of text (UTF-8), set by the program from device values and typed into by the operator.
class TextField : public Control {
 public:
  const std::string& Text() const { return text_; }
  /// The program's set. It counts also when the text is the same.
  void SetText(std::string_view text);
  /// The operator replaces the text; a field with a longest length keeps its first characters.
  void Type(std::string_view text);
  /// How often the program has set the field, an equal text included.
  std::uint32_t Sets() const { return sets_; }
  /// Longest text in characters; 0: no limit.
  int MaxLength() const { return maxLength_; }
  void SetMaxLength(int characters) { maxLength_ = characters; }

 private:
  std::string_view Cut(std::string_view text) const;

  std::string text_;
  std::uint32_t sets_ = 0;
  int maxLength_ = 0;
};

/// A text on the form that only the program changes.
class Label : public Control {
 public:
  const std::string& Text() const { return text_; }
  void SetText(std::string_view text);
  /// How often it has been set, an equal text included.
  std::uint32_t Sets() const { return sets_; }

 private:
  std::string text_;
  std::uint32_t sets_ = 0;
};

class Button : public Control {
 public:
  const std::string& Text() const { return text_; }
  void SetText(std::string_view text);

 private:
  std::string text_;
};

/// A list with a text. The program may set any text, the operator picks rows. Rows are constants of the program.
class ChoiceList : public Control {
 public:
  const std::string& Text() const { return text_; }
  std::span<const std::string_view> Rows() const { return rows_; }
  /// The program's set: raises the change event where the text differs. A closed list throws `RuntimeFailure` for a
  /// text that is none of its rows, and stays as it was.
  void SetText(std::string_view text);
  /// As `SetText`, but an empty text leaves the list as it is.
  void SetIfAny(std::string_view text);
  /// The operator's pick: raises the change event in any case. `row` is one of `Rows()`.
  void Pick(std::size_t row);
  /// Empties rows and text; raises nothing.
  void Clear();
  void AddRow(std::string_view row);
  /// Replaces the rows; empties the text as `Clear` does.
  void Fill(std::span<const std::string_view> rows);
  void SetClosed() { closed_ = true; }
  bool Closed() const { return closed_; }
  std::uint32_t Sets() const { return sets_; }

 private:
  std::string text_;
  std::vector<std::string_view> rows_;
  std::uint32_t sets_ = 0;
  bool closed_ = false;
};

/// Rows to be read.
class ListBox : public Control {
 public:
  const std::vector<std::string>& Rows() const { return rows_; }
  void Clear();
  void AddRow(std::string_view row);

 private:
  std::vector<std::string> rows_;
};

/// A strip of tabs. Setting another tab raises the click event, whoever sets it; setting the tab in front raises
/// nothing.
class TabStrip : public Control {
 public:
  int Index() const { return index_; }
  std::span<const std::string_view> Captions() const { return captions_; }
  void SetIndex(int index);
  void SetCaptions(std::span<const std::string_view> captions) { captions_ = captions; }

 private:
  std::span<const std::string_view> captions_{};
  int index_ = 0;
};

/// A page frame or a group box.
class Frame : public Control {
 public:
  const std::string& Text() const { return text_; }
  void SetText(std::string_view text);
  /// Place and size in the form's units, kept for the groups that the program moves or resizes; 0 for the others.
  int Top() const { return top_; }
  int Height() const { return height_; }
  void SetTop(int top);
  void SetHeight(int height);
  void SetVisible(bool visible);

 private:
  friend class Form;
  std::string text_;
  int top_ = 0;
  int height_ = 0;
  bool isPage_ = false;
};

class Picture : public Control {};

/// One node of the tree, addressed by its position in creation order, from 1.
struct TreeNode {
  std::string_view text{};
  int parent = 0;  ///< position, 0: top level
  std::string_view picture{};
  std::string_view selectedPicture{};
  bool expanded = false;
  bool selected = false;
};

/// The navigation tree. An operation on a position that does not exist throws `RuntimeFailure`.
class TreeView {
 public:
  explicit TreeView(Form& form) : form_(form) {}
  const std::vector<TreeNode>& Nodes() const { return nodes_; }
  void Clear();
  int AddTopLevel(std::string_view text);
  int AddChild(int parent, std::string_view text);
  void SetPictures(int position, std::string_view picture, std::string_view selectedPicture);
  void Select(int position);
  void SetExpanded(int position, bool expanded);
  /// Grows with every rebuild, so that a view knows when to open all nodes.
  std::uint32_t Generation() const { return generation_; }

 private:
  TreeNode& At(int position);
  Form& form_;
  std::vector<TreeNode> nodes_;
  std::uint32_t generation_ = 0;
};

struct StatusPanel {
  std::string text;
  std::string picture;  ///< file name of the loaded picture, empty: none
  std::uint32_t sets = 0;
};

/// Four panels: connection with picture, two that stay empty, traffic.
class StatusBar {
 public:
  explicit StatusBar(Form& form) : form_(form) {}
  const StatusPanel& Panel(int number) const { return panels_.at(static_cast<std::size_t>(number - 1)); }
  void SetText(int number, std::string_view text);
  void SetPicture(int number, std::string_view fileName);

 private:
  Form& form_;
  std::array<StatusPanel, 4> panels_;
};

/// The timers, in the order of their numbers at the timer port.
enum class TimerId : std::uint8_t {
#define HTR60_TIMER(name, interval) name,
#include "form/timers.def"
};
inline constexpr int kDesignIntervals[] = {
#define HTR60_TIMER(name, interval) interval,
#include "form/timers.def"
};
inline constexpr std::size_t kTimerCount = std::size(kDesignIntervals);

/// Fires while it is enabled and its interval is above 0. Setting the interval begins the wait anew; enabling an
/// enabled timer changes nothing.
class Timer {
 public:
  TimerId Id() const { return id_; }
  bool Enabled() const { return enabled_; }
  int Interval() const { return interval_; }  ///< ms
  bool Running() const { return enabled_ && interval_ > 0; }
  void SetEnabled(bool enabled);
  void SetInterval(int milliseconds);

 private:
  friend class Form;
  Form* form_ = nullptr;
  TimerId id_ = TimerId::TimerInit;
  bool enabled_ = false;
  int interval_ = 0;
};

}  // namespace htr60
