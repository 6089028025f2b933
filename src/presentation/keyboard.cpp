#include "presentation/keyboard.h"

#include <algorithm>
#include <utility>

#include "presentation/field_help.h"
#include "presentation/presentation.h"

namespace htr60::presentation {

std::vector<Stop> Keyboard::Stops() const { return StopsOf(presented_.InSight()); }

Place Keyboard::PlaceNow(const std::vector<Stop>& stops) const {
  if (list_ != nullptr) return list_->HasSearchLine() ? Place::kSearchLine : Place::kOpenList;
  const Stop* stop = focus_.Among(stops);
  return stop == nullptr ? Place::kElsewhere : stop->place;
}

KeyAct Keyboard::Means(const KeyPress& press) const { return Meaning(press, PlaceNow(Stops())); }

KeyOutcome Keyboard::Press(const KeyPress& press) {
  const std::vector<Stop> stops = Stops();
  const KeyAct act = Meaning(press, PlaceNow(stops));
  KeyOutcome outcome;
  outcome.taken = true;
  switch (act) {
    case KeyAct::kToolkit:
      outcome.taken = false;
      break;
    case KeyAct::kNothing:
      break;
    case KeyAct::kHelp:
      outcome.help = true;
      break;
    case KeyAct::kActivateNode:
      outcome.activatesNode = true;
      break;
    case KeyAct::kCopy:
      outcome.copy = std::string(control_.form.TextOf(At().control));
      break;
    case KeyAct::kPress:
      outcome.closes = PressAt(stops);
      break;
    case KeyAct::kMnemonic:
      outcome.taken = PressMnemonic(press.text, stops);
      break;
    default:
      outcome.taken = MoveFocus(act, stops) || UseList(act, press) || ActOnPage(act, stops);
      break;
  }
  return outcome;
}

bool Keyboard::MoveFocus(KeyAct act, const std::vector<Stop>& stops) {
  switch (act) {
    case KeyAct::kNextStop:
      focus_.Step(stops, 1);
      return true;
    case KeyAct::kPreviousStop:
      focus_.Step(stops, -1);
      return true;
    case KeyAct::kNextRegion:
      focus_.StepRegion(stops, 1);
      return true;
    case KeyAct::kPreviousRegion:
      focus_.StepRegion(stops, -1);
      return true;
    case KeyAct::kNextField:
      focus_.NextField(stops);
      return true;
    case KeyAct::kNextLabel:
      focus_.StepLabel(stops, 1);
      return true;
    case KeyAct::kPreviousLabel:
      focus_.StepLabel(stops, -1);
      return true;
    default:
      return false;
  }
}

bool Keyboard::UseList(KeyAct act, const KeyPress& press) {
  constexpr struct {
    KeyAct act;
    ListMove move;
  } kMoves[] = {{KeyAct::kListUp, ListMove::kUp},         {KeyAct::kListDown, ListMove::kDown},
                {KeyAct::kListPageUp, ListMove::kPageUp}, {KeyAct::kListPageDown, ListMove::kPageDown},
                {KeyAct::kListHome, ListMove::kHome},     {KeyAct::kListEnd, ListMove::kEnd}};
  for (const auto& [moving, move] : kMoves) {
    if (moving != act) continue;
    list_->Move(move);
    return true;
  }
  switch (act) {
    case KeyAct::kOpenList:
      Open(At().control);
      return true;
    case KeyAct::kOpenListSearching:
      Open(At().control);
      Edit(press.text);
      return true;
    case KeyAct::kFindRow:
      list_->Find(press.text);
      return true;
    case KeyAct::kTakeRow:
      Take(list_->Current());
      return true;
    case KeyAct::kCloseList:
      Close();
      return true;
    default:
      return false;
  }
}

bool Keyboard::ActOnPage(KeyAct act, const std::vector<Stop>& stops) {
  switch (act) {
    case KeyAct::kBack:
      PressIfEnabled(id::cmdBack);
      return true;
    case KeyAct::kPutBack:
      PutBack(stops);
      return true;
    case KeyAct::kActivateAgain:
      presented_.ActivateAgain();
      return true;
    case KeyAct::kNextTab:
      StepTab(1);
      return true;
    case KeyAct::kPreviousTab:
      StepTab(-1);
      return true;
    case KeyAct::kTabRight:
      StepTabHere(1);
      return true;
    case KeyAct::kTabLeft:
      StepTabHere(-1);
      return true;
    default:
      return false;
  }
}

// ---- presses

void Keyboard::PressIfEnabled(ButtonId button) {
  const Button& pressed = control_.form.At(button);
  if (pressed.Enabled() && pressed.Visible()) presented_.Press(button);
}

// True where the window closes now.
bool Keyboard::PressAt(const std::vector<Stop>& stops) {
  const Stop* stop = focus_.Among(stops);
  if (stop == nullptr) return false;
  switch (stop->spot.part) {
    case Spot::Part::kControl:
      PressIfEnabled(stop->place == Place::kPressField ? stop->row->enterPresses : ButtonId{stop->spot.control});
      break;
    case Spot::Part::kFooter:
      presented_.StepCounted();
      break;
    case Spot::Part::kRevert:
      presented_.Revert();
      break;
    case Spot::Part::kReopen:
      presented_.Reopen();
      break;
    case Spot::Part::kBar:
      return presented_.AnswerBar(stop->spot.answer);
    case Spot::Part::kTree:
    case Spot::Part::kElsewhere:
      break;
  }
  return false;
}

// The letters that the operator sees: those of the screen as shown last.
bool Keyboard::PressMnemonic(const std::string& letter, const std::vector<Stop>& stops) {
  const Screen& screen = presented_.Shown();
  const auto bears = [&](const auto& item) { return item.mnemonic != '\0' && letter == std::string(1, item.mnemonic); };
  const auto button = std::find_if(screen.buttons.begin(), screen.buttons.end(), bears);
  if (button != screen.buttons.end()) {
    PressIfEnabled(ButtonId{button->control});
    return true;
  }
  const auto group = std::find_if(screen.groups.begin(), screen.groups.end(), bears);
  if (group == screen.groups.end()) return false;
  focus_.EnterGroup(stops, group->group);
  return true;
}

// As if typed or picked. A command is not put back: every pick of one orders it.
void Keyboard::PutBack(const std::vector<Stop>& stops) {
  const Stop* stop = focus_.Among(stops);
  const std::string before = focus_.TextBefore();
  if (stop == nullptr || control_.form.TextOf(stop->spot.control) == before) return;
  if (stop->place != Place::kList) {
    presented_.Type(TextId{stop->spot.control}, before);
    return focus_.PutBack();
  }
  if (stop->row->role == RowRole::kCommand) return;
  const ChoiceId list{stop->spot.control};
  const auto rows = control_.form.At(list).Rows();
  const auto row = std::find(rows.begin(), rows.end(), before);
  if (row == rows.end()) return;
  presented_.Pick(list, static_cast<std::size_t>(row - rows.begin()));
  focus_.PutBack();
}

// ---- tabs

void Keyboard::StepTab(int step) {
  const PageLayout* page = presented_.Page();
  if (page == nullptr || !page->strip) return;
  const TabsInFront tabs = TabsOf(control_.form, *page);
  const TabsId strip = tabs.inner ? tabs.inner : page->strip;
  const TabStrip& shown = control_.form.At(strip);
  const auto count = static_cast<int>(shown.Captions().size());
  if (count > 0) presented_.ClickTab(strip, (shown.Index() + step + count) % count);
}

void Keyboard::StepTabHere(int step) {
  const TabsId strip{At().control};
  const TabStrip& shown = control_.form.At(strip);
  const int next = shown.Index() + step;
  if (next >= 0 && next < static_cast<int>(shown.Captions().size())) presented_.ClickTab(strip, next);
}

// ---- the open list

void Keyboard::Open(ControlId control) {
  if (KindOf(control) != ControlKind::kChoice) return;
  const ChoiceList& list = control_.form.At(ChoiceId{control});
  if (!list.Enabled() || list.Rows().empty()) return;
  list_ = std::make_shared<ListSearch>(list.Rows(), list.Text());
  listOf_ = control;
}

void Keyboard::Search(std::string_view text) {
  if (list_ != nullptr && list_->HasSearchLine() && text != list_->Text()) list_->Search(text);
}

void Keyboard::Take(int line) {
  const int row = list_ == nullptr ? ListSearch::kNone : list_->RowAt(line);
  if (row == ListSearch::kNone) return;
  const ChoiceId list{std::exchange(listOf_, {})};
  const std::shared_ptr<ListSearch> taken = std::exchange(list_, nullptr);
  const auto rows = control_.form.At(list).Rows();
  const auto at = static_cast<std::size_t>(row);
  // The program may have filled the list anew while it stood open.
  if (at < rows.size() && rows[at] == taken->Row(row)) presented_.Pick(list, at);
}

void Keyboard::Close() {
  list_ = nullptr;
  listOf_ = {};
}

bool Keyboard::Edit(std::string_view letters) {
  if (list_ != nullptr) {
    if (list_->HasSearchLine()) {
      Search(list_->Text() + std::string(letters));
    } else {
      list_->Find(letters);
    }
    return true;
  }
  const std::vector<Stop> stops = Stops();
  const Stop* stop = focus_.Among(stops);
  if (stop == nullptr || (stop->place != Place::kField && stop->place != Place::kPressField)) return false;
  const TextId field{stop->spot.control};
  const std::string text = focus_.TakeSelect() ? std::string() : control_.form.At(field).Text();
  presented_.Type(field, text + std::string(letters));
  return true;
}

// ---- once a turn

void Keyboard::Turn(bool changed) {
  if (list_ == nullptr && (focus_.Rests() || (!changed && !focus_.Moved()))) return;
  const std::vector<Stop> stops = Stops();
  focus_.Turn(stops, presented_.Page());
  if (list_ == nullptr) return;
  const bool stands =
      std::any_of(stops.begin(), stops.end(), [this](const Stop& stop) { return stop.spot == Spot(listOf_); });
  if (!stands) Close();
}

HelpText Keyboard::Help() const {
  const Screen& screen = presented_.Shown();
  if (presented_.Page() == nullptr) return {.title = screen.message, .lines = {}};
  HelpText help{.title = screen.title, .lines = {screen.purpose}};
  const std::vector<Stop> stops = Stops();
  const Stop* stop = focus_.Among(stops);
  if (stop == nullptr || stop->row == nullptr) return help;
  const std::string_view note = NoteOf(*stop->row, stop->spot.control);
  if (!note.empty()) help.lines.emplace_back(note);
  return help;
}

}  // namespace htr60::presentation
