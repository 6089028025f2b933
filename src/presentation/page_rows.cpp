#include "presentation/page_rows.h"

#include <algorithm>
#include <initializer_list>

#include "presentation/mnemonics.h"
#include "presentation/numbers_shown.h"
#include "text/utf8.h"

namespace htr60::presentation {
namespace {

constexpr std::string_view kStatus = "Status";

bool IsField(RowKind kind) { return kind != RowKind::kOpen && kind != RowKind::kWrite && kind != RowKind::kFixed; }

bool GoesStale(RowKind kind) {
  return kind == RowKind::kValue || kind == RowKind::kText || kind == RowKind::kStatus || kind == RowKind::kLabel;
}

std::string_view WithoutColon(std::string_view caption) {
  caption = Trimmed(caption);
  if (caption.ends_with(':')) caption.remove_suffix(1);
  return caption;
}

// What is empty, or says again what stands before it, is left out.
std::string Joined(std::initializer_list<std::string_view> parts) {
  std::string name;
  std::string_view before;
  for (const std::string_view part : parts) {
    if (part.empty() || part == before) continue;
    if (!name.empty()) name += ", ";
    name += part;
    before = part;
  }
  return name;
}

std::string UnitOf(Form& form, const LayoutUnit& unit) {
  if (!unit.control) return std::string(unit.text);
  // An echo prints what stands elsewhere; a label in its own place may be hidden.
  if (!unit.echo && !form.Any(unit.control).Visible()) return {};
  return std::string(form.TextOf(unit.control));
}

std::string Stars(std::string_view text) {
  std::string stars;
  while (!text.empty()) {
    TakeCharacter(text);
    stars += '*';
  }
  return stars;
}

std::string Joined(const std::vector<std::string>& rows) {
  std::string text;
  for (const std::string& row : rows) text += (text.empty() ? "" : "\n") + row;
  return text;
}

// Rows are written over those shown before: of a field that stands where it stood most stays as it is.
class Rows {
 public:
  explicit Rows(Screen& screen) : rows_(screen.rows), used_(screen.rowsUsed) {}

  ScreenRow& Next(ControlId control) {
    if (used_ == rows_.size()) rows_.emplace_back();
    ScreenRow& row = rows_[used_++];
    if (row.control == control) return row;
    row = ScreenRow();
    row.control = control;
    return row;
  }

