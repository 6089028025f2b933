#include "observe/record.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <utility>

#include "figures/axis.h"

namespace htr60::observe {
namespace {

constexpr std::int64_t kPatienceMs = 30'000;
constexpr int kCurveWrite = 31;
constexpr std::string_view kVerdict = "operResult";

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
    {30, "Characterization", "", "", "", false, false},
};

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
      if (!value.fault.empty()) continue;
      if (value.source == kVerdict) verdict_ = {value.value, line.pair};
      if (value.numbers.size() != 1 || !std::isfinite(value.numbers.front())) continue;
      known_[value.source] = {{value.numbers.front(), value.unit, value.status}, line.pair};
    }
  }
}

void Record::OnRequest(const Entry& request) {
  if (request.kind != EntryKind::kWrite) return;
  bool any = request.code == kCurveWrite;
  for (const Kind& kind : kKinds) any = any || kind.code == request.code;
  if (!any) return;
  CatchUp(request.number);
  for (const Kind& kind : kKinds) {
    if (kind.code == request.code) Begin(kind, request);
  }
  if (request.code == kCurveWrite) BeginCurve(request);
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

void Record::Begin(const Kind& kind, const Entry& request) {
  WireWords words(separator_);
  const auto values = words.OfRequest({true, request.code, {}}, request.document);
  const std::string tag = "Attribute" + std::to_string(kind.attribute);
  const auto given =
      std::find_if(values.begin(), values.end(), [&](const WireValue& value) { return value.tag == tag; });
  if (given == values.end()) return;
  const bool number = given->numbers.size() == 1;
  RecordStep& step = AddStep(request, std::string(kind.what) + (number ? "" : ": " + given->value));
  const auto known = known_.find(kind.value);
  if (known != known_.end()) {
    step.found = known->second.value;
    step.unit = step.found->unit;
  }
  if (number) step.applied = given->numbers.front();
  if (kind.applied) step.span = SpanOf(kind, step.unit);
  if (request.state == EntryState::kFailed || (kind.value.empty() && !kind.verdict)) return;
  step.open = true;
  pending_.push_back({steps_.size() - 1, request.number, kind.value, kind.verdict, false, request.at + kPatienceMs});
}

// The points of a curve: what was applied, and what the device showed at each of them.
void Record::BeginCurve(const Entry& request) {
  WireWords words(separator_);
  const auto values = words.OfRequest({true, request.code, {}}, request.document);
  const auto find = [&](const char* tag) {
    return std::find_if(values.begin(), values.end(), [&](const WireValue& value) { return value.tag == tag; });
  };
  const auto measured = find("Attribute2");
  const auto applied = find("Attribute3");
  const auto count = find("Attribute1");
  const auto operation = find("Attribute4");
  if (measured == values.end() || applied == values.end() || count == values.end()) return;
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
  const std::string after = operation == values.end() ? std::string() : ", " + operation->value;
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

// What is left is what an answer tells whose read went out behind the write.
void Record::Look() {
  for (Pending& pending : pending_) {
    RecordStep& step = steps_[pending.step];
    const auto known = known_.find(pending.source);
    if (!step.left && known != known_.end() && known->second.request > pending.write) {
      step.left = known->second.value;
      if (step.unit.empty()) step.unit = step.left->unit;
      ++revision_;
    }
    if (pending.verdict && !pending.hasVerdict && verdict_ && verdict_->second > pending.write) {
      step.verdict = verdict_->first;
      step.refused = !step.verdict.starts_with("Good");
      pending.hasVerdict = true;
      ++revision_;
    }
    const bool complete = (step.left || pending.source.empty()) && (!pending.verdict || pending.hasVerdict);
    if (complete || observer_.Now() > pending.until) step.open = false;
  }
  std::erase_if(pending_, [this](const Pending& pending) { return !steps_[pending.step].open; });
}

// ---- what the operator adds

void Record::SetOperator(std::string name) {
  operator_ = std::move(name);
  ++revision_;
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

std::string Record::NumberText(double number) const {
  std::array<char, 64> text{};
  const int size = std::snprintf(text.data(), text.size(), "%.6g", number);
  std::string shown(text.data(), static_cast<std::size_t>(size));
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
  return {"Time", "Step", "Applied", "As found", "Error %", "As left", "Error %", "Unit", "Device's verdict", "Remark"};
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
          step.remark};
}

std::vector<std::pair<std::string, std::string>> Record::Block(const RecordHead& head) const {
  std::vector<std::pair<std::string, std::string>> block = {
      {"Tag", head.tag},           {"Serial number", head.serialNumber}, {"Manufacturer", head.manufacturer},
      {"Firmware", head.firmware}, {"Measurement", head.measurement},    {"Date", head.date},
      {"Operator", operator_}};
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
    if (charts.size() == 1) {
      for (const std::string& line : Worst()) figure.remarks.push_back(line + ".");
    }
    figure.sentence = "Errors of the calibration in percent of span.";
  }
  return charts;
}

}  // namespace htr60::observe
