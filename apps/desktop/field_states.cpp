#include "desktop/field_states.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "text/failure.h"

namespace htr60::desktop {
namespace {

constexpr std::int64_t kVerdictMs = 10'000;
constexpr std::int64_t kFadesMs = 30'000;
constexpr std::string_view kWriting = "Writing Xmtr Data...";

bool CanBeEdited(RowKind kind) { return kind == RowKind::kEdit || kind == RowKind::kNum || kind == RowKind::kList; }

int DecimalsOf(std::string_view number, char separator) {
  const std::size_t at = number.find(separator);
  if (at == std::string_view::npos) return 0;
  const auto last = std::find_if_not(number.begin() + static_cast<std::ptrdiff_t>(at) + 1, number.end(),
                                     [](char c) { return c >= '0' && c <= '9'; });
  return static_cast<int>(last - number.begin()) - static_cast<int>(at) - 1;
}

std::string Rounded(double value, int decimals) {
  char text[400];
  std::snprintf(text, sizeof text, "%.*f", decimals, value);
  std::string_view digits(text);
  if (digits.find_first_not_of("-0.") == std::string_view::npos && digits.front() == '-') digits.remove_prefix(1);
  return std::string(digits);
}

const LayoutGroup* GroupOf(ControlId control, const PageLayout& page) {
  for (const LayoutGroup& group : page.groups) {
    for (const LayoutRow& row : group.rows) {
      if (row.control == control || row.second == control) return &group;
    }
  }
  return nullptr;
}

// Whether the write button of `pressed` sends the fields of `group`, too.
bool SentWith(const LayoutGroup& pressed, const LayoutGroup& group) {
  return &group == &pressed || (pressed.sentTogether > 0 && group.sentTogether == pressed.sentTogether);
}

}  // namespace

TabsInFront TabsOf(Form& form, const PageLayout& page) {
  TabsInFront tabs;
  if (!page.strip) return tabs;
  tabs.tab = form.At(page.strip).Index();
  for (const LayoutInnerStrip& inner : page.innerStrips) {
    if (inner.tab != tabs.tab) continue;
    tabs.inner = inner.strip;
    tabs.innerTab = form.At(inner.strip).Index();
  }
  return tabs;
}

FieldStates::FieldStates(UserCntrl& control, Clock now) : control_(control), now_(std::move(now)) {
  fieldOf_.assign(kControlCount, -1);
  NodeActivated();
  for (const PageUnit* unit : control_.Pages().units) {
    for (const PageLayout& page : unit->layouts) {
      for (const LayoutGroup& group : page.groups) {
        for (const LayoutRow& row : group.rows) {
          Add(row, row.kind, row.control, group, page);
          Add(row, row.secondKind, row.second, group, page);
        }
      }
    }
  }
}

void FieldStates::Add(const LayoutRow& row, RowKind kind, ControlId control, const LayoutGroup& group,
                      const PageLayout& page) {
  if (!control || !CanBeEdited(kind) || row.role == RowRole::kAccessCode || fieldOf_[control.ordinal] >= 0) return;
  Field field;
  field.control = control;
  field.page = &page;
  field.group = &group;
  field.list = kind == RowKind::kList;
  field.live = row.live;
  field.command = row.role == RowRole::kCommand;
  field.stateless = row.role == RowRole::kStateless;
  field.sets = SetsOf(field.control);
  field.text = field.program = std::string(control_.form.TextOf(control));
  fieldOf_[control.ordinal] = static_cast<int>(fields_.size());
  fields_.push_back(std::move(field));
}

const FieldStates::Field* FieldStates::Find(ControlId control) const {
  const int at = control ? fieldOf_[control.ordinal] : -1;
  return at < 0 ? nullptr : &fields_[static_cast<std::size_t>(at)];
}

FieldStates::Field* FieldStates::Find(ControlId control) {
  return const_cast<Field*>(std::as_const(*this).Find(control));
}

std::uint32_t FieldStates::SetsOf(ControlId control) const {
  switch (KindOf(control)) {
    case ControlKind::kText:
      return control_.form.At(TextId{control}).Sets();
    case ControlKind::kChoice:
      return control_.form.At(ChoiceId{control}).Sets();
    default:
      return 0;
  }
}

// ---- the operator

void FieldStates::Type(TextId control, std::string_view text) {
  Field* field = Find(control);
  if (field != nullptr) Look(*field);
  control_.Type(control, text);
  typed_.set(control.ordinal);
  if (field != nullptr) Edited(*field);
}

void FieldStates::Pick(ChoiceId control, std::size_t row) {
  Field* field = Find(control);
  if (field != nullptr) Look(*field);
  control_.Pick(control, row);
  typed_.set(control.ordinal);
  // The list's own handler may have set it again: then the program had the last word.
  if (field == nullptr) return;
  if (SetsOf(control) == field->sets) {
    Edited(*field);
  } else {
    Look(*field);
  }
}

void FieldStates::Edited(Field& field) {
  field.text = std::string(control_.form.TextOf(field.control));
  field.edited = true;
  Rest(field);
}

void FieldStates::Press(ButtonId button, const PageLayout* page) {
  const std::uint32_t before = control_.form.statusBar.Panel(4).sets;
  control_.Click(button);
  const StatusPanel& traffic = control_.form.statusBar.Panel(4);
  if (page != nullptr && traffic.sets != before && traffic.text == kWriting) TakeWritten(button, *page);
}

void FieldStates::TakeWritten(ButtonId button, const PageLayout& page) {
  const bool whole = button == id::cmdWriteParameter;
  const TabsInFront tabs = TabsOf(control_.form, page);
  const LayoutGroup* group = GroupOf(button, page);
  for (Field& field : fields_) {
    if (field.page != &page || field.stateless) continue;
    const bool covered =
        whole ? StandsOn(*field.group, tabs.tab, tabs.innerTab) : group != nullptr && SentWith(*group, *field.group);
    if (!covered) continue;
    Look(field);
    if (field.state != FieldState::kNotWritten && !(field.command && field.edited)) continue;
    field.other = field.text;
    field.windowEnd = 0;
    Enter(field, FieldState::kSent);
  }
  rereadAwaited_ = true;
}

void FieldStates::PageOpened(const PageLayout& page, bool again) {
  for (Field& field : fields_) {
    if (field.page != &page) continue;
    Look(field);
    field.compares = again && (field.read || field.compares);
    field.read = false;
    if (field.state == FieldState::kSent || field.state == FieldState::kNotReadBack) continue;
    Rest(field);
  }
}

void FieldStates::NodeActivated() {
  nodeSets_.resize(kControlCount);
  for (std::uint16_t i = 0; i < kControlCount; ++i) nodeSets_[i] = SetsOf(ControlId{i});
  typed_.reset();
}

bool FieldStates::SetOrTypedSinceNode(ControlId control) const {
  return typed_.test(control.ordinal) || SetsOf(control) != nodeSets_[control.ordinal];
}

void FieldStates::PageLeft(const PageLayout& page) {
  for (Field& field : fields_) {
    if (field.page != &page) continue;
    switch (field.state) {
      case FieldState::kConfirmed:
      case FieldState::kDiffers:
      case FieldState::kReplaced:
      case FieldState::kDeviceShows:
        Rest(field);
        break;
      default:
        break;
    }
  }
}

// ---- the program

void FieldStates::Turn(const FormChanges& changes) {
  if (rereadAwaited_ && !control_.form.At(TimerId::TimerReadAfterWrite).Enabled()) {
    rereadAwaited_ = false;
    for (Field& field : fields_) {
      if (field.state == FieldState::kSent && field.windowEnd == 0) field.windowEnd = now_() + kVerdictMs;
    }
  }
  for (const ControlId control : changes.controls) {
    if (Field* field = Find(control)) Look(*field);
  }
  Tick();
}

void FieldStates::Look(Field& field) {
  const std::string_view text = control_.form.TextOf(field.control);
  const std::uint32_t sets = SetsOf(field.control);
  if (sets == field.sets) {
    if (text == field.text) return;
    // A list was emptied or filled: nothing was read, but the text that stood there is gone.
    field.text = field.program = std::string(text);
    if (field.state == FieldState::kNotWritten) Rest(field);
    return;
  }
  const std::string before = std::exchange(field.text, std::string(text));
  field.sets = sets;
  ProgramSet(field, before);
}

void FieldStates::ProgramSet(Field& field, const std::string& before) {
  const bool wasRead = field.read;
  field.program = field.text;
  field.read = true;
  field.edited = false;
  const bool inTime = field.windowEnd != 0 && now_() <= field.windowEnd;
  switch (field.state) {
    case FieldState::kSent:
      if (field.windowEnd == 0) return;  // a live answer that passed the re-read
      if (inTime) return Verdict(field);
      return Rest(field);
    case FieldState::kConfirmed:
    case FieldState::kDeviceShows:
      if (inTime) return Verdict(field);
      return field.text == before ? void() : Compare(field, before);
    case FieldState::kDiffers:
      if (inTime) return Verdict(field);
      if (SameValue(field, field.text, field.other)) return Rest(field);
      return Enter(field, FieldState::kDiffers);
    case FieldState::kNotWritten:
      if (field.text == before) return Rest(field);
      field.other = before;
      return Enter(field, FieldState::kReplaced);
    case FieldState::kReplaced:
      return;
    case FieldState::kNotRead:
      if (field.compares) return Compare(field, before);
      return Rest(field);
    case FieldState::kChanged:
      return field.text == before ? void() : Compare(field, before);
    case FieldState::kAsRead:
      return wasRead ? Compare(field, before) : Rest(field);
    case FieldState::kNotReadBack:
      return Rest(field);
  }
}

void FieldStates::Verdict(Field& field) {
  if (field.command) return Enter(field, FieldState::kDeviceShows);
  if (SameValue(field, field.text, field.other)) return Enter(field, FieldState::kConfirmed, kFadesMs);
  Enter(field, FieldState::kDiffers);
}

void FieldStates::Compare(Field& field, const std::string& before) {
  field.compares = false;
  if (field.text == before || field.live) return Rest(field);
  Enter(field, FieldState::kChanged, kFadesMs);
}

bool FieldStates::SameValue(const Field& field, std::string_view device, std::string_view sent) const {
  if (device == sent) return true;
  if (field.list) return false;
  try {
    const double deviceValue = control_.codecs.ParseLocaleNumber(device);
    const double sentValue = control_.codecs.ParseLocaleNumber(sent);
    if (device.find_first_of("eE") != std::string_view::npos) {
      return static_cast<float>(deviceValue) == static_cast<float>(sentValue);
    }
    const int decimals = DecimalsOf(device, control_.codecs.DecimalSeparator());
    return Rounded(deviceValue, decimals) == Rounded(sentValue, decimals);
  } catch (const RuntimeFailure&) {
    return false;  // words, and not the same words
  }
}

// ---- states

void FieldStates::Enter(Field& field, FieldState state, std::int64_t lasts) {
  field.state = state;
  field.until = lasts == 0 ? 0 : now_() + lasts;
  if (!std::exchange(field.dirty, true)) changed_.push_back(field.control);
}

void FieldStates::Rest(Field& field) {
  field.windowEnd = 0;
  if (field.text != field.program) return Enter(field, FieldState::kNotWritten);
  Enter(field, field.read ? FieldState::kAsRead : FieldState::kNotRead);
}

void FieldStates::Tick() {
  const std::int64_t now = now_();
  for (Field& field : fields_) {
    if (field.until != 0 && now >= field.until) Rest(field);
    if (field.state == FieldState::kSent && field.windowEnd != 0 && now > field.windowEnd) {
      Enter(field, FieldState::kNotReadBack);
    }
  }
}

std::optional<std::int64_t> FieldStates::NextDeadline() const {
  std::optional<std::int64_t> next;
  const auto consider = [&](std::int64_t at) {
    if (!next || at < *next) next = at;
  };
  for (const Field& field : fields_) {
    if (field.until != 0) consider(field.until);
    if (field.state == FieldState::kSent && field.windowEnd != 0) consider(field.windowEnd + 1);
  }
  return next;
}

FieldState FieldStates::Of(ControlId control) const {
  const Field* field = Find(control);
  return field == nullptr || field->stateless ? FieldState::kAsRead : field->state;
}

std::string FieldStates::Words(ControlId control) const {
  const Field* field = Find(control);
  if (field == nullptr || field->stateless) return {};
  switch (field->state) {
    case FieldState::kAsRead:
      return {};
    case FieldState::kNotRead:
      return "not read";
    case FieldState::kNotWritten:
      return "not written";
    case FieldState::kSent:
      return "sent";
    case FieldState::kConfirmed:
      return "confirmed";
    case FieldState::kDiffers:
      return "device: " + field->program + ", sent: " + field->other;
    case FieldState::kReplaced:
      return "replaced by the device, was: " + field->other;
    case FieldState::kChanged:
      return "changed";
    case FieldState::kNotReadBack:
      return "sent, not read back";
    case FieldState::kDeviceShows:
      return "device shows: " + field->program;
  }
  return {};
}

bool FieldStates::ReadOrEdited(ControlId control) const {
  const Field* field = Find(control);
  return field != nullptr && (field->edited || (field->read && !field->stateless));
}

bool FieldStates::Shown(const Field& field) const {
  Form& form = control_.form;
  const Control& control = form.Any(field.control);
  return control.Visible() && control.Enabled() &&
         (!field.group->frame || form.At(FrameId{field.group->frame}).Visible());
}

StateCounts FieldStates::Counts(const PageLayout& page) const {
  StateCounts counts;
  const TabsInFront tabs = TabsOf(control_.form, page);
  for (const Field& field : fields_) {
    if (field.page != &page || field.stateless || !Shown(field)) continue;
    if (!StandsOn(*field.group, tabs.tab, tabs.innerTab)) continue;
    if (field.state == FieldState::kNotWritten) ++counts.notWritten;
    if (field.state == FieldState::kSent) ++counts.sent;
    if (field.state == FieldState::kConfirmed) ++counts.confirmed;
    if (field.state == FieldState::kDiffers || field.state == FieldState::kNotReadBack) ++counts.unconfirmed;
  }
  return counts;
}

ControlId FieldStates::First(const PageLayout& page, FieldState state) const {
  const TabsInFront tabs = TabsOf(control_.form, page);
  for (const Field& field : fields_) {
    if (field.page == &page && field.state == state && !field.stateless && Shown(field) &&
        StandsOn(*field.group, tabs.tab, tabs.innerTab)) {
      return field.control;
    }
  }
  return {};
}

int FieldStates::Unwritten(const PageLayout& page, int tab, int innerTab) const {
  return static_cast<int>(std::count_if(fields_.begin(), fields_.end(), [&](const Field& field) {
    return field.page == &page && field.state == FieldState::kNotWritten && !field.stateless &&
           StandsOn(*field.group, tab, innerTab);
  }));
}

std::vector<ControlId> FieldStates::TakeChanged() {
  for (const ControlId control : changed_) Find(control)->dirty = false;
  return std::exchange(changed_, {});
}

}  // namespace htr60::desktop
