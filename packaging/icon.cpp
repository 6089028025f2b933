#include "icon.h"

#include <expat.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <memory>
#include <type_traits>

namespace htr60::packaging {
namespace {

constexpr int kCurveSteps = 16;
constexpr int kSamples = 8;  // samples a pixel, in either direction
constexpr std::size_t kChannels = 4;

/// The numbers and command letters of a path or of a `viewBox`.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : rest_(text) {}

  bool AtEnd() {
    SkipSeparators();
    return rest_.empty();
  }

  bool AtLetter() { return !AtEnd() && std::string_view("MLHVCZ").find(rest_.front()) != std::string_view::npos; }

  char Letter() {
    const char letter = rest_.front();
    rest_.remove_prefix(1);
    return letter;
  }

  double Number() {
    SkipSeparators();
    double value = 0;
    const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), value);
    if (error != std::errc()) {
      throw DrawingError("no number at \"" + std::string(rest_.substr(0, 20)) + "\"");
    }
    rest_.remove_prefix(static_cast<std::size_t>(end - rest_.data()));
    return value;
  }

  Point Pair() {
    const double x = Number();
    return {x, Number()};
  }

 private:
  void SkipSeparators() { rest_.remove_prefix(std::min(rest_.find_first_not_of(" ,\t\r\n"), rest_.size())); }

  std::string_view rest_;
};

void AddCurve(std::vector<Point>& outline, Point c1, Point c2, Point end) {
  const Point start = outline.back();
  for (int i = 1; i <= kCurveSteps; ++i) {
    const double t = static_cast<double>(i) / kCurveSteps;
    const double u = 1 - t;
    const auto mix = [&](double a, double b, double c, double d) {
      return u * u * u * a + 3 * u * u * t * b + 3 * u * t * t * c + t * t * t * d;
    };
    outline.push_back({mix(start.x, c1.x, c2.x, end.x), mix(start.y, c1.y, c2.y, end.y)});
  }
}

void AddSegment(char command, Scanner& scanner, std::vector<Point>& outline) {
  if (outline.empty()) {
    throw DrawingError("a path begins with M");
  }
  const Point last = outline.back();
  switch (command) {
    case 'H':
      outline.push_back({scanner.Number(), last.y});
      break;
    case 'V':
      outline.push_back({last.x, scanner.Number()});
      break;
    case 'C': {
      const Point c1 = scanner.Pair();
      const Point c2 = scanner.Pair();
      AddCurve(outline, c1, c2, scanner.Pair());
      break;
    }
    default:
      outline.push_back(scanner.Pair());
  }
}

std::vector<std::vector<Point>> ReadPath(std::string_view data) {
  std::vector<std::vector<Point>> outlines;
  std::vector<Point> outline;
  Scanner scanner(data);
  char command = 0;
  while (!scanner.AtEnd()) {
    if (scanner.AtLetter()) {
      command = scanner.Letter();
    }
    if (command == 'Z') {
      outlines.push_back(std::move(outline));
      outline.clear();
      command = 0;
    } else if (command == 'M') {
      if (!outline.empty()) {
        throw DrawingError("an outline is not closed by Z");
      }
      outline.push_back(scanner.Pair());
      command = 'L';
    } else {
      AddSegment(command, scanner, outline);
    }
  }
  if (!outline.empty()) {
    throw DrawingError("an outline is not closed by Z");
  }
  return outlines;
}

Colour ReadColour(std::string_view text) {
  unsigned value = 0;
  if (text.size() == 7 && text.front() == '#') {
    const auto [end, error] = std::from_chars(text.data() + 1, text.data() + text.size(), value, 16);
    if (error == std::errc() && end == text.data() + text.size()) {
      const auto byte = [&](int shift) { return static_cast<std::uint8_t>((value >> shift) & 0xFFU); };
      return {byte(16), byte(8), byte(0)};
    }
  }
  throw DrawingError("a fill is written #rrggbb");
}

