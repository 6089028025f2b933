#include "figures/bar.h"

#include <algorithm>

namespace htr60::figures {

std::string WithUnit(std::string_view name, std::string_view unit) {
  std::string caption(name);
  if (!unit.empty()) caption.append(" (").append(unit).append(")");
  return caption;
}

std::string FirstWord(std::string_view text) { return std::string(text.substr(0, text.find(' '))); }

BarReach ReachOf(const FigureBar& bar, double value) {
  if (value > bar.to) return BarReach::kAbove;
  return value < bar.from ? BarReach::kBelow : BarReach::kWithin;
}

double OnBar(const FigureBar& bar, double value) { return std::clamp(value, bar.from, bar.to); }

void AddBracket(FigureBar& bar, double from, double to) {
  from = OnBar(bar, from);
  to = OnBar(bar, to);
  if (from != to) bar.spans.push_back({from, to, BarSpanStyle::kBracket});
}

void AddWrong(FigureBar& bar, double from, double to) {
  bar.spans.push_back({OnBar(bar, from), OnBar(bar, to), BarSpanStyle::kWrong});
}

}  // namespace htr60::figures
