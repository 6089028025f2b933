#include "observe/record.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "figures/axis.h"
#include "simulator/device/density.h"

namespace htr60::observe {
namespace {

constexpr std::int64_t kPatienceMs = 30'000;
constexpr std::int64_t kSelfPatienceMs = 600'000;  // its verdict stands on another tab
constexpr int kCurveWrite = 31;
constexpr int kBackupWrite = 32;
constexpr int kMeasuredTypeWrite = 54;
constexpr std::string_view kResult = "operResult";
constexpr std::string_view kOutputUnit = "outUnit";
constexpr std::string_view kMeasuredType = "Measured type";

const WireValue* FindAttribute(const std::vector<WireValue>& values, std::size_t attribute) {
  const std::string tag = "Attribute" + std::to_string(attribute);
  const auto found = std::find_if(values.begin(), values.end(), [&](const WireValue& v) { return v.tag == tag; });
  return found == values.end() ? nullptr : &*found;
}

}  // namespace

/// A write that calibrates: what the device shows of it, and the two points between which the span lies.
struct Record::Kind {
  int code;
  std::string_view what;
  std::string_view value;  ///< live quantity; or the parameter itself, where no pressure is applied
  std::string_view spanHi;
  std::string_view spanLo;
  bool verdict = true;  ///< an answer of its page tells one
  bool applied = true;  ///< a true value stands against the one shown
  std::size_t attribute = 1;
  // Of the density, which the device calibrates by itself with some measured types, the true value it knows itself.
  int measuredType = -1;
  std::string_view point = {};     ///< the true value, once it has calibrated
  std::string_view pressure = {};  ///< the pressure there

