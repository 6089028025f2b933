#pragma once

#include <vector>

namespace htr60::figures {

/// Places for labels that want to stand at `wanted`, in any order: at least `step` apart where the room from `from` to
/// `to` allows it, none beyond its ends, in the order of what they want.
std::vector<double> SpreadLabels(const std::vector<double>& wanted, double step, double from, double to);

}  // namespace htr60::figures
