#include "presentation/health.h"

#include <algorithm>

namespace htr60::presentation {
namespace {

constexpr std::string_view kStates[] = {"not read", "good", "function check", "out of specification", "failure"};
constexpr std::string_view kWords[] = {"not read", "Good", "Function check", "Out of specification", "Failure"};

// What says so, in the order of the items.
constexpr std::string_view kCaptions[] = {
    "", "Primary Value", "Sensor Diag", "Sensor electronics", "Simulate Enable", "Simulate Enable"};

HealthState StateOf(HealthItem item, std::string_view text) {
  switch (item) {
    case HealthItem::kPrimaryValue:
      if (text.starts_with("Bad")) return HealthState::kFailure;
      return text.starts_with("Uncertain") ? HealthState::kOutOfSpecification : HealthState::kGood;
    case HealthItem::kSensorDiag:
      return text.empty() || text == "None" ? HealthState::kGood : HealthState::kFailure;
    case HealthItem::kSensorBoard:
      return HealthState::kFailure;
    case HealthItem::kSimulateValue:
    case HealthItem::kSimulatePressure:
      return text == "Active" || text == "Enable" ? HealthState::kFunctionCheck : HealthState::kGood;
    case HealthItem::kNone:
      break;
  }
  return HealthState::kGood;
}

// The worst is a failure; what is checked on purpose goes before what is uncertain.
int RankOf(HealthState state) {
  switch (state) {
    case HealthState::kFailure:
      return 4;
    case HealthState::kFunctionCheck:
      return 3;
    case HealthState::kOutOfSpecification:
      return 2;
    case HealthState::kGood:
      return 1;
    case HealthState::kNotRead:
      break;
  }
  return 0;
}

}  // namespace

std::string_view NameOf(HealthState state) { return kStates[static_cast<std::size_t>(state)]; }

Health::Health(UserCntrl& control) : control_(control) {
  for (const PageUnit* unit : control_.Pages().units) {
    for (const PageLayout& page : unit->layouts) {
      for (const LayoutGroup& group : page.groups) {
        for (const LayoutRow& row : group.rows) {
          if (row.health == HealthItem::kNone) continue;
          const bool second = static_cast<bool>(row.second);
          sources_.push_back({second ? row.second : row.control, second ? row.secondKind : row.kind, row.health});
        }
      }
    }
  }
}

void Health::Turn(const FormChanges& changes, std::int64_t now) {
  for (const ControlId changed : changes.controls) {
    for (Source& source : sources_) {
      if (!(source.control == changed)) continue;
      const std::uint32_t sets = control_.form.Visit(changed, [](auto& widget) -> std::uint32_t {
        if constexpr (requires { widget.Sets(); }) {
          return widget.Sets();
        } else {
          return 0;
        }
      });
      // A message has no count: it says something while it is shown.
      if (source.kind != RowKind::kMsg && sets == source.sets) continue;
      source.sets = sets;
      Take(source, now);
    }
  }
}

void Health::Take(const Source& source, std::int64_t now) {
  Quantity& quantity = quantities_[static_cast<std::size_t>(source.item)];
  const bool shown = source.kind != RowKind::kMsg || control_.form.Any(source.control).Visible();
  quantity.read = shown || quantity.read;
  quantity.state = shown ? StateOf(source.item, control_.form.TextOf(source.control)) : HealthState::kGood;
  quantity.at = now;
  quantity.node = control_.LastActivated();
}

const Health::Quantity* Health::Worst() const {
  const Quantity* worst = nullptr;
  for (const Quantity& quantity : quantities_) {
    if (quantity.read && (worst == nullptr || RankOf(quantity.state) > RankOf(worst->state))) worst = &quantity;
  }
  return worst;
}

HealthState Health::State() const {
  const Quantity* worst = Worst();
  return worst == nullptr ? HealthState::kNotRead : worst->state;
}

std::string Health::Text() const {
  const HealthState state = State();
  std::string text(kWords[static_cast<std::size_t>(state)]);
  if (state == HealthState::kNotRead || state == HealthState::kGood) return text;
  std::string_view before;
  for (std::size_t i = 0; i < kItems; ++i) {
    if (!quantities_[i].read || quantities_[i].state != state || kCaptions[i] == before) continue;
    text += before.empty() ? ": " : ", ";
    text += before = kCaptions[i];
  }
  return text;
}

std::int64_t Health::ReadAt() const {
  const Quantity* worst = Worst();
  return worst == nullptr ? 0 : worst->at;
}

const std::string& Health::Node() const {
  static const std::string kNone;
  const Quantity* worst = Worst();
  return worst == nullptr ? kNone : worst->node;
}

}  // namespace htr60::presentation
