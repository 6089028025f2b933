#include "presentation/marks.h"

#include <algorithm>
#include <iterator>

namespace htr60::presentation {
namespace {

constexpr std::string_view kWarnings[] = {"Table Not Initialised", "Disconnected", "Not Initialized"};
constexpr std::string_view kFine[] = {"New Table is Valid", "None", "No Alarm"};
constexpr std::string_view kNoBoard = "Sensor electronic board failure or disconnected";

template <std::size_t N>
bool Has(const std::string_view (&texts)[N], std::string_view text) {
  return std::find(std::begin(texts), std::end(texts), text) != std::end(texts);
}

bool HoldsStatus(RowKind kind) {
  switch (kind) {
    case RowKind::kText:
    case RowKind::kStatus:
    case RowKind::kListRo:
    case RowKind::kListBox:
    case RowKind::kLabel:
    case RowKind::kMsg:
      return true;
    default:
      return false;
  }
}

}  // namespace

Mark MarkOf(RowRole role, RowKind kind, std::string_view text) {
  if (text.empty()) return Mark::kNone;
  if (role == RowRole::kSimulate) return text == "Active" || text == "Enable" ? Mark::kUncertain : Mark::kNone;
  if (!HoldsStatus(kind) && role != RowRole::kSensorState) return Mark::kNone;
  if (text.starts_with("Good") || Has(kFine, text)) return Mark::kNone;
  if (text.starts_with("Uncertain") || Has(kWarnings, text)) return Mark::kUncertain;
  if (text.starts_with("Bad") || text.starts_with("Not Monotonous") || text == kNoBoard) return Mark::kBad;
  return role == RowRole::kVerdict ? Mark::kBad : Mark::kNone;
}

std::string_view NameOf(Mark mark) {
  switch (mark) {
    case Mark::kUncertain:
      return "uncertain";
    case Mark::kBad:
      return "bad";
    case Mark::kNone:
      break;
  }
  return {};
}

}  // namespace htr60::presentation
