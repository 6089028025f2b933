#pragma once

#include <vector>

#include "windows/view/page_plan.h"

namespace htr60::view {

/// What the page has to paint again where it shows `after` instead of `before`, the figure left aside: rectangles from
/// its upper left corner. Windows of fields look after themselves.
std::vector<RECT> DamageOf(const PagePlan& before, const PagePlan& after, const Look& look);

}  // namespace htr60::view
