#include "presentation/contrast.h"

#include <algorithm>
#include <cmath>

namespace htr60::presentation {
namespace {

constexpr Rgb kBlack{};
constexpr Rgb kWhite{255, 255, 255};

double Linear(std::uint8_t part) {
  const double share = part / 255.0;
  return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double Luminance(Rgb color) {
  return 0.2126 * Linear(color.red) + 0.7152 * Linear(color.green) + 0.0722 * Linear(color.blue);
}

}  // namespace

double Contrast(Rgb a, Rgb b) {
  const auto [dark, light] = std::minmax({Luminance(a), Luminance(b)});
  return (light + 0.05) / (dark + 0.05);
}

Rgb Mixed(Rgb a, Rgb b, double share) {
  const auto part = [share](int from, int to) {
    return static_cast<std::uint8_t>(std::lround(from + (to - from) * share));
  };
  return {part(a.red, b.red), part(a.green, b.green), part(a.blue, b.blue)};
}

Rgb Against(Rgb ground, Rgb wanted, double least) {
  if (Contrast(ground, wanted) >= least) return wanted;
  const Rgb end = Contrast(ground, kBlack) > Contrast(ground, kWhite) ? kBlack : kWhite;
  constexpr int kSteps = 64;
  for (int i = 1; i < kSteps; ++i) {
    const Rgb color = Mixed(wanted, end, static_cast<double>(i) / kSteps);
    if (Contrast(ground, color) >= least) return color;
  }
  return end;
}

bool Grounds::IsDark() const { return Luminance(window) < 0.18; }

// Which of the two is harder to stand out from depends on the palette.
Rgb Grounds::Text(Rgb wanted) const { return Against(base, Against(window, wanted, kTextContrast), kTextContrast); }
Rgb Grounds::Shape(Rgb wanted) const { return Against(base, Against(window, wanted, kShapeContrast), kShapeContrast); }

Rgb Grounds::Warning() const { return Text(IsDark() ? Rgb{0xFF, 0xC1, 0x4D} : Rgb{0x8F, 0x5B, 0x00}); }
Rgb Grounds::Alert() const { return Text(IsDark() ? Rgb{0xFF, 0x8A, 0x80} : Rgb{0xB0, 0x1B, 0x1B}); }

}  // namespace htr60::presentation
