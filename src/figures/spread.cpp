#include "figures/spread.h"

#include <algorithm>
#include <numeric>

namespace htr60::figures {

std::vector<double> SpreadLabels(const std::vector<double>& wanted, double step, double from, double to) {
  std::vector<std::size_t> order(wanted.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return wanted[a] < wanted[b]; });
  if (order.size() > 1) step = std::min(step, std::max(0.0, to - from) / static_cast<double>(order.size() - 1));
  std::vector<double> places(wanted.size());
  double least = from;
  for (const std::size_t i : order) {
    places[i] = std::max(wanted[i], least);
    least = places[i] + step;
  }
  double most = std::max(from, to);
  for (auto i = order.rbegin(); i != order.rend(); ++i) {
    places[*i] = std::min(places[*i], most);
    most = places[*i] - step;
  }
  return places;
}

}  // namespace htr60::figures
