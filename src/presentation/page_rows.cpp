#include "presentation/page_rows.h"

#include <algorithm>
#include <initializer_list>

#include "presentation/mnemonics.h"
#include "presentation/numbers_shown.h"
#include "text/utf8.h"

namespace htr60::presentation {
namespace {

constexpr std::string_view kStatus = "Status";

// Group boxes of the live monitors stand this high while a value without a status is shown.
constexpr int kHeightWithoutStatus = 960;

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

std::string TextOf(Form& form, ControlId control, RowRole role) {
  if (KindOf(control) == ControlKind::kListBox) {
    std::string text;
    for (const std::string& row : form.At(ListBoxId{control}).Rows()) text += (text.empty() ? "" : "\n") + row;
    return text;
  }
  std::string_view text = form.TextOf(control);
  if (role != RowRole::kAccessCode) return std::string(text);
  std::string stars;
  while (!text.empty()) {
    TakeCharacter(text);
    stars += '*';
  }
  return stars;
}

ScreenRow RowOf(UserCntrl& control, const FieldStates& states, const LayoutGroup& group, const LayoutRow& row,
                bool second, bool stale) {
  Form& form = control.form;
  ScreenRow shown;
  shown.control = second ? row.second : row.control;
  shown.kind = second ? row.secondKind : row.kind;
  shown.role = second ? RowRole::kNone : row.role;
  shown.caption = std::string(CaptionOf(form, row, second));
  if (!second) shown.unit = UnitOf(form, row.unit);
  const std::string_view title = Trimmed(TitleOf(form, group));
  const std::string_view line = second && row.secondCaption.empty() ? WithoutColon(CaptionOf(form, row, false)) : "";
  shown.name = Joined({title, line, WithoutColon(shown.caption), Trimmed(shown.unit)});
  shown.text = TextOf(form, shown.control, shown.role);
  shown.enabled = form.Any(shown.control).Enabled();
  shown.mark = MarkOf(shown.role, shown.kind, shown.text);
  if (shown.enabled && states.HasState(shown.control)) {
    shown.state = states.Of(shown.control);
    shown.words = states.Words(shown.control);
  }
  if (shown.enabled && shown.kind == RowKind::kNum && states.ReadOrEdited(shown.control)) {
    shown.hint = NumberHint(shown.text, control.codecs.DecimalSeparator());
  }
  if (stale && GoesStale(shown.kind)) {
    shown.pale = true;
    shown.words = "stale";
  }
  return shown;
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

bool StatusFits(Form& form, const LayoutGroup& group, const LayoutRow& row) {
  if (row.kind != RowKind::kListRo || !group.frame) return true;
  const int height = form.At(FrameId{group.frame}).Height();
  return height == 0 || height > kHeightWithoutStatus;
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
  for (const LayoutGroup* group : groups) {
    const bool shown = IsShown(form, *group);
    const std::string_view title = TitleOf(form, *group);
    const char groupLetter = *letter++;
    if (shown && !title.empty()) screen.groups.push_back({std::string(title), groupLetter, group});
    for (const LayoutRow& row : group->rows) {
      const char rowLetter = row.kind == RowKind::kOpen ? *letter++ : '\0';
      if (!shown || !row.control) continue;
      const Control& widget = form.Any(row.control);
      if (!IsField(row.kind)) {
        if (widget.Visible()) {
          screen.buttons.push_back(
              {row.control, std::string(CaptionOf(form, row, false)), widget.Enabled(), rowLetter});
        }
        continue;
      }
      if (widget.Visible()) screen.rows.push_back(RowOf(control, states, *group, row, false, stale));
      if (row.second && form.Any(row.second).Visible()) {
        screen.rows.push_back(RowOf(control, states, *group, row, true, stale));
      }
    }
  }
}

void AddWaitingPanel(Screen& screen, UserCntrl& control) {
  for (const PageUnit* unit : control.Pages().units) {
    for (const PageLayout& page : unit->layouts) {
      for (const LayoutGroup& group : page.groups) {
        if (!group.panel || !control.form.At(group.panel).Visible()) continue;
        for (const LayoutRow& row : group.rows) {
          ScreenRow shown;
          shown.control = row.control;
          shown.kind = row.kind;
          shown.text = std::string(control.form.TextOf(row.control));
          shown.name = shown.text;
          screen.rows.push_back(std::move(shown));
        }
      }
    }
  }
}

}  // namespace htr60::presentation
