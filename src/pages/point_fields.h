#pragma once

#include "form/control_id.h"

namespace htr60::pages {

/// The two fields of one point of a curve.
struct PointFields {
  TextId x;
  TextId y;
};

}  // namespace htr60::pages
