#include "presentation/presentation.h"

#include <algorithm>
#include <utility>

#include "presentation/numbers_shown.h"
#include "presentation/page_in_words.h"
#include "presentation/page_rows.h"

namespace htr60::presentation {
namespace {

constexpr std::int64_t kMessageMs = 10'000;
constexpr std::string_view kNoPage = "No page is open. Choose a node in the tree.";
constexpr IdentityItem kIdentity[] = {IdentityItem::kTag,          IdentityItem::kManufacturer,
                                      IdentityItem::kSerialNumber, IdentityItem::kFirmware,
                                      IdentityItem::kMeasurement,  IdentityItem::kWriteProtection};

// Marks an act for its time: turns inside it leave the page that it opens to the act.
class Acting {
 public:
  explicit Acting(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
  ~Acting() { flag_ = before_; }
  Acting(const Acting&) = delete;
  Acting& operator=(const Acting&) = delete;

 private:
  bool& flag_;
  bool before_;
};

const NodeRow* NodeOf(UserCntrl& control, std::string_view text) {
  for (const PageUnit* unit : control.Pages().units) {
    for (const NodeRow& row : unit->nodes) {
      const bool named =
          std::any_of(row.texts.begin(), row.texts.end(), [&](const NodeText& node) { return node.text == text; });
      if (named && (row.when == nullptr || row.when(control))) return &row;
    }
  }
  return nullptr;
}

const LayoutRow* RowOfButton(const PageLayout& page, ButtonId button) {
  for (const LayoutGroup& group : page.groups) {
    for (const LayoutRow& row : group.rows) {
      if (row.control == button) return &row;
    }
  }
  return nullptr;
}

// Back is no write; a button that takes a point and empties its field has an answer of its own.
bool IsWrite(const PageLayout* page, ButtonId button) {
  if (button == id::cmdWriteParameter) return true;
  const LayoutRow* row = page == nullptr ? nullptr : RowOfButton(*page, button);
  return row != nullptr && row->kind == RowKind::kWrite && row->role != RowRole::kStateless;
}

}  // namespace

Presentation::Presentation(UserCntrl& control, Surroundings surroundings)
    : control_(control),
      surroundings_(std::move(surroundings)),
      states_(control, surroundings_.now),
      line_(surroundings_.timeOfDay),
      health_(control),
      keyboard_(*this, control),
      paste_(control),
      announcer_(control) {
  for (const PageUnit* unit : control_.Pages().units) {
    for (const PageLayout& page : unit->layouts) {
      if (page.IsLaidOut()) layouts_.push_back(&page);
    }
  }
  page_ = InFront();
  title_ = TitleOf(page_);
  line_.Opened(page_);
}

// ---- the page in front

const PageLayout* Presentation::InFront() {
  const FrameId frame = control_.form.FrameShownLast();
  if (!frame || !control_.form.At(frame).Visible()) return nullptr;
  const auto found =
      std::find_if(layouts_.begin(), layouts_.end(), [&](const PageLayout* page) { return page->frame == frame; });
  return found == layouts_.end() ? nullptr : *found;
}

std::string Presentation::TitleOf(const PageLayout* page) const {
  return page == nullptr ? std::string() : std::string(TitleNow(control_, *page));
}

// An act that opens a message box may have left its page before it writes: what it writes is not left, so nothing is
// said before the act has ended.
void Presentation::NotePage() {
  touched_ = true;
  const PageLayout* now = InFront();
  if (now != page_ && page_ != nullptr) {
    if (left_.page == nullptr) left_ = {page_, title_};
    states_.PageLeft(*page_);
    paste_.End();
  }
  page_ = now;
  title_ = TitleOf(now);
  if (acting_ || left_.page == nullptr) return;
  const Left left = std::exchange(left_, {});
  SayLeft(*left.page, left.title);
}

void Presentation::Opened(const PageLayout* page, bool again) {
  touched_ = true;
  if (page != nullptr) states_.PageOpened(*page, again);
  line_.Opened(page);
}

// ---- acts

void Presentation::Activate(std::string_view text, int position) {
  const PageLayout* before = page_;
  const std::string titleBefore = title_;
  const bool sameNode = activation_.node == text;
  const NodeRow* row = NodeOf(control_, text);
  const bool hasPage =
      row != nullptr && row->frame &&
      std::any_of(layouts_.begin(), layouts_.end(), [&](const PageLayout* page) { return page->frame == row->frame; });
  activation_ = {.node = std::string(text),
                 .pageName = std::string(row == nullptr ? "" : row->page),
                 .refused = control_.ConnectionState == kDisconnected,
                 .hasPage = hasPage};
  const std::string node = activation_.node;
  {
    const Acting acting(acting_);
    control_.Activate(node, position);
  }
  states_.NodeActivated();
  keyboard_.NodeActivated();
  NotePage();
  Opened(page_, sameNode && page_ == before && title_ == titleBefore);
}

// The last text of the start's page that stands in a tree is the page's own.
std::string Presentation::StartNode() const {
  std::string node;
  for (const PageUnit* unit : control_.Pages().units) {
    for (const NodeRow& row : unit->nodes) {
      if (!(row.frame == control_.Pages().start.frame)) continue;
      for (const NodeText& text : row.texts) {
        if (text.trees.Any()) node = text.text;
      }
    }
  }
  return node;
}

std::string Presentation::CurrentNode() const {
  return control_.LastActivated().empty() ? StartNode() : control_.LastActivated();
}

void Presentation::ActivateNode(const std::string& node) {
  const auto& nodes = control_.form.treeView.Nodes();
  const auto found = std::find_if(nodes.begin(), nodes.end(), [&](const TreeNode& n) { return n.text == node; });
  Activate(node, found == nodes.end() ? 0 : static_cast<int>(found - nodes.begin()) + 1);
}

void Presentation::ActivateAgain() { ActivateNode(CurrentNode()); }

bool Presentation::Reopen() {
  if (!CanReopen()) return false;
  ActivateAgain();
  keyboard_.PageReopened();
  return true;
}

void Presentation::Press(ButtonId button) {
  const PageLayout* before = page_;
  const std::string titleBefore = title_;
  const bool write = IsWrite(before, button);
  if (write) message_.clear();
  const std::uint32_t sentBefore = control_.ReadsSent() + control_.WritesSent();
  {
    const Acting acting(acting_);
    states_.Press(button, before);
  }
  NotePage();
  const bool moved = page_ != before || title_ != titleBefore;
  touched_ = true;
  if (moved && button == id::cmdBack) {
    keyboard_.Returned();
  } else if (moved && page_ != nullptr) {
    keyboard_.PageOpened(button);
  }
  if (button == id::cmdBack) {
    line_.Returned(page_);
  } else if (moved) {
    Opened(page_, false);
  } else if (write && control_.ReadsSent() + control_.WritesSent() == sentBefore) {
    SayNothingSent(button);
  }
}

void Presentation::ClickTab(TabsId strip, int index) { control_.ClickTab(strip, index); }

void Presentation::Type(TextId field, std::string_view text) {
  keyboard_.Edited(field);
  states_.Type(field, text);
  Edited(field);
}

void Presentation::Pick(ChoiceId list, std::size_t row) {
  keyboard_.Edited(list);
  states_.Pick(list, row);
  Edited(list);
}

Sight Presentation::InSight() {
  const auto bar = Bar();
  return {.control = control_,
          .page = page_,
          .answers = bar ? bar->buttons.size() : 0,
          .reopens = CanReopen(),
          .counted = page_ != nullptr && !states_.Counted(*page_).empty(),
          .revertable = page_ != nullptr && states_.Revertable(*page_) > 0};
}

int Presentation::Revert() { return page_ == nullptr ? 0 : states_.Revert(*page_); }

// ---- the turn

FormChanges Presentation::Turn() {
  FormChanges changes = control_.form.TakeChanges();
  TakeTraffic();
  if (activation_.refused && control_.ConnectionState == kConnected) activation_.offered = touched_ = true;
  states_.Turn(changes);
  health_.Turn(changes, surroundings_.now());
  if (changes.any()) {
    touched_ = true;
    const PageLayout* before = page_;
    NotePage();
    if (!acting_ && page_ != before) Opened(page_, false);
  }
  if (asksToClose_ && states_.Unwritten().empty()) asksToClose_ = false;
  const std::int64_t now = surroundings_.now();
  announcer_.Turn(changes, page_, page_ != nullptr && line_.Late(now) ? line_.Text(now) : std::string());
  keyboard_.Turn(IsOld());
  return changes;
}

void Presentation::TakeTraffic() {
  const std::int64_t now = surroundings_.now();
  for (const SentRequest& request : control_.TakeSent()) {
    touched_ = true;
    if (!request.write) line_.Sent(request.code, now);
  }
  touched_ = line_.SetInterval(PollingInterval()) || touched_;
  for (const int code : control_.TakeHandledCodes()) {
    touched_ = true;
    line_.Answered(code / 100, now);
  }
}

int Presentation::PollingInterval() const {
  for (std::size_t i = 0; i < kTimerCount; ++i) {
    const Timer& timer = std::as_const(control_.form).At(static_cast<TimerId>(i));
    if (control_.IsPolling(timer.Id()) && timer.Running()) return timer.Interval();
  }
  return 0;
}

// ---- the message line

void Presentation::Say(std::string sentence) {
  touched_ = true;
  message_ = std::move(sentence);
  messageEnd_ = surroundings_.now() + kMessageMs;
  announcer_.Say(message_);
  Changed();
}

// "Left without writing: 3 fields on Level, Settings and Simulate."
void Presentation::SayLeft(const PageLayout& page, const std::string& title) {
  std::vector<int> tabs = states_.UnwrittenTabs(page);
  if (tabs.empty()) return;
  std::string sentence = "Left without writing: " + std::to_string(tabs.size());
  sentence += tabs.size() == 1 ? " field on " : " fields on ";
  sentence += title;
  std::sort(tabs.begin(), tabs.end());
  tabs.erase(std::unique(tabs.begin(), tabs.end()), tabs.end());
  if (tabs.front() < 0) tabs.erase(tabs.begin());
  for (std::size_t i = 0; i < tabs.size(); ++i) {
    const auto captions = control_.form.At(page.strip).Captions();
    sentence += i > 0 && i + 1 == tabs.size() ? " and " : ", ";
    sentence += Trimmed(captions[static_cast<std::size_t>(tabs[i])]);
  }
  Say(sentence + ".");
}

void Presentation::SayNothingSent(ButtonId button) {
  if (control_.ConnectionState != kConnected) return Say("Nothing sent: the device is disconnected.");
  if (button == id::cmdWriteParameter && !control_.WritesHere()) {
    return Say("Nothing sent: this page writes nothing here.");
  }
  if (page_ == nullptr) return Say("Nothing sent.");
  for (const LayoutGroup& group : page_->groups) {
    for (const LayoutRow& row : group.rows) {
      for (const bool second : {false, true}) {
        const ControlId field = second ? row.second : row.control;
        if ((second ? row.secondKind : row.kind) != RowKind::kNum || !states_.IsSentBy(button, *page_, field)) continue;
        const std::string hint = NumberHint(control_.form.TextOf(field), control_.codecs.DecimalSeparator());
        if (hint.empty()) continue;
        std::string_view caption = Trimmed(CaptionOf(control_.form, row, second));
        if (caption.ends_with(':')) caption.remove_suffix(1);
        return Say("Nothing sent: " + std::string(caption) + ": " + hint + ".");
      }
    }
  }
  Say("Nothing sent.");
}

// ---- what is shown

bool Presentation::CanReopen() const { return page_ == nullptr && activation_.offered && activation_.hasPage; }

std::string Presentation::WhyEmpty() const {
  if (activation_.node.empty()) return std::string(kNoPage);
  if (!activation_.hasPage) {
    const bool offline = activation_.pageName.starts_with("OffLine");
    return (offline ? activation_.pageName : activation_.node) + ": nothing to show.";
  }
  if (activation_.refused) return activation_.node + ": not read, the device is disconnected.";
  return std::string(kNoPage);
}

void Presentation::AddStrip(Screen& screen) {
  if (!surroundings_.simulated.empty()) {
    shownActive_ = surroundings_.active ? surroundings_.active() : std::string();
    screen.badges.push_back(surroundings_.simulated + (shownActive_.empty() ? "" : ", ") + shownActive_);
  }
  if (control_.ConnectionState == kDisconnected) screen.badges.emplace_back("DISCONNECTED");
  for (const IdentityItem item : kIdentity) {
    const std::string text = states_.IdentityText(item);
    screen.identity.emplace_back(Trimmed(text));
  }
}

void Presentation::AddFrameButtons(Screen& screen) {
  Form& form = control_.form;
  const struct {
    Button& button;
    const char* caption;
    char letter;
  } kOwn[] = {{form.cmdBack, "Back", 'B'}, {form.cmdSave, "Save", 'S'}, {form.cmdWriteParameter, "Write", 'W'}};
  for (const auto& own : kOwn) {
    const std::string& text = own.button.Text();
    screen.buttons.push_back({own.button.Id(), text.empty() ? own.caption : text, own.button.Enabled(), own.letter});
  }
}

// The same hint as behind the field, whichever page shows it.
bool Presentation::BearsHint(ControlId control, double number) const {
  Form& form = control_.form;
  return IsMeantOtherwise(form.TextOf(control), number, control_.codecs.DecimalSeparator()) &&
         form.Any(control).Enabled() && states_.ReadOrEdited(control);
}

const Figure& Presentation::Drawing() {
  const ControlId focus = keyboard_.At().control;
  if (!figureOld_ && focus == figureFocus_) return figure_;
  figureOld_ = false;
  figureFocus_ = focus;
  figure_ = page_ == nullptr ? Figure{} : MakeFigure();
  return figure_;
}

Figure Presentation::MakeFigure() {
  const auto lastRead = line_.LastAnswer(page_->figureReads);
  return ComputeFigure(
      page_->figure, {.form = control_.form,
                      .decimalSeparator = control_.codecs.DecimalSeparator(),
                      .known = [this](ControlId control) { return states_.SetOrTypedSinceNode(control); },
                      .unwritten = [this](ControlId control) { return states_.Of(control) == FieldState::kNotWritten; },
                      .focus = figureFocus_,
                      .hinted = [this](ControlId control, double number) { return BearsHint(control, number); },
                      .lastRead = lastRead ? surroundings_.timeOfDay(*lastRead) : std::string()});
}

std::optional<ScreenFigure> Presentation::FigureOf() {
  if (page_->figure == FigureKind::kNone) return std::nullopt;
  const Figure& figure = Drawing();
  ScreenFigure shown{.sentence = figure.sentence, .above = {}, .remarks = figure.remarks};
  if (!figure.verdict.empty()) shown.above.push_back(figure.verdictCaption + ": " + figure.verdict);
  for (const std::string& alarm : figure.alarms) shown.above.push_back(figure.alarmCaption + ": " + alarm);
  shown.above.insert(shown.above.end(), figure.above.begin(), figure.above.end());
  return shown;
}

void Presentation::AddPage(Screen& screen) {
  Form& form = control_.form;
  const PageLayout& page = *page_;
  const std::int64_t now = surroundings_.now();
  screen.frame = page.frame;
  screen.title = title_;
  screen.purpose = std::string(page.purpose);
  screen.dataLine = line_.Text(now);
  screen.late = line_.Late(now) && !screen.dataLine.empty();
  screen.footer = states_.Footer(page);
  if (page.strip) {
    const TabsInFront tabs = TabsOf(form, page);
    screen.tabs.push_back({page.strip, tabs.tab, form.At(page.strip).Captions()});
    if (tabs.inner) screen.tabs.push_back({tabs.inner, tabs.innerTab, form.At(tabs.inner).Captions()});
  }
  AddRows(screen, control_, states_, page, line_.Stale(now));
  screen.revertable = states_.Revertable(page);
  screen.unwritten = states_.AnyUnwritten(page);
  screen.figure = FigureOf();
}

const Screen& Presentation::Show() {
  states_.Tick();
  if (!IsOld()) return screen_;
  figureOld_ = true;
  Screen screen;
  screen.rows = std::move(screen_.rows);  // written over
  AddStrip(screen);
  screen.health = health_.State();
  screen.healthText = health_.Text();
  AddWaitingPanel(screen, control_);
  if (page_ != nullptr) {
    AddPage(screen);
    if (surroundings_.now() < messageEnd_) screen.message = message_;
  } else {
    screen.message = WhyEmpty();
    if (CanReopen()) screen.buttons.push_back({.caption = "Open " + activation_.node});
  }
  AddFrameButtons(screen);
  screen.rows.resize(screen.rowsUsed);
  screen.bar = Bar();
  screen_ = std::move(screen);
  touched_ = false;
  shownState_ = control_.ConnectionState;
  shownRevision_ = states_.Revision();
  shownUntil_ = NextDeadline();
  return screen_;
}

// Something may have changed since it was made.
bool Presentation::IsOld() const {
  return touched_ || control_.form.HasChanges() || shownRevision_ != states_.Revision() ||
         shownState_ != control_.ConnectionState || screen_.bar != Bar() ||
         (surroundings_.active && shownActive_ != surroundings_.active()) ||
         (shownUntil_ && surroundings_.now() >= *shownUntil_);
}

const ScreenRow* Presentation::Row(ControlId control) const {
  const auto row = std::find_if(screen_.rows.begin(), screen_.rows.end(),
                                [&](const ScreenRow& candidate) { return candidate.control == control; });
  return row == screen_.rows.end() ? nullptr : &*row;
}

std::optional<std::int64_t> Presentation::NextDeadline() const {
  const std::int64_t now = surroundings_.now();
  std::optional<std::int64_t> next = states_.NextDeadline();
  const auto consider = [&](std::optional<std::int64_t> at) {
    if (at && (!next || *at < *next)) next = at;
  };
  consider(line_.NextDeadline(now));
  if (!message_.empty() && now < messageEnd_) consider(messageEnd_);
  return next;
}

bool Presentation::Settled() const {
  return line_.HasRead() && !line_.Waits() && !std::as_const(control_.form).At(TimerId::TimerReadAfterWrite).Enabled();
}

ControlId Presentation::StepCounted() {
  if (page_ == nullptr) return {};
  const std::vector<ControlId> counted = states_.Counted(*page_);
  if (counted.empty()) return {};
  const auto at = std::find(counted.begin(), counted.end(), counted_);
  counted_ = at == counted.end() || at + 1 == counted.end() ? counted.front() : *(at + 1);
  for (const LayoutGroup& group : page_->groups) {
    const bool holds = std::any_of(group.rows.begin(), group.rows.end(), [&](const LayoutRow& row) {
      return row.control == counted_ || row.second == counted_;
    });
    if (!holds) continue;
    if (group.tab >= 0) ClickTab(page_->strip, group.tab);
    const TabsInFront tabs = TabsOf(control_.form, *page_);
    if (group.innerTab >= 0) ClickTab(tabs.inner, group.innerTab);
  }
  keyboard_.GoTo(counted_);
  return counted_;
}

}  // namespace htr60::presentation