std::string_view Attribute(const XML_Char** attributes, std::string_view name) {
  for (; *attributes != nullptr; attributes += 2) {
    if (name == attributes[0]) {
      return attributes[1];
    }
  }
  throw DrawingError("the attribute " + std::string(name) + " is missing");
}

struct Reader {
  XML_Parser parser = nullptr;
  Drawing drawing;
  std::string error;
};

void ReadElement(Drawing& drawing, std::string_view name, const XML_Char** attributes) {
  if (name == "svg") {
    Scanner box(Attribute(attributes, "viewBox"));
    const Point origin = box.Pair();
    const Point size = box.Pair();
    if (origin.x != 0 || origin.y != 0 || !(size.x > 0) || !(size.y > 0)) {
      throw DrawingError("the viewBox begins at 0 0 and has a size");
    }
    drawing.width = size.x;
    drawing.height = size.y;
  } else if (name == "path") {
    if (Attribute(attributes, "fill-rule") != "evenodd") {
      throw DrawingError("the fill-rule is evenodd");
    }
    drawing.shapes.push_back({ReadColour(Attribute(attributes, "fill")), ReadPath(Attribute(attributes, "d"))});
  } else {
    throw DrawingError("the element " + std::string(name) + " is not known");
  }
}

// No exception may cross the parser, which is C.
void XMLCALL OnElement(void* user, const XML_Char* name, const XML_Char** attributes) {
  auto& reader = *static_cast<Reader*>(user);
  if (!reader.error.empty()) {
    return;
  }
  try {
    ReadElement(reader.drawing, name, attributes);
  } catch (const DrawingError& failure) {
    reader.error = failure.what();
    XML_StopParser(reader.parser, XML_FALSE);
  }
}

/// Where the outlines cross the horizontal line at `y`, in rising order of x.
std::vector<double> Crossings(const Shape& shape, double y) {
  std::vector<double> crossings;
  for (const auto& outline : shape.outlines) {
    for (std::size_t i = 0; i < outline.size(); ++i) {
      const Point a = outline[i];
      const Point b = outline[(i + 1) % outline.size()];
      if ((a.y <= y) != (b.y <= y)) {
        crossings.push_back(a.x + (y - a.y) / (b.y - a.y) * (b.x - a.x));
      }
    }
  }
  std::sort(crossings.begin(), crossings.end());
  return crossings;
}

/// How many of the samples of each pixel lie inside the shape.
std::vector<int> Coverage(const Shape& shape, const Drawing& drawing, int size) {
  std::vector<int> hits(static_cast<std::size_t>(size) * static_cast<std::size_t>(size));
  const int fine = size * kSamples;
  for (int row = 0; row < fine; ++row) {
    const std::vector<double> crossings = Crossings(shape, (row + 0.5) * drawing.height / fine);
    for (int column = 0; column < fine; ++column) {
      const double x = (column + 0.5) * drawing.width / fine;
      const auto before = std::upper_bound(crossings.begin(), crossings.end(), x) - crossings.begin();
      if (before % 2 == 1) {
        ++hits[static_cast<std::size_t>(row / kSamples * size + column / kSamples)];
      }
    }
  }
  return hits;
}

/// Puts `colour` of opacity `alpha` (0 to 1) over a pixel.
void Blend(std::uint8_t* pixel, Colour colour, double alpha) {
  const double below = pixel[3] / 255.0 * (1 - alpha);
  const double total = alpha + below;
  if (total <= 0) {
    return;
  }
  const auto mix = [&](std::uint8_t old, std::uint8_t fresh) {
    return static_cast<std::uint8_t>(std::lround((fresh * alpha + old * below) / total));
  };
  pixel[0] = mix(pixel[0], colour.red);
  pixel[1] = mix(pixel[1], colour.green);
  pixel[2] = mix(pixel[2], colour.blue);
  pixel[3] = static_cast<std::uint8_t>(std::lround(total * 255));
}

