#pragma once

#include <array>

#include "pages/point_fields.h"

namespace htr60::pages {

/// A point of the characterization curve: measured pressure X, applied pressure Y, and the labels that name them.
struct CharPoint {
  PointFields fields;
  LabelId xLabel;
  LabelId yLabel;
};
using CharPoints = std::array<CharPoint, 5>;

/// The points of the entry, each hidden until it is taken.
inline constexpr CharPoints kRecordedPoints = {{
    {{id::txtParameter(192), id::txtParameter(187)}, id::lbArray(303), id::lbArray(298)},
    {{id::txtParameter(191), id::txtParameter(186)}, id::lbArray(302), id::lbArray(297)},
    {{id::txtParameter(190), id::txtParameter(185)}, id::lbArray(301), id::lbArray(296)},
    {{id::txtParameter(189), id::txtParameter(184)}, id::lbArray(300), id::lbArray(295)},
    {{id::txtParameter(188), id::txtParameter(183)}, id::lbArray(299), id::lbArray(294)},
}};

/// The points of the curve that the instrument holds.
inline constexpr CharPoints kHeldPoints = {{
    {{id::txtParameter(114), id::txtParameter(104)}, id::lbArray(142), id::lbArray(132)},
    {{id::txtParameter(115), id::txtParameter(105)}, id::lbArray(143), id::lbArray(133)},
    {{id::txtParameter(116), id::txtParameter(106)}, id::lbArray(144), id::lbArray(137)},
    {{id::txtParameter(117), id::txtParameter(107)}, id::lbArray(145), id::lbArray(138)},
    {{id::txtParameter(118), id::txtParameter(108)}, id::lbArray(146), id::lbArray(139)},
}};

}  // namespace htr60::pages
