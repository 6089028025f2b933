#include "presentation/focus.h"

#include <algorithm>

#include "presentation/field_states.h"
#include "presentation/page_rows.h"

namespace htr60::presentation {
namespace {

std::optional<Place> PlaceOf(RowKind kind, const LayoutRow& row) {
  switch (kind) {
    case RowKind::kEdit:
    case RowKind::kNum:
      return row.enterPresses ? Place::kPressField : Place::kField;
    case RowKind::kValue:
    case RowKind::kText:
    case RowKind::kStatus:
    case RowKind::kListRo:
      return Place::kReadOnly;
    case RowKind::kList:
      return Place::kList;
    case RowKind::kListBox:
      return Place::kListBox;
    case RowKind::kLabel:
      return Place::kLabel;
    case RowKind::kOpen:
      return Place::kButton;
    case RowKind::kWrite:
      return Place::kWriteButton;
    case RowKind::kMsg:
    case RowKind::kFixed:
      break;
  }
  return std::nullopt;
}

bool IsField(Place place) {
  return place == Place::kField || place == Place::kPressField || place == Place::kReadOnly || place == Place::kLabel ||
         place == Place::kListBox || place == Place::kList;
}

bool IsTypedIn(Place place) { return place == Place::kField || place == Place::kPressField; }

bool TakesFocus(const Control& widget) { return widget.Visible() && widget.Enabled(); }

bool StandsAmong(const std::vector<Stop>& stops, const Spot& spot) {
  return std::any_of(stops.begin(), stops.end(), [&](const Stop& stop) { return stop.spot == spot; });
}

void AddPageStops(std::vector<Stop>& stops, Form& form, const PageLayout& page) {
  const TabsInFront tabs = TabsOf(form, page);
  for (const TabsId strip : {page.strip, tabs.inner}) {
    if (strip && TakesFocus(form.At(strip))) stops.push_back({strip, Region::kPage, Place::kStrip});
  }
  for (const LayoutGroup* group : GroupsInFront(form, page)) {
    if (!IsShown(form, *group)) continue;
    for (const LayoutRow& row : group->rows) {
      const std::pair<ControlId, RowKind> fields[] = {{row.control, row.kind}, {row.second, row.secondKind}};
      for (const auto& [control, kind] : fields) {
        const auto place = PlaceOf(kind, row);
        if (!control || !place || !TakesFocus(form.Any(control)) || !IsShown(form, *group, row)) continue;
        stops.push_back({control, Region::kPage, *place, group, &row});
      }
    }
  }
}

}  // namespace

std::vector<Stop> StopsOf(const Sight& sight) {
  Form& form = sight.control.form;
  std::vector<Stop> stops{{Spot::Part::kTree, Region::kTree, Place::kTree}};
  for (std::size_t i = 0; i < sight.answers; ++i) {
    stops.push_back({Spot::BarButton(i), Region::kPage, Place::kButton});
  }
  if (sight.page != nullptr) AddPageStops(stops, form, *sight.page);
  if (sight.reopens) stops.push_back({Spot::Part::kReopen, Region::kPage, Place::kButton});
  const std::pair<ButtonId, Place> own[] = {
      {id::cmdWriteParameter, Place::kWriteButton}, {id::cmdSave, Place::kButton}, {id::cmdBack, Place::kButton}};
  for (const auto& [button, place] : own) {
    if (TakesFocus(form.At(button))) stops.push_back({button, Region::kActions, place});
  }
  if (sight.counted) stops.push_back({Spot::Part::kFooter, Region::kActions, Place::kButton});
  if (sight.revertable) stops.push_back({Spot::Part::kRevert, Region::kActions, Place::kButton});
  return stops;
}

// ---- arriving

const Stop* Focus::Among(const std::vector<Stop>& stops) const {
  const auto found = std::find_if(stops.begin(), stops.end(), [this](const Stop& stop) { return stop.spot == at_; });
  return found == stops.end() ? nullptr : &*found;
}

void Focus::NoteSet() {
  if (!at_.control) return;
  text_ = control_.form.TextOf(at_.control);
  sets_ = control_.form.Visit(at_.control, [](auto& widget) -> std::uint32_t {
    if constexpr (requires { widget.Sets(); }) {
      return widget.Sets();
    } else {
      return 0;
    }
  });
}

void Focus::Arrive(Spot spot) {
  at_ = spot;
  moved_ = true;
  select_ = false;
  edited_ = false;
  NoteSet();
  before_ = at_.control ? text_ : std::string();
}

void Focus::Came(Spot spot) {
  if (spot == at_) return;
  pending_ = Pending::kNone;  // the operator goes before
  Arrive(spot);
}

void Focus::GoTo(Spot spot) {
  Arrive(spot);
  select_ = true;
}

void Focus::PutBack() {
  edited_ = false;
  select_ = true;
}

// ---- acts

void Focus::NodeActivated() {
  openers_.clear();
  pending_ = Pending::kTree;
}

void Focus::PageOpened(ControlId opener) {
  openers_.push_back(opener);
  pending_ = Pending::kFirstField;
}

void Focus::PageReopened() { pending_ = Pending::kFirstField; }

void Focus::Returned() {
  opener_ = {};
  if (!openers_.empty()) {
    opener_ = openers_.back();
    openers_.pop_back();
  }
  pending_ = Pending::kOpener;
}

void Focus::BarAsks() {
  if (at_.part != Spot::Part::kBar) beforeBar_ = at_;
  pending_ = Pending::kBar;
}

void Focus::Turn(const std::vector<Stop>& stops, const PageLayout* page) {
  const Stop* stop = Among(stops);
  moved_ = false;
  Settle(stops, page, stop == nullptr && !(at_ == Spot()));
  if (!at_.control) return;
  if (stop != nullptr && stop->spot == at_ && stop->place == Place::kLabel) {
    const auto known =
        std::find_if(labels_.begin(), labels_.end(), [&](const auto& e) { return e.first == stop->group; });
    if (known == labels_.end()) {
      labels_.emplace_back(stop->group, at_.control);
    } else {
      known->second = at_.control;
    }
  }
  const std::uint32_t sets = sets_;
  const std::string text = std::move(text_);
  NoteSet();
  if (edited_ || (sets == sets_ && (text == text_ || stop == nullptr || stop->place != Place::kLabel))) return;
  before_ = text_;
  select_ = true;
}

void Focus::Settle(const std::vector<Stop>& stops, const PageLayout* page, bool lost) {
  switch (std::exchange(pending_, Pending::kNone)) {
    case Pending::kFirstField: {
      const auto first =
          std::find_if(stops.begin(), stops.end(), [](const Stop& stop) { return IsTypedIn(stop.place); });
      if (first == stops.end()) return ToPageStart(stops);
      return GoTo(first->spot);
    }
    case Pending::kOpener:
      return StandsAmong(stops, opener_) ? GoTo(opener_) : ToPageStart(stops);
    case Pending::kTree:
      if (lost) GoTo(Spot::Part::kTree);
      return;
    case Pending::kBar:
      if (StandsAmong(stops, Spot::BarButton(0))) GoTo(Spot::BarButton(0));
      return;
    case Pending::kNone:
      break;
  }
  if (!lost) return;
  if (at_.part == Spot::Part::kBar && StandsAmong(stops, beforeBar_)) return GoTo(beforeBar_);
  if (page == nullptr) return ToPageStart(stops);
  ToInnermostStrip(stops);
}

// A program never leads to a button that writes: the next Space would press it.
void Focus::ToPageStart(const std::vector<Stop>& stops) {
  for (const Stop& stop : stops) {
    if (stop.region == Region::kPage && stop.place != Place::kWriteButton) return GoTo(stop.spot);
  }
  const Spot back = ControlId(id::cmdBack);
  GoTo(StandsAmong(stops, back) ? back : Spot(Spot::Part::kTree));
}

void Focus::ToInnermostStrip(const std::vector<Stop>& stops) {
  const auto strip =
      std::find_if(stops.rbegin(), stops.rend(), [](const Stop& stop) { return stop.place == Place::kStrip; });
  if (strip == stops.rend()) return ToPageStart(stops);
  GoTo(strip->spot);
}

// ---- steps

// Of the labels of a group Tab stops at one: where the focus was last, else at the first.
bool Focus::IsStop(const std::vector<Stop>& stops, const Stop& stop) const {
  if (stop.place != Place::kLabel) return true;
  const auto stands = [&](const Stop& other) { return other.place == Place::kLabel && other.group == stop.group; };
  if (const Stop* now = Among(stops); now != nullptr && stands(*now)) return now == &stop;
  for (const auto& [group, label] : labels_) {
    if (group != stop.group) continue;
    const Spot last = label;
    if (StandsAmong(stops, last)) return stop.spot == last;
  }
  return std::find_if(stops.begin(), stops.end(), stands)->spot == stop.spot;
}

void Focus::Step(const std::vector<Stop>& stops, int step) {
  const Stop* now = Among(stops);
  const auto count = static_cast<int>(stops.size());
  int at = now == nullptr ? (step > 0 ? -1 : 0) : static_cast<int>(now - stops.data());
  for (int i = 0; i < count; ++i) {
    at = (at + step + count) % count;
    const Stop& next = stops[static_cast<std::size_t>(at)];
    if (IsStop(stops, next)) return GoTo(next.spot);
  }
}

void Focus::StepRegion(const std::vector<Stop>& stops, int step) {
  const Stop* now = Among(stops);
  int region = now == nullptr ? 0 : static_cast<int>(now->region);
  for (int i = 0; i < kRegions; ++i) {
    region = (region + step + kRegions) % kRegions;
    for (const Stop& stop : stops) {
      if (static_cast<int>(stop.region) == region && IsStop(stops, stop)) return GoTo(stop.spot);
    }
  }
}

void Focus::NextField(const std::vector<Stop>& stops) {
  const Stop* now = Among(stops);
  if (now == nullptr) return;
  for (const Stop* next = now + 1; next != stops.data() + stops.size(); ++next) {
    if (IsField(next->place) && IsStop(stops, *next)) return GoTo(next->spot);
  }
}

void Focus::StepLabel(const std::vector<Stop>& stops, int step) {
  const Stop* now = Among(stops);
  if (now == nullptr) return;
  const auto count = static_cast<int>(stops.size());
  for (int at = static_cast<int>(now - stops.data()) + step; at >= 0 && at < count; at += step) {
    const Stop& next = stops[static_cast<std::size_t>(at)];
    if (next.group != now->group) return;
    if (next.place == Place::kLabel) return GoTo(next.spot);
  }
}

void Focus::EnterGroup(const std::vector<Stop>& stops, const LayoutGroup* group) {
  const Stop* button = nullptr;
  for (const Stop& stop : stops) {
    if (stop.group != group || !IsStop(stops, stop)) continue;
    if (IsField(stop.place)) return GoTo(stop.spot);
    if (button == nullptr) button = &stop;
  }
  if (button != nullptr) GoTo(button->spot);
}

}  // namespace htr60::presentation