void PutLittleEndian(std::string& out, std::uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) {
    out.push_back(static_cast<char>((value >> (8 * i)) & 0xFFU));
  }
}

/// A device-independent bitmap as an icon holds it: twice the height for picture and mask, rows from the bottom up.
std::string WriteBitmap(const Image& image) {
  const auto size = static_cast<std::uint32_t>(image.size);
  std::string out;
  PutLittleEndian(out, 40, 4);
  PutLittleEndian(out, size, 4);
  PutLittleEndian(out, 2 * size, 4);
  PutLittleEndian(out, 1, 2);
  PutLittleEndian(out, 32, 2);
  out.append(24, '\0');
  std::string mask;
  for (std::size_t row = size; row-- > 0;) {
    std::string bits((size + 31) / 32 * 4, '\0');
    for (std::size_t column = 0; column < size; ++column) {
      const std::uint8_t* pixel = &image.rgba[(row * size + column) * kChannels];
      for (const int channel : {2, 1, 0, 3}) {
        out.push_back(static_cast<char>(pixel[channel]));
      }
      if (pixel[3] == 0) {
        bits[column / 8] = static_cast<char>(static_cast<unsigned char>(bits[column / 8]) | (0x80U >> (column % 8)));
      }
    }
    mask += bits;
  }
  return out + mask;
}

}  // namespace

Drawing ReadDrawing(std::string_view svg) {
  const std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> parser(XML_ParserCreate(nullptr),
                                                                                             &XML_ParserFree);
  Reader reader;
  reader.parser = parser.get();
  XML_SetUserData(parser.get(), &reader);
  XML_SetStartElementHandler(parser.get(), OnElement);
  const XML_Status status = XML_Parse(parser.get(), svg.data(), static_cast<int>(svg.size()), XML_TRUE);
  if (!reader.error.empty()) {
    throw DrawingError(reader.error);
  }
  if (status != XML_STATUS_OK) {
    throw DrawingError(XML_ErrorString(XML_GetErrorCode(parser.get())));
  }
  if (reader.drawing.width <= 0) {
    throw DrawingError("no svg element");
  }
  return std::move(reader.drawing);
}

Image Rasterise(const Drawing& drawing, int size) {
  Image image{size, std::vector<std::uint8_t>(static_cast<std::size_t>(size * size) * kChannels)};
  for (const Shape& shape : drawing.shapes) {
    const std::vector<int> hits = Coverage(shape, drawing, size);
    for (std::size_t i = 0; i < hits.size(); ++i) {
      Blend(&image.rgba[i * kChannels], shape.fill, static_cast<double>(hits[i]) / (kSamples * kSamples));
    }
  }
  return image;
}

std::string WriteIcon(std::span<const Image> images) {
  constexpr std::uint32_t kHeader = 6;
  constexpr std::uint32_t kEntry = 16;
  std::string out;
  PutLittleEndian(out, 0, 2);
  PutLittleEndian(out, 1, 2);
  PutLittleEndian(out, static_cast<std::uint32_t>(images.size()), 2);
  std::string bitmaps;
  for (const Image& image : images) {
    const std::string bitmap = WriteBitmap(image);
    const auto offset = kHeader + kEntry * static_cast<std::uint32_t>(images.size());
    PutLittleEndian(out, static_cast<std::uint32_t>(image.size), 1);
    PutLittleEndian(out, static_cast<std::uint32_t>(image.size), 1);
    PutLittleEndian(out, 0, 2);
    PutLittleEndian(out, 1, 2);
    PutLittleEndian(out, 32, 2);
    PutLittleEndian(out, static_cast<std::uint32_t>(bitmap.size()), 4);
    PutLittleEndian(out, offset + static_cast<std::uint32_t>(bitmaps.size()), 4);
    bitmaps += bitmap;
  }
  return out + bitmaps;
}

}  // namespace htr60::packaging
