#pragma once

#include <cstdint>

// What stands out from its ground for every eye, whatever palette the system has.
namespace htr60::presentation {

inline constexpr double kTextContrast = 4.5;
inline constexpr double kShapeContrast = 3;

/// An opaque colour as screens have it.
struct Rgb {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  bool operator==(const Rgb&) const = default;
};

/// By their relative luminance: 1 to 21.
double Contrast(Rgb a, Rgb b);
/// From `a`, 0, to `b`, 1.
Rgb Mixed(Rgb a, Rgb b, double share);
/// `wanted`, only as far towards black or white as it takes to stand out from `ground` by `least`.
Rgb Against(Rgb ground, Rgb wanted, double least);

/// Grounds on which something stands that is readable on both: a page, and a field in it.
struct Grounds {
  Rgb window;
  Rgb base;

  bool IsDark() const;
  /// Readable as text on both.
  Rgb Text(Rgb wanted) const;
  /// Told from both.
  Rgb Shape(Rgb wanted) const;
  /// What is doubtful, and what the operator must look at.
  Rgb Warning() const;
  Rgb Alert() const;
};

}  // namespace htr60::presentation
