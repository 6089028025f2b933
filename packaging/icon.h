#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace htr60::packaging {

/// A drawing that is not in the subset of SVG that `ReadDrawing` takes.
class DrawingError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct Point {
  double x = 0;
  double y = 0;
};

struct Colour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
};

/// One filled path: closed outlines, even-odd rule, in units of the drawing.
struct Shape {
  Colour fill;
  std::vector<std::vector<Point>> outlines;
};

struct Drawing {
  double width = 0;
  double height = 0;
  std::vector<Shape> shapes;
};

/// Pixels from the top row down, red, green, blue, alpha of one byte each, colours not multiplied by alpha.
struct Image {
  int size = 0;
  std::vector<std::uint8_t> rgba;
};

/// The sizes in an icon file, in pixels.
inline constexpr std::array<int, 4> kIconSizes = {16, 24, 32, 48};

/// Reads an SVG text of a `viewBox` and `path` elements with a `fill` of the form #rrggbb, `fill-rule` "evenodd" and
/// the absolute commands M, L, H, V, C and Z. Anything else throws `DrawingError` rather than being drawn wrong.
Drawing ReadDrawing(std::string_view svg);

/// The drawing scaled to a square of `size` pixels.
Image Rasterise(const Drawing& drawing, int size);

/// An icon file of 32-bit pictures with their masks, one of each of the images, in their order.
std::string WriteIcon(std::span<const Image> images);

}  // namespace htr60::packaging
