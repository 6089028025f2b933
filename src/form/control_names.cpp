#include "form/control_names.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <span>

namespace htr60 {
namespace {

// A single control, or an array with its indexes.
struct NameEntry {
  std::string_view name;
  std::uint16_t ordinal;
  std::span<const short> indexes;
};

constexpr auto kEntries = [] {
  std::array entries = {
#define HTR60_CONTROL(control) NameEntry{#control, ordinals::control, {}},
#define HTR60_CONTROL_ARRAY(control) NameEntry{#control, ordinals::control, indexes::control},
#include "form/each_control.h"
  };
  return entries;
}();

constexpr auto kByName = [] {
  auto sorted = kEntries;
  std::sort(sorted.begin(), sorted.end(), [](const NameEntry& a, const NameEntry& b) { return a.name < b.name; });
  return sorted;
}();

constexpr std::string_view kTimers[] = {
#define HTR60_TIMER(name, interval) #name,
#include "form/timers.def"
};

}  // namespace

std::optional<ControlId> FindControl(std::string_view name) {
  const std::size_t bracket = name.find('(');
  const std::string_view base = name.substr(0, bracket);
  const auto* entry = std::lower_bound(kByName.begin(), kByName.end(), base,
                                       [](const NameEntry& e, std::string_view n) { return e.name < n; });
  if (entry == kByName.end() || entry->name != base) return std::nullopt;
  if (entry->indexes.empty()) {
    if (bracket != std::string_view::npos) return std::nullopt;
    return ControlId{entry->ordinal};
  }
  if (bracket == std::string_view::npos || name.back() != ')') return std::nullopt;
  const std::string_view digits = name.substr(bracket + 1, name.size() - bracket - 2);
  if (digits.empty() || (digits.size() > 1 && digits.front() == '0')) return std::nullopt;
  short index = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), index);
  if (error != std::errc{} || end != digits.data() + digits.size()) return std::nullopt;
  const auto found = std::lower_bound(entry->indexes.begin(), entry->indexes.end(), index);
  if (found == entry->indexes.end() || *found != index) return std::nullopt;
  return ControlId{static_cast<std::uint16_t>(entry->ordinal + (found - entry->indexes.begin()))};
}

std::string NameOf(ControlId control) {
  for (const NameEntry& entry : kEntries) {
    const auto slot = static_cast<std::size_t>(control.ordinal - entry.ordinal);
    if (entry.indexes.empty() && slot == 0) return std::string(entry.name);
    if (control.ordinal >= entry.ordinal && slot < entry.indexes.size()) {
      return std::string(entry.name) + "(" + std::to_string(entry.indexes[slot]) + ")";
    }
  }
  return {};
}

std::string_view NameOf(TimerId timer) { return kTimers[static_cast<std::size_t>(timer)]; }

}  // namespace htr60