  bool IsSelf() const { return measuredType >= 0; }
  /// The operand of a write of this kind; null: it is none.
  const WireValue* Given(int write, const std::vector<WireValue>& values) const;
};

// Without a reference nothing is applied: two points are set, and no error is found.
constexpr Record::Kind Record::kKinds[] = {
    {14, "Lower trim", "@trim", "calHi", "calLo"},
    {15, "Upper trim", "@trim", "calHi", "calLo"},
    {16, "Temperature trim", "@t", "tempMax", "tempMin", false},
    {65, "Sensor 1, upper point", "@p.hi", "calHi.hi", "calLo.hi"},
    {66, "Sensor 1, lower point", "@p.hi", "calHi.hi", "calLo.hi"},
    {67, "Sensor 2, upper point", "@p.lo", "calHi.lo", "calLo.lo"},
    {68, "Sensor 2, lower point", "@p.lo", "calHi.lo", "calLo.lo"},
    {44, "Upper point without reference", "calHi", "", "", false, false},
    {44, "Lower point without reference", "calLo", "", "", false, false, 2},
    {63, "Sensor 1, upper point without reference", "calHi.hi", "", "", false, false},
    {63, "Sensor 1, lower point without reference", "calLo.hi", "", "", false, false, 2},
    {64, "Sensor 2, upper point without reference", "calHi.lo", "", "", false, false},
    {64, "Sensor 2, lower point without reference", "calLo.lo", "", "", false, false, 2},
    {52, "Lower density point", "@pv", "densHi", "densLo"},
    {53, "Upper density point", "@pv", "densHi", "densLo"},
    {kMeasuredTypeWrite, "Self calibration in air", "@pv", "densHi", "densLo", true, true, 1, sim::kMeasuredKilogram,
     "densLo", "densPressLo"},
    // The way from air to water is none that Brix could measure.
    {kMeasuredTypeWrite, "Self calibration in water", "@pv", "", "", true, true, 1, sim::kMeasuredBrix, "densHi",
     "densPressHi"},
    {30, "Characterization", "", "", "", false, false},
};

const WireValue* Record::Kind::Given(int write, const std::vector<WireValue>& values) const {
  const WireValue* given = write == code ? FindAttribute(values, attribute) : nullptr;
  if (given != nullptr && IsSelf() && std::strtol(given->digits.c_str(), nullptr, 16) != measuredType) return nullptr;
  return given;
}

std::optional<double> RecordStep::ErrorOf(const std::optional<RecordValue>& value) const {
  if (!applied || !value || !span || span->Width() <= 0 || value->unit != unit || span->unit != unit)
    return std::nullopt;
  if (IsBadStatus(value->status)) return std::nullopt;
  return (value->value - *applied) / span->Width() * 100;
}

Record::Record(Observer& observer, char decimalSeparator, TimeOfDay timeOfDay)
    : observer_(observer),
      separator_(decimalSeparator),
      timeOfDay_(std::move(timeOfDay)),
      reader_(observer, decimalSeparator) {
  observer_.Add(*this);
}

Record::~Record() { observer_.Remove(*this); }

// ---- what passes

// Nothing is decoded before something is calibrated: the observer keeps what went before.
void Record::CatchUp(std::uint64_t before) {
  for (const TrafficLine& line : reader_.Next()) {
    if (line.number >= before || line.kind != EntryKind::kAnswer || !line.fault.empty()) continue;
    for (const WireValue& value : line.values) {
      if (value.source == kOutputUnit && value.fault.empty()) outUnit_ = line.pair;
    }
    for (const WireValue& value : line.values) {
      if (!value.fault.empty()) continue;
      if (value.source == kResult) verdict_ = {value.value, line.pair};
      if (value.numbers.size() != 1 || !std::isfinite(value.numbers.front())) continue;
      known_[value.source] = {{value.numbers.front(), value.unit, value.status}, line.pair, outUnit_};
    }
  }
}

void Record::OnRequest(const Entry& request) {
  if (request.kind != EntryKind::kWrite) return;
  bool any = request.code == kCurveWrite || request.code == kBackupWrite;
  for (const Kind& kind : kKinds) any = any || kind.code == request.code;
  if (!any) return;
  CatchUp(request.number);
  const auto values = WireWords(separator_).OfRequest({true, request.code, {}}, request.document);
  const auto is = [&](const Kind& kind) { return kind.Given(request.code, values) != nullptr; };
  const bool verdict = request.code != kMeasuredTypeWrite || std::any_of(std::begin(kKinds), std::end(kKinds), is);
  if (request.state != EntryState::kFailed) EndPending(request.number, verdict);
  for (const Kind& kind : kKinds) {
    if (const WireValue* given = kind.Given(request.code, values)) Begin(kind, request, *given);
  }
  if (request.code == kCurveWrite) BeginCurve(request, values);
}

// The device keeps the verdict of the last calibration alone, and what it shows behind another one that has left.
void Record::EndPending(std::uint64_t write, bool verdict) {
  for (Pending& pending : pending_) {
    pending.valueEnd = std::min(pending.valueEnd, write);
    if (!verdict) continue;
    pending.verdictEnd = std::min(pending.verdictEnd, write);
    pending.until = std::min(pending.until, observer_.Now() + kPatienceMs);
  }
}

RecordStep& Record::AddStep(const Entry& request, std::string what) {
  if (steps_.size() == kMostSteps) {
    steps_.erase(steps_.begin());
    std::erase_if(pending_, [](const Pending& pending) { return pending.step == 0; });
    for (Pending& pending : pending_) --pending.step;
  }
  RecordStep step;
  step.at = request.at;
  step.what = std::move(what);
  step.page = request.page;
  step.refused = request.state == EntryState::kFailed;
  if (step.refused) step.verdict = "Not sent: " + request.why;
  steps_.push_back(std::move(step));
  ++revision_;
  return steps_.back();
}

std::optional<RecordSpan> Record::SpanOf(const Kind& kind, const std::string& unit) {
  const std::string key = std::string(kind.spanHi) + " " + unit;
  if (const auto fixed = spans_.find(key); fixed != spans_.end()) return fixed->second;
  const auto hi = known_.find(kind.spanHi);
  const auto lo = known_.find(kind.spanLo);
  if (hi == known_.end() || lo == known_.end()) return std::nullopt;
  if (hi->second.value.unit != unit || lo->second.value.unit != unit) return std::nullopt;
  const RecordSpan span{lo->second.value.value, hi->second.value.value, unit};
  if (span.Width() <= 0) return std::nullopt;
  return spans_[key] = span;
}

void Record::Begin(const Kind& kind, const Entry& request, const WireValue& given) {
  const bool number = given.numbers.size() == 1;
  // Of a measured type nobody knows yet whether the device calibrates with it.
  const std::string_view what = kind.IsSelf() ? kMeasuredType : kind.what;
  RecordStep& step = AddStep(request, std::string(what) + (number ? "" : ": " + given.value));
  const auto known = known_.find(kind.value);
  if (known != known_.end()) {
    step.found = known->second.value;
    if (!kind.IsSelf()) step.unit = step.found->unit;
  }
  if (number) step.applied = given.numbers.front();
  if (kind.applied && !kind.IsSelf()) step.span = SpanOf(kind, step.unit);
  if (request.state == EntryState::kFailed || (kind.value.empty() && !kind.verdict)) return;
  step.open = true;
  Pending pending;
  pending.kind = &kind;
  pending.step = steps_.size() - 1;
  pending.write = request.number;
  pending.valueUntil = request.at + kPatienceMs;
  pending.until = request.at + (kind.IsSelf() ? kSelfPatienceMs : kPatienceMs);
  if (verdict_) pending.verdictBefore = verdict_->first;
  if (const auto pressure = known_.find(kind.pressure); pressure != known_.end()) {
    pending.pressureBefore = pressure->second.value;
  }
  pending_.push_back(std::move(pending));
}

// The points of a curve: what was applied, and what the device showed at each of them.
void Record::BeginCurve(const Entry& request, const std::vector<WireValue>& values) {
  const WireValue* count = FindAttribute(values, 1);
  const WireValue* measured = FindAttribute(values, 2);
  const WireValue* applied = FindAttribute(values, 3);
  const WireValue* operation = FindAttribute(values, 4);
  if (measured == nullptr || applied == nullptr || count == nullptr) return;
  const auto points = static_cast<std::size_t>(std::strtoul(count->digits.c_str(), nullptr, 16));
  const auto live = known_.find("@raw");
  const std::string unit = live == known_.end() ? std::string() : live->second.value.unit;
  const std::size_t known = std::min({points, measured->numbers.size(), applied->numbers.size()});
  if (known == 0) return;
  // Where the calibration points were not read, the curve has a span of its own.
  std::optional<RecordSpan> span = SpanOf(Kind{0, "", "", "calHi", "calLo"}, unit);
  const auto [low, high] =
      std::minmax_element(applied->numbers.begin(), applied->numbers.begin() + static_cast<std::ptrdiff_t>(known));
  if (!span) span = RecordSpan{*low, *high, unit};
  const std::string after = operation == nullptr ? std::string() : ", " + operation->value;
  for (std::size_t i = 0; i < known; ++i) {
    RecordStep& step = AddStep(request, "Characterization, point " + std::to_string(i + 1) + after);
    step.unit = unit;
    step.applied = applied->numbers[i];
    step.found = RecordValue{measured->numbers[i], unit, {}};
    step.span = span;
  }
}

void Record::OnAnswer(const Entry& /*answer*/, const Entry* /*request*/) {
  if (pending_.empty()) return;
  CatchUp(UINT64_MAX);
  Look();
}

/// What an answer has told whose read went out behind that write and before the one that ends it.
const Record::Known* Record::Behind(std::string_view source, std::uint64_t write, std::uint64_t end) const {
  const auto known = known_.find(source);
  if (known == known_.end() || known->second.request <= write || known->second.request >= end) return nullptr;
  return &known->second;
}

void Record::TakeLeft(Pending& pending) {
  RecordStep& step = steps_[pending.step];
  if (step.left || observer_.Now() > pending.valueUntil) return;
  const Known* known = Behind(pending.kind->value, pending.write, pending.valueEnd);
  // The output unit follows the measured type, and mostly travels in another answer.
  if (known == nullptr || (pending.kind->IsSelf() && known->outUnit <= pending.write)) return;
  step.left = known->value;
  if (step.unit.empty()) step.unit = step.left->unit;
  ++revision_;
}

// Where the device calibrates by itself, nothing says that it has: the verdict may be that of a calibration before. It
// is its own where it has changed, or where the pressure of the point has.
void Record::TakeVerdict(Pending& pending) {
  if (!pending.kind->verdict || pending.settled || !verdict_) return;
  if (verdict_->second <= pending.write || verdict_->second >= pending.verdictEnd) return;
  RecordStep& step = steps_[pending.step];
  if (pending.kind->IsSelf()) {
    const Known* pressure = Behind(pending.kind->pressure, pending.write, pending.verdictEnd);
    const auto& before = pending.pressureBefore;
    const bool moved =
        pressure != nullptr && before && before->unit == pressure->value.unit && before->value != pressure->value.value;
    if (!moved && (!pending.verdictBefore || *pending.verdictBefore == verdict_->first)) {
      pending.settled = pressure != nullptr;
      return;
    }
    step.what.replace(0, kMeasuredType.size(), pending.kind->what);
  }
  step.verdict = verdict_->first;
  step.refused = !step.verdict.starts_with("Good");
  pending.settled = true;
  ++revision_;
}

// What the device has taken for the true value is the point that it keeps.
void Record::TakePoint(Pending& pending) {
  RecordStep& step = steps_[pending.step];
  if (!pending.kind->IsSelf() || step.verdict.empty() || step.refused || step.applied) return;
  const Known* point = Behind(pending.kind->point, pending.write, pending.valueEnd);
  if (point == nullptr || point->outUnit <= pending.write) return;
  step.applied = point->value.value;
  step.unit = point->value.unit;
  if (!pending.kind->spanHi.empty()) step.span = SpanOf(*pending.kind, step.unit);
  ++revision_;
}

bool Record::IsComplete(const Pending& pending) const {
  const RecordStep& step = steps_[pending.step];
  const bool hasPoint = !pending.kind->IsSelf() || step.applied || step.verdict.empty() || step.refused;
  return (step.left || pending.kind->value.empty()) && (pending.settled || !pending.kind->verdict) && hasPoint;
}

void Record::Look() {
  for (Pending& pending : pending_) {
    TakeLeft(pending);
    TakeVerdict(pending);
    TakePoint(pending);
    if (!IsComplete(pending) && observer_.Now() <= pending.until) continue;
    steps_[pending.step].open = false;
    ++revision_;
  }
  std::erase_if(pending_, [this](const Pending& pending) { return !steps_[pending.step].open; });
}

// ---- what the operator adds

// Who takes over has not done what is done.
void Record::SetOperator(std::string name) {
  if (name == operator_) return;
  for (RecordStep& step : steps_) {
    if (step.who.empty()) step.who = operator_;
  }
  operator_ = std::move(name);
  ++revision_;
}

bool Record::SetOperatorOf(std::size_t step, std::string name) {
  if (step >= steps_.size()) return false;
  steps_[step].who = std::move(name);
  ++revision_;
  return true;
}

std::vector<std::string> Record::Names() const {
  std::vector<std::string> names;
  for (const RecordStep& step : steps_) {
    const std::string& name = OperatorOf(step);
    if (!name.empty() && std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
  }
  if (names.empty() && !operator_.empty()) names.push_back(operator_);
  return names;
}

std::string Record::Operators() const {
  std::string all;
  for (const std::string& name : Names()) all += (all.empty() ? "" : ", ") + name;
  return all;
}

bool Record::SetRemark(std::size_t step, std::string remark) {
  if (step >= steps_.size()) return false;
  steps_[step].remark = std::move(remark);
  ++revision_;
  return true;
}

void Record::SetTolerance(std::optional<double> percent) {
  tolerance_ = percent;
  ++revision_;
}

void Record::Clear() {
  steps_.clear();
  pending_.clear();
  spans_.clear();
  ++revision_;
}

// ---- what is shown

// A number that was typed loses a little of itself on the wire: what five digits tell as well stands in five.
std::string Record::NumberText(double number) const {
  constexpr double kLost = 2e-6;
  std::array<char, 64> text{};
  for (const int digits : {5, 6}) {
    std::snprintf(text.data(), text.size(), "%.*g", digits, number);
    if (std::abs(std::strtod(text.data(), nullptr) - number) <= kLost * std::abs(number)) break;
  }
  std::string shown(text.data());
  std::replace(shown.begin(), shown.end(), '.', separator_);
  return shown;
}

std::string Record::ErrorText(std::optional<double> error) const {
  if (!error) return {};
  std::array<char, 64> text{};
  const double rounded = std::abs(*error) < 0.0005 ? 0 : *error;
  const int size = std::snprintf(text.data(), text.size(), "%+.3f", rounded);
  std::string shown(text.data(), static_cast<std::size_t>(size));
  std::replace(shown.begin(), shown.end(), '.', separator_);
  return shown;
}

std::array<std::string_view, Record::kColumns> Record::Heads() {
  return {"Time",    "Step", "Applied",          "As found", "Error %", "As left",
          "Error %", "Unit", "Device's verdict", "Remark",   "Operator"};
}

std::array<std::string, Record::kColumns> Record::Cells(std::size_t index) const {
  const RecordStep& step = steps_[index];
  const auto value = [&](const std::optional<RecordValue>& told) {
    if (!told) return std::string();
    // What a single cannot tell from zero within the span is none.
    const bool zero = step.span && std::abs(told->value) < step.span->Width() * 1e-7;
    std::string text = NumberText(zero ? 0 : told->value);
    if (told->unit != step.unit) text += " " + told->unit;
    if (IsBadStatus(told->status)) text += " (" + told->status + ")";
    return text;
  };
  std::string verdict = step.verdict;
  if (verdict.empty()) verdict = step.open ? "awaited" : "not told";
  return {timeOfDay_(step.at),
          step.what,
          step.applied ? NumberText(*step.applied) : std::string(),
          value(step.found),
          ErrorText(step.FoundError()),
          value(step.left),
          ErrorText(step.LeftError()),
          step.unit,
          std::move(verdict),
          step.remark,
          OperatorOf(step)};
}

std::vector<std::pair<std::string, std::string>> Record::Block(const RecordHead& head) const {
  std::vector<std::pair<std::string, std::string>> block = {
      {"Tag", head.tag},           {"Serial number", head.serialNumber}, {"Manufacturer", head.manufacturer},
      {"Firmware", head.firmware}, {"Measurement", head.measurement},    {"Date", head.date},
      {"Operator", Operators()}};
  block.emplace_back("Tolerance", tolerance_ ? "±" + NumberText(*tolerance_) + " % of span" : "none given");
  for (const auto& [key, span] : spans_) {
    block.emplace_back("Span", NumberText(span.lower) + " to " + NumberText(span.upper) + " " + span.unit);
  }
  return block;
}

std::vector<std::string> Record::Worst() const {
  std::vector<std::string> lines;
  const auto add = [&](std::string_view caption, std::optional<double> (RecordStep::*error)() const) {
    const RecordStep* worst = nullptr;
    for (const RecordStep& step : steps_) {
      if (step.refused || !(step.*error)()) continue;
      if (worst == nullptr || std::abs(*(step.*error)()) > std::abs(*(worst->*error)())) worst = &step;
    }
    if (worst == nullptr) return;
    std::string line = std::string(caption) + ": " + ErrorText((worst->*error)()) + " % of span, " + worst->what;
    if (tolerance_)
      line += std::abs(*(worst->*error)()) <= *tolerance_ ? ", within the tolerance" : ", outside the tolerance";
    lines.push_back(std::move(line));
  };
  add("Worst as found", &RecordStep::FoundError);
  add("Worst as left", &RecordStep::LeftError);
  const auto refused = std::count_if(steps_.begin(), steps_.end(), [](const RecordStep& step) { return step.refused; });
  if (refused > 0) {
    lines.push_back(std::to_string(refused) +
                    (refused == 1 ? " step was refused and stands" : " steps were refused and stand") +
                    " in the table alone");
  }
  return lines;
}

std::vector<RecordChart> Record::Charts() const {
  std::vector<RecordChart> charts;
  for (const RecordStep& step : steps_) {
    if (step.refused || (!step.FoundError() && !step.LeftError())) continue;
    const bool known =
        std::any_of(charts.begin(), charts.end(), [&](const RecordChart& chart) { return chart.unit == step.unit; });
    if (!known) charts.push_back({step.unit, {}});
  }
  for (RecordChart& chart : charts) {
    Figure& figure = chart.figure;
    double low = tolerance_ ? -*tolerance_ : 0;
    double high = tolerance_ ? *tolerance_ : 0;
    double from = HUGE_VAL;
    double to = -HUGE_VAL;
    for (const RecordStep& step : steps_) {
      if (step.refused || step.unit != chart.unit || !step.applied) continue;
      const auto put = [&](std::optional<double> error, MarkerShape shape) {
        if (!error) return;
        figure.markers.push_back({{*step.applied, *error}, shape, {}});
        low = std::min(low, *error);
        high = std::max(high, *error);
        from = std::min(from, *step.applied);
        to = std::max(to, *step.applied);
      };
      put(step.FoundError(), MarkerShape::kHollowSquare);
      put(step.LeftError(), MarkerShape::kFilledSquare);
      if (step.FoundError() && step.LeftError() && *step.FoundError() != *step.LeftError()) {
        figure.lines.push_back(
            {{{*step.applied, *step.FoundError()}, {*step.applied, *step.LeftError()}}, LineStyle::kReference});
      }
    }
    figure.x = figures::RoundAxis("Applied, " + chart.unit, from, to, separator_);
    figure.y = figures::RoundAxis("Error, % of span", low, high, separator_);
    figure.lines.push_back({{{figure.x.from, 0}, {figure.x.to, 0}}, LineStyle::kLevel});
    if (tolerance_) figure.bands.push_back({-*tolerance_, *tolerance_});
    figure.remarks.push_back(std::string("Hollow: as found. Filled: as left.") +
                             (tolerance_ ? " Band: tolerance." : ""));
    figure.sentence = "Errors of the calibration in percent of span.";
  }
  return charts;
}

}  // namespace htr60::observe
