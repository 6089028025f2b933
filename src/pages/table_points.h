#pragma once

#include <array>

#include "pages/point_fields.h"

namespace htr60::pages {

/// Points 1 to 21 of the linearization table; the numbers of the fields follow no rule.
inline constexpr std::array<PointFields, 21> kTablePoints = {{
    {id::txtParameter(21), id::txtParameter(36)}, {id::txtParameter(22), id::txtParameter(52)},
    {id::txtParameter(27), id::txtParameter(53)}, {id::txtParameter(28), id::txtParameter(54)},
    {id::txtParameter(29), id::txtParameter(55)}, {id::txtParameter(30), id::txtParameter(56)},
    {id::txtParameter(31), id::txtParameter(66)}, {id::txtParameter(32), id::txtParameter(67)},
    {id::txtParameter(33), id::txtParameter(68)}, {id::txtParameter(34), id::txtParameter(69)},
    {id::txtParameter(35), id::txtParameter(70)}, {id::txtParameter(71), id::txtParameter(82)},
    {id::txtParameter(72), id::txtParameter(83)}, {id::txtParameter(73), id::txtParameter(84)},
    {id::txtParameter(74), id::txtParameter(85)}, {id::txtParameter(75), id::txtParameter(86)},
    {id::txtParameter(76), id::txtParameter(87)}, {id::txtParameter(77), id::txtParameter(88)},
    {id::txtParameter(78), id::txtParameter(89)}, {id::txtParameter(79), id::txtParameter(90)},
    {id::txtParameter(80), id::txtParameter(91)},
}};

}  // namespace htr60::pages
