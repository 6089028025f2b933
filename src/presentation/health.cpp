#include "presentation/health.h"

#include <algorithm>
#include <iterator>

namespace htr60::presentation {
namespace {

constexpr std::string_view kStates[] = {"not read", "good", "function check", "out of specification", "failure"};
constexpr std::string_view kWords[] = {"not read", "Good", "Function check", "Out of specification", "Failure"};

// What says so, in the order of the items.
constexpr std::string_view kCaptions[] = {
    "",
    "Primary Value",
    "AI 1 Out",
    "AI 2 Out",
    "AI 3 Out",
    "Sensor Diag",
    "Sensor electronics",
    "Simulate Enable",
    "Simulate Enable",
    "Simulate Enable",
    "Simulate Enable",
    "Simulate Enable",
};
static_assert(std::size(kCaptions) == static_cast<std::size_t>(HealthItem::kAiOut), "an item without a caption");

HealthState StateOf(HealthItem item, std::string_view text) {
  switch (item) {
    case HealthItem::kPrimaryValue:
    case HealthItem::kAiOut1:
    case HealthItem::kAiOut2:
    case HealthItem::kAiOut3:
      if (text.starts_with("Bad")) return HealthState::kFailure;
      return text.starts_with("Uncertain") ? HealthState::kOutOfSpecification : HealthState::kGood;
    case HealthItem::kSensorDiag:
      return text.empty() || text == "None" ? HealthState::kGood : HealthState::kFailure;
    case HealthItem::kSensorBoard:
      return HealthState::kFailure;
    case HealthItem::kSimulateValue:
    case HealthItem::kSimulatePressure:
    case HealthItem::kSimulateBlock1:
    case HealthItem::kSimulateBlock2:
    case HealthItem::kSimulateBlock3:
      return text == "Active" || text == "Enable" ? HealthState::kFunctionCheck : HealthState::kGood;
    case HealthItem::kNone:
    case HealthItem::kAiOut:
    case HealthItem::kSimulateBlock:
      break;
  }
  return HealthState::kGood;
}

// The item of a row while a page of `block` is current; none for what blocks share while no block's page is.
HealthItem ItemOf(HealthItem item, int block) {
  const auto ofBlock = [&](HealthItem first) {
    return block == 0 ? HealthItem::kNone : static_cast<HealthItem>(static_cast<int>(first) + block - 1);
  };
  if (item == HealthItem::kAiOut) return ofBlock(HealthItem::kAiOut1);
  return item == HealthItem::kSimulateBlock ? ofBlock(HealthItem::kSimulateBlock1) : item;
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
      for (const LayoutTitle& title : page.titles) {
        if (title.block != 0) blocks_.push_back({title.page, title.block});
      }
      for (const LayoutGroup& group : page.groups) {
        for (const LayoutRow& row : group.rows) {
          if (row.health == HealthItem::kNone) continue;
          const bool second = static_cast<bool>(row.second);
          const ControlId source = second ? row.second : row.control;
          sources_.push_back({source, second ? row.secondKind : row.kind, row.health});
          sourceOf_[source.ordinal] = static_cast<std::uint8_t>(sources_.size());
        }
      }
    }
  }
}

void Health::Turn(const FormChanges& changes, std::int64_t now) {
  for (const ControlId changed : changes.controls) {
    const std::size_t number = sourceOf_[changed.ordinal];
    if (number == 0) continue;
    Source& source = sources_[number - 1];
    const std::uint32_t sets = control_.form.Visit(changed, [](auto& widget) -> std::uint32_t {
      if constexpr (requires { widget.Sets(); }) {
        return widget.Sets();
      } else {
        return 0;
      }
    });
    // A message says something while it is shown, whatever it reads.
    if (source.kind != RowKind::kMsg && sets == source.sets) continue;
    source.sets = sets;
    Take(source, now);
  }
}

int Health::BlockOfPage() const {
  const auto row = std::find_if(blocks_.begin(), blocks_.end(),
                                [this](const PageOfBlock& page) { return page.name == control_.CurrentPage; });
  return row == blocks_.end() ? 0 : row->block;
}

void Health::Take(const Source& source, std::int64_t now) {
  const HealthItem item = ItemOf(source.item, BlockOfPage());
  if (item == HealthItem::kNone) return;
  Quantity& quantity = quantities_[static_cast<std::size_t>(item)];
  const bool shown = source.kind != RowKind::kMsg || control_.form.Any(source.control).Visible();
  quantity.read = shown || quantity.read;
  quantity.state = shown ? StateOf(item, control_.form.TextOf(source.control)) : HealthState::kGood;
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