 private:
  std::vector<ScreenRow>& rows_;
  std::size_t& used_;
};

// Gives whether it is another text.
bool Assign(std::string& text, std::string_view now) {
  if (text == now) return false;
  text = now;
  return true;
}

// The text as shown; gives whether it is another one.
bool TakeText(ScreenRow& shown, Form& form) {
  if (KindOf(shown.control) == ControlKind::kListBox) {
    return Assign(shown.text, Joined(form.At(ListBoxId{shown.control}).Rows()));
  }
  const std::string_view text = form.TextOf(shown.control);
  return shown.role == RowRole::kAccessCode ? Assign(shown.text, Stars(text)) : Assign(shown.text, text);
}

struct Line {
  const LayoutGroup& group;
  const LayoutRow& row;
  bool stale;
};

void NameRow(ScreenRow& shown, Form& form, const Line& line, bool second) {
  const LayoutRow& row = line.row;
  const bool fixed = !row.captionControl && !line.group.frame;
  if (fixed && !shown.name.empty()) return;
  shown.caption = std::string(CaptionOf(form, row, second));
  const std::string_view title = Trimmed(TitleOf(form, line.group));
  const std::string_view before = second && row.secondCaption.empty() ? WithoutColon(CaptionOf(form, row, false)) : "";
  shown.name = Joined({title, before, WithoutColon(shown.caption), Trimmed(shown.unit)});
}

void WriteRow(ScreenRow& shown, UserCntrl& control, const FieldStates& states, const Line& line, bool second) {
  Form& form = control.form;
  const LayoutRow& row = line.row;
  shown.kind = second ? row.secondKind : row.kind;
  shown.role = second ? RowRole::kNone : row.role;
  if (!second && Assign(shown.unit, UnitOf(form, row.unit))) shown.name.clear();
  NameRow(shown, form, line, second);
  const bool other = TakeText(shown, form);
  if (other) shown.mark = MarkOf(shown.role, shown.kind, shown.text);
  shown.enabled = form.Any(shown.control).Enabled();
  const bool says = shown.enabled && states.HasState(shown.control);
  shown.state.reset();
  if (says) shown.state = states.Of(shown.control);
  Assign(shown.words, says ? states.Words(shown.control) : std::string());
  const bool checks = shown.enabled && shown.kind == RowKind::kNum && states.ReadOrEdited(shown.control);
  if (other || checks != shown.checked) {
    shown.hint = checks ? NumberHint(shown.text, control.codecs.DecimalSeparator()) : std::string();
    shown.checked = checks;
  }
  shown.pale = line.stale && GoesStale(shown.kind);
  if (shown.pale) shown.words = "stale";
}

}  // namespace

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

std::string_view CaptionOf(Form& form, const LayoutRow& row, bool second) {
  if (second) return row.secondCaption.empty() ? kStatus : row.secondCaption;
  const std::string_view own = row.captionControl ? form.TextOf(row.captionControl) : std::string_view();
  return own.empty() ? row.caption : own;
}

std::string_view TitleOf(Form& form, const LayoutGroup& group) {
  const std::string_view own = group.frame ? form.TextOf(group.frame) : std::string_view();
  return own.empty() ? group.caption : own;
}

bool IsShown(Form& form, const LayoutGroup& group) { return !group.frame || form.At(FrameId{group.frame}).Visible(); }

bool IsShown(Form& form, const LayoutGroup& group, const LayoutRow& row) {
  return row.fromHeight == 0 || (group.frame && form.At(FrameId{group.frame}).Height() >= row.fromHeight);
}

std::vector<const LayoutGroup*> GroupsInFront(Form& form, const PageLayout& page) {
  const TabsInFront tabs = TabsOf(form, page);
  std::vector<const LayoutGroup*> groups;
  for (const LayoutGroup& group : page.groups) {
    if (!group.panel && StandsOn(group, tabs)) groups.push_back(&group);
  }
  // The groups that the program moves change places among themselves.
  std::vector<const LayoutGroup*> moved;
  std::copy_if(groups.begin(), groups.end(), std::back_inserter(moved), [](const auto* group) { return group->byTop; });
  std::stable_sort(moved.begin(), moved.end(), [&](const LayoutGroup* a, const LayoutGroup* b) {
    return form.At(FrameId{a->frame}).Top() < form.At(FrameId{b->frame}).Top();
  });
  auto next = moved.begin();
  for (const LayoutGroup*& group : groups) {
    if (group->byTop) group = *next++;
  }
  return groups;
}

void AddRows(Screen& screen, UserCntrl& control, const FieldStates& states, const PageLayout& page, bool stale) {
  Form& form = control.form;
  const std::vector<const LayoutGroup*> groups = GroupsInFront(form, page);
  std::vector<std::string> captions;  // of groups and open buttons, hidden ones included: letters stay where they are
  for (const LayoutGroup* group : groups) {
    captions.emplace_back(TitleOf(form, *group));
    for (const LayoutRow& row : group->rows) {
      if (row.kind == RowKind::kOpen) captions.emplace_back(CaptionOf(form, row, false));
    }
  }
  const std::vector<char> letters = ChooseMnemonics(captions);
  auto letter = letters.begin();
  Rows rows(screen);
  for (const LayoutGroup* group : groups) {
    const bool shown = IsShown(form, *group);
    const std::string_view title = TitleOf(form, *group);
    const char groupLetter = *letter++;
    if (shown && !title.empty()) screen.groups.push_back({std::string(title), groupLetter, group});
    for (const LayoutRow& row : group->rows) {
      const char rowLetter = row.kind == RowKind::kOpen ? *letter++ : '\0';
      if (!shown || !row.control || !IsShown(form, *group, row)) continue;
      const Control& widget = form.Any(row.control);
      if (!IsField(row.kind)) {
        if (widget.Visible()) {
          screen.buttons.push_back(
              {row.control, std::string(CaptionOf(form, row, false)), widget.Enabled(), rowLetter});
        }
        continue;
      }
      const Line line{*group, row, stale};
      if (widget.Visible()) WriteRow(rows.Next(row.control), control, states, line, false);
      if (row.second && form.Any(row.second).Visible()) WriteRow(rows.Next(row.second), control, states, line, true);
    }
  }
}

void AddWaitingPanel(Screen& screen, UserCntrl& control) {
  screen.waiting.clear();
  for (const PageUnit* unit : control.Pages().units) {
    for (const PageLayout& page : unit->layouts) {
      for (const LayoutGroup& group : page.groups) {
        if (!group.panel || !control.form.At(group.panel).Visible()) continue;
        screen.waiting = group.caption;
        for (const LayoutRow& row : group.rows) {
          ScreenRow& shown = Rows(screen).Next(row.control);
          shown.kind = row.kind;
          shown.text = std::string(control.form.TextOf(row.control));
          shown.name = shown.text;
          if (row.control) screen.waiting = shown.text;
        }
      }
    }
  }
}

}  // namespace htr60::presentation
