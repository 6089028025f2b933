#include "observe/trend.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "observe/csv.h"
#include "observe/wire_words.h"
#include "presentation/page_in_words.h"
#include "presentation/page_rows.h"
#include "text/numbers.h"

namespace htr60::observe {
namespace {

constexpr int kLimitsRead = 11;
constexpr std::int64_t kMinute = 60'000;
constexpr std::int64_t kLongest = 61 * kMinute;  // a little more than the longest window shows
constexpr std::int64_t kWithoutTimer = 10'000;   // what is not polled is stale after it
constexpr std::size_t kMostTexts = 64;           // units or statuses of a field

/// Limits of a block: by their parameter, and what their line is called.
constexpr std::pair<std::string_view, std::string_view> kLimits[] = {
    {"hiHi", "Upper alarm"}, {"hi", "Upper warning"}, {"lo", "Lower warning"}, {"loLo", "Lower alarm"}};

/// The number of a text like "10.000" or "PV: 10.000", as it stands.
std::string_view NumberPart(std::string_view text) {
  const std::size_t colon = text.rfind(": ");
  return colon == std::string_view::npos ? text : text.substr(colon + 2);
}

bool IsNumeric(RowKind kind) { return kind == RowKind::kValue || kind == RowKind::kLabel || kind == RowKind::kNum; }

bool IsStatusOf(Form& form, const LayoutRow& row) {
  if (row.kind == RowKind::kStatus) return true;
  const std::string caption(presentation::CaptionOf(form, row, false));
  return caption == "Status" || caption.ends_with("_ST");
}

int BlockOf(HealthItem item, int blockOfPage) {
  switch (item) {
    case HealthItem::kAiOut1:
      return 1;
    case HealthItem::kAiOut2:
      return 2;
    case HealthItem::kAiOut3:
      return 3;
    case HealthItem::kAiOut:
      return blockOfPage;
    default:
      return 0;
  }
}

/// The number of `text` in `texts`, which grows; the last one takes what is too many.
std::uint16_t Interned(std::vector<std::string>& texts, std::string_view text) {
  const auto found = std::find(texts.begin(), texts.end(), text);
  if (found != texts.end()) return static_cast<std::uint16_t>(found - texts.begin());
  if (texts.size() == kMostTexts) texts.pop_back();
  texts.emplace_back(text);
  return static_cast<std::uint16_t>(texts.size() - 1);
}

/// Milliseconds from midnight to time 0, by what the clock shows then.
std::int64_t Offset(const std::string& timeOfDay) {
  if (timeOfDay.size() < 8) return 0;
  const auto part = [&](std::size_t at) { return (timeOfDay[at] - '0') * 10 + (timeOfDay[at + 1] - '0'); };
  return (part(0) * 3600 + part(3) * 60 + part(6)) * 1000;
}

}  // namespace

std::string_view NameOf(TrendState state) {
  switch (state) {
    case TrendState::kLive:
      return "live";
    case TrendState::kEnded:
      return "ended";
    case TrendState::kWaiting:
      break;
  }
  return "waiting";
}

Trend::Trend(UserCntrl& control, Observer& observer, Surroundings surroundings)
    : control_(control), observer_(observer), surroundings_(std::move(surroundings)) {
  for (const PageUnit* unit : control_.Pages().units) {
    for (const PageLayout& page : unit->layouts) {
      for (const LayoutGroup& group : page.groups) {
        for (const LayoutRow& row : group.rows) Watch(row);
      }
    }
  }
  observer_.Add(*this);
}

Trend::~Trend() { observer_.Remove(*this); }

// Into a number that can be written the operator may have typed.
void Trend::Watch(const LayoutRow& row) {
  if (!row.live || !IsNumeric(row.kind) || row.kind == RowKind::kNum || FindStanding(row.control) != nullptr) return;
  Standing standing;
  standing.control = row.control;
  standing.sets = SetsOf(row.control);
  standing_.push_back(std::move(standing));
}

const Trend::Standing* Trend::FindStanding(ControlId control) const {
  const auto found =
      std::find_if(standing_.begin(), standing_.end(), [&](const Standing& known) { return known.control == control; });
  return found == standing_.end() ? nullptr : &*found;
}

// ---- which fields

std::optional<Trend::Place> Trend::PlaceOf(ControlId field) const {
  for (const PageUnit* unit : control_.Pages().units) {
    for (const PageLayout& page : unit->layouts) {
      for (const LayoutGroup& group : page.groups) {
        for (std::size_t row = 0; row < group.rows.size(); ++row) {
          if (group.rows[row].control == field) return Place{&page, &group, row};
        }
      }
    }
  }
  return std::nullopt;
}

std::optional<double> Trend::NumberOf(ControlId field) const {
  return FindLocaleNumber(NumberPart(control_.form.TextOf(field)), control_.codecs.DecimalSeparator());
}

std::uint32_t Trend::SetsOf(ControlId field) const {
  switch (KindOf(field)) {
    case ControlKind::kText:
      return control_.form.At(TextId{field}).Sets();
    case ControlKind::kLabel:
      return control_.form.At(LabelId{field}).Sets();
    default:
      return 0;
  }
}

Trend::Offer Trend::Offers(ControlId field) const {
  for (const TrendField& followed : fields_) {
    if (followed.control == field && ComesFromItsPage(followed)) return Offer::kRemove;
  }
  const auto place = PlaceOf(field);
  if (!place) return Offer::kNone;
  const LayoutRow& row = place->group->rows[place->row];
  if (!row.live || !IsNumeric(row.kind) || !NumberOf(field)) return Offer::kNone;
  return fields_.size() < kMostFields ? Offer::kAdd : Offer::kFull;
}

bool Trend::Add(ControlId control) {
  if (Offers(control) != Offer::kAdd) return false;
  const Place place = *PlaceOf(control);
  const LayoutRow& row = place.group->rows[place.row];
  Form& form = control_.form;
  TrendField field;
  field.control = control;
  int blockOfPage = 0;
  for (const LayoutTitle& title : place.page->titles) {
    if (title.page.empty() || title.page != control_.CurrentPage) continue;
    field.page = control_.CurrentPage;
    blockOfPage = title.block;
  }
  field.name = presentation::TitleNow(control_, *place.page);
  std::string before = field.name;
  for (const std::string& part : {std::string(presentation::TitleOf(form, *place.group)),
                                  std::string(presentation::CaptionOf(form, row, false))}) {
    if (!part.empty() && part != before) field.name += ", " + part;
    before = part;
  }
  field.unitControl = row.unit.control;
  field.unitText = row.unit.text;
  HealthItem health = row.health;
  if (row.second) field.statusControl = row.second;
  if (!row.second && place.row + 1 < place.group->rows.size()) {
    const LayoutRow& next = place.group->rows[place.row + 1];
    if (IsStatusOf(form, next)) {
      field.statusControl = next.control;
      health = next.health;
    }
  }
  field.block = BlockOf(health, blockOfPage);
  field.sets = SetsOf(control);
  TakeStanding(field);
  fields_.push_back(std::move(field));
  ++revision_;
  return true;
}

bool Trend::Remove(ControlId field) {
  const auto found = std::find_if(fields_.begin(), fields_.end(), [&](const TrendField& followed) {
    return followed.control == field && ComesFromItsPage(followed);
  });
  if (found == fields_.end()) return false;
  RemoveAt(static_cast<std::size_t>(found - fields_.begin()));
  return true;
}

void Trend::RemoveAt(std::size_t index) {
  if (index < fields_.size()) fields_.erase(fields_.begin() + static_cast<std::ptrdiff_t>(index));
  ++revision_;
}

void Trend::Clear() {
  fields_.clear();
  cursor_.reset();
  ++revision_;
}

// ---- sampling

// Several pages may share a frame and its fields: what another of them shows is another quantity.
bool Trend::ComesFromItsPage(const TrendField& field) const {
  return field.page.empty() || field.page == control_.CurrentPage;
}

std::int64_t Trend::IntervalOf(int code) const {
  std::int64_t interval = 0;
  for (const PageUnit* unit : control_.Pages().units) {
    for (const PollRow& row : unit->polls) {
      const Timer& timer = std::as_const(control_.form).At(row.timer);
      if (row.read == code && timer.Enabled()) interval = std::max<std::int64_t>(interval, timer.Interval());
    }
  }
  return interval;
}

// A write ends the polling up to its re-read, and that is no end.
bool Trend::IsPolled(const TrendField& field) const {
  if (!ComesFromItsPage(field)) return false;
  if (std::as_const(control_.form).At(TimerId::TimerReadAfterWrite).Enabled()) return true;
  return std::any_of(field.codes.begin(), field.codes.end(), [this](int code) { return IntervalOf(code) > 0; });
}

TrendState Trend::StateOf(const TrendField& field) const {
  if (field.samples.empty()) return TrendState::kWaiting;
  return IsPolled(field) ? TrendState::kLive : TrendState::kEnded;
}

void Trend::OnHandled(int code) {
  const std::int64_t now = observer_.Now();
  for (Standing& standing : standing_) {
    const std::uint32_t sets = SetsOf(standing.control);
    if (std::exchange(standing.sets, sets) == sets) continue;
    standing.at = now;
    standing.code = code;
    standing.page = control_.CurrentPage;
  }
  for (TrendField& field : fields_) {
    const std::uint32_t sets = SetsOf(field.control);
    if (std::exchange(field.sets, sets) == sets || !ComesFromItsPage(field)) continue;
    Take(field, now, code);
  }
}

// What the field shows holds since the answer that has set it, where nothing else has.
void Trend::TakeStanding(TrendField& field) {
  const Standing* standing = FindStanding(field.control);
  if (standing == nullptr || standing->code == 0 || standing->sets != field.sets) return;
  if (field.page.empty() || field.page == standing->page) Take(field, standing->at, standing->code);
}

void Trend::Take(TrendField& field, std::int64_t at, int code) {
  field.codes.insert(code);
  if (const std::int64_t interval = IntervalOf(code); interval > 0) field.interval = interval;
  TrendSample sample;
  sample.at = at;
  const auto number = NumberOf(field.control);
  sample.value = number.value_or(std::numeric_limits<double>::quiet_NaN());
  const std::string_view unit =
      field.unitControl ? control_.form.TextOf(field.unitControl) : std::string_view(field.unitText);
  const std::string_view status = field.statusControl ? control_.form.TextOf(field.statusControl) : std::string_view();
  sample.unit = Interned(field.units, unit);
  sample.status = Interned(field.statuses, status);
  sample.bad = !number || IsBadStatus(status);
  field.samples.push_back(sample);
  while (field.samples.size() > kMostSamples || field.samples.front().at < sample.at - kLongest) {
    field.samples.pop_front();
  }
  ++revision_;
}

void Trend::OnAnswer(const Entry& answer, const Entry* /*request*/) {
  if (answer.code != kLimitsRead * 100) return;
  WireWords words(control_.codecs.DecimalSeparator());
  std::string fault;
  const auto values = words.OfAnswer(observer_.RequestOf(answer), answer.document, fault);
  std::map<int, std::vector<Limit>> read;
  std::string unit;
  for (const WireValue& value : values) {
    if (value.source.ends_with(".outScale")) unit = value.unit;
  }
  for (const auto& [parameter, name] : kLimits) {
    for (const WireValue& value : values) {
      if (value.numbers.size() != 1 || !value.source.starts_with("ai") || value.source.size() < 4 ||
          value.source.substr(4) != parameter || !std::isfinite(value.numbers.front())) {
        continue;
      }
      read[value.source[2] - '0'].push_back({name, value.numbers.front(), unit});
    }
  }
  for (auto& [block, limits] : read) limits_[block] = std::move(limits);
  if (!read.empty()) ++revision_;
}

std::size_t Trend::Footprint() const {
  std::size_t bytes = fields_.capacity() * sizeof(TrendField);
  for (const TrendField& field : fields_) {
    bytes += field.samples.size() * sizeof(TrendSample);
    for (const auto* texts : {&field.units, &field.statuses}) {
      for (const std::string& text : *texts) bytes += text.capacity() + sizeof text;
    }
  }
  return bytes;
}

// ---- looking

void Trend::Hold(bool held) {
  heldAt_ = held ? std::optional(heldAt_.value_or(observer_.Now())) : std::nullopt;
  ++revision_;
}

bool Trend::GapBetween(const TrendField& field, const TrendSample& a, const TrendSample& b) const {
  const std::int64_t most = field.interval > 0 ? 3 * field.interval : kWithoutTimer;
  return a.bad || b.bad || a.unit != b.unit || b.at - a.at > most;
}

const TrendSample* Trend::SampleAt(const TrendField& field, std::int64_t at) const {
  const auto after = std::upper_bound(field.samples.begin(), field.samples.end(), at,
                                      [](std::int64_t time, const TrendSample& sample) { return time < sample.at; });
  return after == field.samples.begin() ? nullptr : &*std::prev(after);
}

TrendReading Trend::Read(const TrendField& field, const TrendSample& sample) const {
  TrendReading reading{sample.at, {}, field.units[sample.unit], field.statuses[sample.status]};
  if (std::isfinite(sample.value)) {
    reading.value = NumberToText(sample.value, control_.codecs.DecimalSeparator()).View();
  }
  return reading;
}

std::optional<TrendReading> Trend::Reading(const TrendField& field) const {
  const TrendSample* sample = SampleAt(field, cursor_.value_or(To()));
  if (sample == nullptr) return std::nullopt;
  if (cursor_) {
    const std::int64_t most = field.interval > 0 ? 3 * field.interval : kWithoutTimer;
    if (*cursor_ - sample->at > most) return std::nullopt;
  }
  return Read(field, *sample);
}

void Trend::StepCursor(int direction) {
  std::optional<std::int64_t> best;
  const std::int64_t from = cursor_.value_or(direction < 0 ? To() + 1 : From() - 1);
  for (const TrendField& field : fields_) {
    for (const TrendSample& sample : field.samples) {
      if (sample.at < From() || sample.at > To()) continue;
      if (direction < 0 && sample.at < from && (!best || sample.at > *best)) best = sample.at;
      if (direction > 0 && sample.at > from && (!best || sample.at < *best)) best = sample.at;
    }
  }
  if (best) cursor_ = best;
}

FigureAxis Trend::TimeAxis() const {
  static constexpr std::pair<int, std::int64_t> kSteps[] = {
      {1, kMinute / 4}, {5, kMinute}, {15, 3 * kMinute}, {60, 10 * kMinute}};
  std::int64_t step = kMinute;
  for (const auto& [minutes, wanted] : kSteps) {
    if (minutes == window_) step = wanted;
  }
  FigureAxis axis;
  axis.from = static_cast<double>(From());
  axis.to = static_cast<double>(To());
  const std::int64_t offset = Offset(surroundings_.timeOfDay(0));
  std::int64_t tick = (From() + offset) / step * step - offset;
  for (; tick <= To(); tick += step) {
    if (tick < std::max<std::int64_t>(From(), 0)) continue;
    std::string text = surroundings_.timeOfDay(tick);
    if (step % kMinute == 0 && text.size() > 5) text.resize(5);  // whole minutes
    axis.ticks.push_back({static_cast<double>(tick), std::move(text)});
  }
  return axis;
}

void Trend::AddCurve(Figure& figure, const TrendField& field, std::size_t series, std::string_view unit, double& low,
                     double& high) const {
  const TrendSample* last = nullptr;
  bool continues = false;
  for (const TrendSample& sample : field.samples) {
    if (sample.at > To()) break;
    const TrendSample* const before = std::exchange(last, &sample);
    if (sample.bad || field.units[sample.unit] != unit) {
      continues = false;
      continue;
    }
    if (sample.at < From()) {
      // Where the line comes from that enters the window stands beyond its edge.
      continue;
    }
    low = std::min(low, sample.value);
    high = std::max(high, sample.value);
    const FigurePoint at{static_cast<double>(sample.at), sample.value};
    if (before != nullptr && before->at >= From() && continues && !GapBetween(field, *before, sample)) {
      figure.lines.back().points.push_back(at);
    } else {
      figure.lines.push_back({{at}, LineStyle::kCurve, static_cast<std::uint8_t>(series)});
    }
    continues = true;
  }
  // A value alone is a point, or nobody would see it.
  for (const FigureLine& line : figure.lines) {
    if (line.points.size() == 1 && line.style == LineStyle::kCurve && line.series == series) {
      figure.markers.push_back({line.points.front(), MarkerShape::kFilledSquare, {}});
    }
  }
  if (last == nullptr || last->bad || last->at < From() || field.units[last->unit] != unit) return;
  if (StateOf(field) == TrendState::kEnded) {
    figure.markers.push_back({{static_cast<double>(last->at), last->value}, MarkerShape::kHollowSquare, {}});
    figure.texts.push_back(
        {{static_cast<double>(last->at), last->value}, "ended " + surroundings_.timeOfDay(last->at), true, false});
  }
}

void Trend::AddLimits(Figure& figure, const TrendPlot& plot, double& low, double& high) const {
  std::set<int> blocks;
  for (const std::size_t field : plot.fields) blocks.insert(fields_[field].block);
  for (const int block : blocks) {
    const auto found = limits_.find(block);
    if (block == 0 || found == limits_.end()) continue;
    for (const Limit& limit : found->second) {
      if (limit.unit != plot.unit) continue;
      low = std::min(low, limit.value);
      high = std::max(high, limit.value);
      figure.lines.push_back({{{figure.x.from, limit.value}, {figure.x.to, limit.value}}, LineStyle::kLevel});
      figure.texts.push_back({{figure.x.from, limit.value},
                              "AI " + std::to_string(block) + " " + std::string(limit.name) + " " +
                                  ShortestNumber(limit.value, control_.codecs.DecimalSeparator()),
                              false,
                              true});
    }
  }
}

}  // namespace htr60::observe
