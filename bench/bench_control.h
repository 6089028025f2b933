#pragma once

#include <cstddef>
#include <string>

#include "core/bare_control.h"

namespace htr60::bench {

/// The table page's answer, 24 tags: the largest that the device sends.
std::string TableAnswer();

/// Counted by `operator new` since the start.
extern std::size_t allocations;
extern std::size_t allocatedBytes;

}  // namespace htr60::bench
