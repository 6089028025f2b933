#include "presentation/field_states.h"

#include <algorithm>
#include <utility>

#include "presentation/numbers_shown.h"

namespace htr60::presentation {
namespace {

constexpr std::int64_t kVerdictMs = 10'000;
constexpr std::int64_t kFadesMs = 30'000;
constexpr auto kLock = static_cast<std::size_t>(IdentityItem::kWriteProtection);

bool CanBeEdited(RowKind kind) { return kind == RowKind::kEdit || kind == RowKind::kNum || kind == RowKind::kList; }

bool Fades(FieldState state) { return state == FieldState::kConfirmed || state == FieldState::kChanged; }

bool IsVerdict(FieldState state) {
  return state == FieldState::kConfirmed || state == FieldState::kStored || state == FieldState::kDiffers ||
         state == FieldState::kShown;
}

// At most: some stand on several pages.
std::size_t CountFields(const PageRegistry& pages) {
  std::size_t count = 0;
  for (const PageUnit* unit : pages.units) {
    for (const PageLayout& page : unit->layouts) {
      for (const LayoutGroup& group : page.groups) {
        for (const LayoutRow& row : group.rows) {
          count += (CanBeEdited(row.kind) ? 1U : 0U) + (row.second && CanBeEdited(row.secondKind) ? 1U : 0U);
        }
      }
    }
  }
  return count;
}

const LayoutGroup* GroupOf(ControlId control, const PageLayout& page) {
  for (const LayoutGroup& group : page.groups) {
    for (const LayoutRow& row : group.rows) {
      if (row.control == control || row.second == control) return &group;
    }
  }
  return nullptr;
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
  fields_.reserve(CountFields(control_.Pages()));
  for (const PageUnit* unit : control_.Pages().units) {
    for (const PageLayout& page : unit->layouts) {
      const std::size_t first = fields_.size();
      for (const LayoutGroup& group : page.groups) {
        for (const LayoutRow& row : group.rows) {
          Add(row, row.kind, row.control, group, page);
          Add(row, row.secondKind, row.second, group, page);
          if (row.identity != IdentityItem::kNone) identity_[static_cast<std::size_t>(row.identity)] = row.control;
          if (row.role == RowRole::kTableVerdict) tableVerdict_ = row.control;
        }
      }
      pages_.push_back({&page, first, fields_.size() - first});
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
  field.kind = kind;
  field.role = control == row.control ? row.role : RowRole::kNone;
  field.live = row.live;
  field.sets = SetsOf(control);
  field.text = std::string(control_.form.TextOf(control));
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

std::span<const FieldStates::Field> FieldStates::On(const PageLayout& page) const {
  const auto found = std::find_if(pages_.begin(), pages_.end(), [&](const Stretch& s) { return s.page == &page; });
  if (found == pages_.end()) return {};
  return std::span(fields_).subspan(found->first, found->count);
}

std::span<FieldStates::Field> FieldStates::On(const PageLayout& page) {
  const std::span<const Field> fields = std::as_const(*this).On(page);
  return {const_cast<Field*>(fields.data()), fields.size()};
}

std::uint32_t FieldStates::SetsOf(ControlId control) const {
  return control_.form.Visit(control, [](auto& widget) -> std::uint32_t {
    if constexpr (requires { widget.Sets(); }) {
      return widget.Sets();
    } else {
      return 0;
    }
  });
}

FieldStates::Past& FieldStates::PastOf(Field& field) {
  if (!field.past) field.past = std::make_unique<Past>();
  return *field.past;
}

const FieldStates::Past& FieldStates::Recalled(const Field& field) {
  static const Past kNone{};
  return field.past ? *field.past : kNone;
}

const std::string& FieldStates::Program(const Field& field) {
  return field.past && field.past->program ? *field.past->program : field.text;
}

// Another text than the program's, whose last one stays known.
void FieldStates::Replace(Field& field, std::string_view text) {
  Past& past = PastOf(field);
  if (!past.program) past.program = std::move(field.text);
  field.text = std::string(text);
  if (field.text == *past.program) past.program.reset();
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
  const bool outer = std::exchange(acting_, true);
  control_.Pick(control, row);
  for (Field& other : fields_) {
    if (&other != field && other.kind == RowKind::kList) Look(other);
  }
  acting_ = outer;
  typed_.set(control.ordinal);
  if (field == nullptr) return;
  // The list's own handler may have set it again: then the program had the last word.
  if (SetsOf(control) == field->sets) {
    Edited(*field);
  } else {
    Look(*field);
  }
}

void FieldStates::Edited(Field& field) {
  Replace(field, control_.form.TextOf(field.control));
  field.edited = true;
  const bool agrees = field.role != RowRole::kCommand && IsSame(field, field.text, Program(field));
  Apply(field, agrees ? FieldEvent::kAgreed : FieldEvent::kEdited);
}

bool FieldStates::IsSame(const Field& field, std::string_view a, std::string_view b) const {
  if (a == b) return true;
  return field.kind == RowKind::kNum && IsSameNumber(a, b, control_.codecs.DecimalSeparator());
}

bool FieldStates::Covers(ButtonId button, const PageLayout& page, const Field& field) const {
  if (field.page != &page || field.role == RowRole::kStateless) return false;
  if (button == id::cmdWriteParameter) return StandsOn(*field.group, TabsOf(control_.form, page));
  const LayoutGroup* group = GroupOf(button, page);
  if (group == nullptr) return false;
  return group == field.group || (group->sentTogether > 0 && group->sentTogether == field.group->sentTogether);
}

void FieldStates::Press(ButtonId button, const PageLayout* page) {
  struct Taken {
    Field* field;
    std::string text;
  };
  std::vector<Taken> taken;
  for (Field& field : page == nullptr ? std::span<Field>() : On(*page)) {
    if (!Covers(button, *page, field)) continue;
    Look(field);
    if (field.state == FieldState::kNotWritten) taken.push_back({&field, field.text});
  }
  const std::uint32_t before = control_.WritesSent();
  control_.Click(button);
  if (control_.WritesSent() == before || page == nullptr) return;
  for (Taken& t : taken) {
    PastOf(*t.field).other = std::move(t.text);
    Apply(*t.field, FieldEvent::kWritten);
  }
  rereadAwaited_ = true;
  rereadPage_ = page;
}

bool FieldStates::IsRevertable(const Field& field) const {
  if (field.state != FieldState::kNotWritten || field.role == RowRole::kStateless) return false;
  if (field.kind != RowKind::kList) return true;
  const ChoiceList& list = control_.form.At(ChoiceId{field.control});
  const auto rows = list.Rows();
  return !list.Closed() || std::find(rows.begin(), rows.end(), Program(field)) != rows.end();
}

int FieldStates::Revertable(const PageLayout& page) const {
  const TabsInFront tabs = TabsOf(control_.form, page);
  const std::span<const Field> fields = On(page);
  return static_cast<int>(std::count_if(fields.begin(), fields.end(), [&](const Field& field) {
    return StandsOn(*field.group, tabs) && IsRevertable(field);
  }));
}

int FieldStates::Revert(const PageLayout& page) {
  const TabsInFront tabs = TabsOf(control_.form, page);
  int reverted = 0;
  for (Field& field : On(page)) {
    if (!StandsOn(*field.group, tabs) || !IsRevertable(field)) continue;
    const std::string text = Program(field);
    if (field.role == RowRole::kCommand) {
      control_.SetList(ChoiceId{field.control}, text);
      Look(field);
    } else {
      Put(field, text);
    }
    ++reverted;
  }
  return reverted;
}

// As if typed or picked; a text that is none of the rows as a program sets it.
void FieldStates::Put(Field& field, const std::string& text) {
  if (field.kind != RowKind::kList) return Type(TextId{field.control}, text);
  const ChoiceId list{field.control};
  const auto rows = control_.form.At(list).Rows();
  const auto row = std::find(rows.begin(), rows.end(), text);
  if (row != rows.end()) return Pick(list, static_cast<std::size_t>(row - rows.begin()));
  control_.SetList(list, text);
  Look(field);
}

bool FieldStates::PutBack(ControlId control) {
  const std::optional<std::string> text = ReplacedText(control);
  if (text) Put(*Find(control), *text);
  return text.has_value();
}

void FieldStates::PageOpened(const PageLayout& page, bool again) {
  for (Field& field : On(page)) {
    Look(field);
    field.compares = again && (field.read || field.compares);
    field.read = false;
    Apply(field, FieldEvent::kOpened);
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
  if (rereadPage_ == &page) rereadPage_ = nullptr;
  for (Field& field : On(page)) Apply(field, FieldEvent::kLeft);
}

// ---- the program

void FieldStates::Turn(const FormChanges& changes) {
  if (rereadAwaited_ && !control_.form.At(TimerId::TimerReadAfterWrite).Enabled()) {
    rereadAwaited_ = false;
    rereadEnd_ = now_() + kVerdictMs;
    for (Field& field : fields_) {
      if (field.state != FieldState::kSent || Recalled(field).windowEnd != 0) continue;
      PastOf(field).windowEnd = rereadEnd_;
      Await(field);
    }
  }
  Tick();
  for (const ControlId control : changes.controls) {
    if (Field* field = Find(control)) Look(*field);
    if (control == identity_[kLock] || control == tableVerdict_) ++revision_;  // the cause of a difference
  }
}

void FieldStates::Look(Field& field) {
  const std::string_view text = control_.form.TextOf(field.control);
  const std::uint32_t sets = SetsOf(field.control);
  if (sets != field.sets) {
    const std::string before = std::exchange(field.text, std::string(text));
    field.sets = sets;
    return ProgramSet(field, before);
  }
  if (text == field.text) return;
  if (acting_) {
    Replace(field, text);
    return Apply(field, FieldEvent::kEdited);
  }
  // A list was emptied or filled: nothing was read, but the text that stood there is gone.
  field.text = std::string(text);
  if (field.past) field.past->program.reset();
  Apply(field, FieldEvent::kAgreed);
}

void FieldStates::ProgramSet(Field& field, const std::string& before) {
  if (field.past) field.past->program.reset();
  field.read = true;
  field.edited = false;
  const FieldEvent event = EventOfSet(field, before);
  field.compares = false;
  Apply(field, event);
}

FieldEvent FieldStates::EventOfSet(Field& field, const std::string& before) {
  const std::int64_t now = now_();
  const std::int64_t windowEnd = Recalled(field).windowEnd;
  if (field.state == FieldState::kSent && windowEnd == 0) return FieldEvent::kSetEarly;
  if (windowEnd != 0 && now <= windowEnd && (field.state == FieldState::kSent || IsVerdict(field.state))) {
    return VerdictOf(field);
  }
  if (field.state == FieldState::kNotWritten) {
    if (IsSame(field, field.text, before)) return FieldEvent::kSetSame;
    PastOf(field).other = before;
    return FieldEvent::kSetOther;
  }
  // What was sent stands there after all.
  if (field.state == FieldState::kDiffers && VerdictOf(field) == FieldEvent::kVerdictSame) return FieldEvent::kAgreed;
  if (IsSame(field, field.text, before)) return FieldEvent::kSetSame;  // the operator may have typed it otherwise
  const bool reread = field.page == rereadPage_ && now <= rereadEnd_;
  return !field.live && (field.compares || reread) ? FieldEvent::kSetCompared : FieldEvent::kSetOther;
}

FieldEvent FieldStates::VerdictOf(Field& field) const {
  if (field.role == RowRole::kCommand) return FieldEvent::kVerdictCommand;
  const std::string& sent = Recalled(field).other;
  if (field.text == sent) return FieldEvent::kVerdictSame;
  if (field.kind != RowKind::kNum) return FieldEvent::kVerdictOther;
  const char separator = control_.codecs.DecimalSeparator();
  if (ReadsAs(sent, field.text, separator)) return FieldEvent::kVerdictSame;
  Stored stored = StoredAs(sent, field.text, separator);
  if (!stored.reads) return FieldEvent::kVerdictOther;
  PastOf(field).loss = std::move(stored.loss);
  return FieldEvent::kVerdictStored;
}

// ---- states

void FieldStates::Apply(Field& field, FieldEvent event) {
  const FieldStep step = NextStep(field.state, event);
  if (step == FieldStep::kRest) {
    field.state = field.read ? FieldState::kAsRead : FieldState::kNotRead;
  } else if (step != FieldStep::kStay) {
    field.state = static_cast<FieldState>(step);
  }
  if (step != FieldStep::kStay) {
    const bool ended = (field.state != FieldState::kSent && !IsVerdict(field.state)) || event == FieldEvent::kWritten;
    if (ended && field.past) field.past->windowEnd = 0;
    if (field.past || Fades(field.state)) PastOf(field).until = Fades(field.state) ? now_() + kFadesMs : 0;
    const bool rests = field.state == FieldState::kAsRead || field.state == FieldState::kNotRead;
    if (rests && field.past && !field.past->program) field.past.reset();
  }
  ++revision_;
  Await(field);
}

void FieldStates::Await(const Field& field) {
  const Past& past = Recalled(field);
  if (past.until != 0) deadline_ = std::min(deadline_, past.until);
  if (field.state == FieldState::kSent && past.windowEnd != 0) deadline_ = std::min(deadline_, past.windowEnd + 1);
}

void FieldStates::Tick() {
  const std::int64_t now = now_();
  if (now < deadline_) return;
  deadline_ = kNever;
  for (Field& field : fields_) {
    if (!field.past) continue;
    const std::int64_t until = field.past->until;
    const std::int64_t windowEnd = field.past->windowEnd;
    if (until != 0 && now >= until) Apply(field, FieldEvent::kFaded);
    if (field.state == FieldState::kSent && windowEnd != 0 && now > windowEnd) {
      Apply(field, FieldEvent::kVerdictMissing);
    }
    Await(field);
  }
}

std::optional<std::int64_t> FieldStates::NextDeadline() const {
  if (deadline_ == kNever) return std::nullopt;
  return deadline_;
}

bool FieldStates::HasState(ControlId control) const {
  const Field* field = Find(control);
  return field != nullptr && field->role != RowRole::kStateless;
}

FieldState FieldStates::Of(ControlId control) const {
  return HasState(control) ? Find(control)->state : FieldState::kAsRead;
}

std::string FieldStates::Cause(const Field& field) const {
  if (IdentityText(IdentityItem::kWriteProtection) == "Write Locked") return ", the instrument is write locked";
  const std::string& sent = Recalled(field).other;
  const bool wantsTable =
      field.role == RowRole::kLinearization && (sent == "User Defined(Table)" || sent == "Square Root & Table");
  if (!wantsTable || !tableVerdict_ || SetsOf(tableVerdict_) == 0) return {};
  const std::string_view verdict = control_.form.TextOf(tableVerdict_);
  return verdict == "New Table is Valid" ? std::string() : ", Table Status: " + std::string(verdict);
}

std::string FieldStates::Words(ControlId control) const {
  if (!HasState(control)) return {};
  const Field& field = *Find(control);
  const Past& past = Recalled(field);
  switch (field.state) {
    case FieldState::kAsRead:
      return {};
    case FieldState::kStored:
      return "stored as " + Program(field) + (past.loss.empty() ? "" : ", " + past.loss);
    case FieldState::kDiffers:
      return "device: " + Program(field) + ", sent: " + past.other + Cause(field);
    case FieldState::kReplaced:
      return "replaced by the device, was: " + past.other;
    case FieldState::kNotReadBack:
      return "sent, not read back";
    case FieldState::kShown:
      return "device shows: " + Program(field);
    default:
      return std::string(NameOf(field.state));
  }
}

bool FieldStates::ReadOrEdited(ControlId control) const {
  const Field* field = Find(control);
  return field != nullptr && (field->edited || (field->read && field->role != RowRole::kStateless));
}

bool FieldStates::IsSentBy(ButtonId button, const PageLayout& page, ControlId control) const {
  const Field* field = Find(control);
  return field != nullptr && Covers(button, page, *field);
}

std::string FieldStates::IdentityText(IdentityItem item) const {
  const ControlId control = identity_[static_cast<std::size_t>(item)];
  if (!control || SetsOf(control) == 0) return {};
  const Field* field = Find(control);
  return field != nullptr ? Program(*field) : std::string(control_.form.TextOf(control));
}

std::optional<std::string> FieldStates::ReplacedText(ControlId control) const {
  if (Of(control) != FieldState::kReplaced) return std::nullopt;
  const Field& field = *Find(control);
  const std::string& replaced = Recalled(field).other;
  if (field.kind == RowKind::kList) {
    const auto rows = control_.form.At(ChoiceId{control}).Rows();
    if (std::find(rows.begin(), rows.end(), replaced) == rows.end()) return std::nullopt;
  }
  return replaced;
}

bool FieldStates::Shown(const Field& field) const {
  Form& form = control_.form;
  const Control& control = form.Any(field.control);
  return control.Visible() && control.Enabled() &&
         (!field.group->frame || form.At(FrameId{field.group->frame}).Visible());
}

// ---- what the action area says

namespace {

constexpr FieldState kCountedStates[] = {
    FieldState::kNotWritten,  FieldState::kSent,   FieldState::kDiffers,   FieldState::kReplaced,
    FieldState::kNotReadBack, FieldState::kStored, FieldState::kConfirmed,
};

}  // namespace

std::vector<ControlId> FieldStates::Counted(const PageLayout& page) const {
  std::vector<ControlId> counted;
  for (const Field& field : On(page)) {
    if (field.role == RowRole::kStateless || !Shown(field)) continue;
    if (std::find(std::begin(kCountedStates), std::end(kCountedStates), field.state) != std::end(kCountedStates)) {
      counted.push_back(field.control);
    }
  }
  return counted;
}

std::string FieldStates::Footer(const PageLayout& page) const {
  std::array<int, kFieldStates> counts{};
  const std::vector<ControlId> counted = Counted(page);
  for (const ControlId control : counted) ++counts[static_cast<std::size_t>(Find(control)->state)];
  const auto of = [&](FieldState state) { return counts[static_cast<std::size_t>(state)]; };
  const int all = static_cast<int>(counted.size());
  if (all > 0 && of(FieldState::kConfirmed) + of(FieldState::kStored) == all) return "all confirmed";
  std::string footer;
  for (const FieldState state : kCountedStates) {
    if (of(state) == 0) continue;
    if (!footer.empty()) footer += ", ";
    footer += std::to_string(of(state)) + " " + std::string(NameOf(state));
  }
  return footer;
}

std::vector<int> FieldStates::UnwrittenTabs(const PageLayout& page) const {
  std::vector<int> tabs;
  for (const Field& field : On(page)) {
    if (field.role != RowRole::kStateless && field.state == FieldState::kNotWritten) tabs.push_back(field.group->tab);
  }
  return tabs;
}

std::vector<ControlId> FieldStates::Unwritten() const {
  std::vector<ControlId> unwritten;
  for (const Field& field : fields_) {
    const bool counts = field.state == FieldState::kNotWritten && field.role != RowRole::kStateless;
    if (counts) unwritten.push_back(field.control);
  }
  return unwritten;
}

bool FieldStates::AnyUnwritten(const PageLayout& page) const {
  const TabsInFront tabs = TabsOf(control_.form, page);
  const std::span<const Field> fields = On(page);
  return std::any_of(fields.begin(), fields.end(), [&](const Field& field) {
    return field.state == FieldState::kNotWritten && field.role != RowRole::kStateless && StandsOn(*field.group, tabs);
  });
}

}  // namespace htr60::presentation
