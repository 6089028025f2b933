#include "icon.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace htr60::packaging {
namespace {

std::string Svg(const std::string& data, const std::string& fill = "#204060") {
  return R"(<svg viewBox="0 0 16 16"><path fill=")" + fill + R"(" fill-rule="evenodd" d=")" + data + R"("/></svg>)";
}

int Alpha(const Image& image, int column, int row) {
  return image.rgba[static_cast<std::size_t>(row * image.size + column) * 4 + 3];
}

std::uint32_t LittleEndian(const std::string& text, std::size_t at, int bytes) {
  std::uint32_t value = 0;
  for (int i = bytes; i-- > 0;) {
    value = value << 8 | static_cast<unsigned char>(text.at(at + static_cast<std::size_t>(i)));
  }
  return value;
}

std::string FileText(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

TEST(Drawing, FillsByTheEvenOddRule) {
  const Image image = Rasterise(ReadDrawing(Svg("M2 2H14V14H2Z M6 6H10V10H6Z M.5 0L1.5 0 1.5 1 .5 1Z")), 16);
  EXPECT_EQ(Alpha(image, 3, 3), 255);
  EXPECT_EQ(Alpha(image, 8, 8), 0) << "a hole";
  EXPECT_EQ(Alpha(image, 13, 13), 255);
  EXPECT_EQ(Alpha(image, 14, 14), 0);
  EXPECT_EQ(Alpha(image, 0, 0), 128) << "half a pixel";
  EXPECT_EQ(image.rgba[(3 * 16 + 3) * 4 + 0], 0x20);
  EXPECT_EQ(image.rgba[(3 * 16 + 3) * 4 + 1], 0x40);
  EXPECT_EQ(image.rgba[(3 * 16 + 3) * 4 + 2], 0x60);
}

TEST(Drawing, CurvesCoverTheirArea) {
  const std::string circle =
      "M0 8C0 3.5817 3.5817 0 8 0C12.4183 0 16 3.5817 16 8C16 12.4183 12.4183 16 8 16C3.5817 16 0 12.4183 0 8Z";
  double area = 0;
  const Image image = Rasterise(ReadDrawing(Svg(circle)), 48);
  for (int i = 0; i < 48 * 48; ++i) {
    area += image.rgba[static_cast<std::size_t>(i) * 4 + 3] / 255.0;
  }
  EXPECT_NEAR(area, 3.14159 * 24 * 24, 12);
}

TEST(Drawing, RefusesWhatItWouldDrawWrong) {
  const std::string path = R"(<path fill="#204060" fill-rule="evenodd" d="M0 0H1V1Z"/>)";
  const std::vector<std::string> refused = {
      Svg("M0 0h4v4z"),
      Svg("M0 0H4V4"),
      Svg("L4 4Z"),
      Svg("M0 0A1 1 0 0 1 4 4Z"),
      Svg("M0 0H4Z", "red"),
      Svg("M0 0H4Z", "#20406"),
      "<svg>" + path + "</svg>",
      R"(<svg viewBox="1 0 16 16">)" + path + "</svg>",
      R"(<svg viewBox="0 0 16 16"><circle r="3"/></svg>)",
      R"(<svg viewBox="0 0 16 16"><path fill="#204060" d="M0 0H4V4Z"/></svg>)",
      R"(<svg viewBox="0 0 16 16">)",
      "",
  };
  for (const std::string& svg : refused) {
    EXPECT_THROW(ReadDrawing(svg), DrawingError) << svg;
  }
}

class IconFile : public testing::TestWithParam<const char*> {};

TEST_P(IconFile, HoldsEverySizeWithItsMask) {
  const std::string icon = FileText(std::string(HTR60_ICON_FOLDER) + "/" + GetParam());
  ASSERT_EQ(LittleEndian(icon, 0, 2), 0U);
  ASSERT_EQ(LittleEndian(icon, 2, 2), 1U);
  ASSERT_EQ(LittleEndian(icon, 4, 2), kIconSizes.size());
  std::size_t next = 6 + 16 * kIconSizes.size();
  for (std::size_t i = 0; i < kIconSizes.size(); ++i) {
    const auto size = static_cast<std::uint32_t>(kIconSizes[i]);
    const std::size_t entry = 6 + 16 * i;
    EXPECT_EQ(LittleEndian(icon, entry, 1), size);
    EXPECT_EQ(LittleEndian(icon, entry + 1, 1), size);
    const std::uint32_t bytes = LittleEndian(icon, entry + 8, 4);
    const std::uint32_t offset = LittleEndian(icon, entry + 12, 4);
    EXPECT_EQ(offset, next);
    EXPECT_EQ(bytes, 40 + size * size * 4 + size * ((size + 31) / 32 * 4));
    EXPECT_EQ(LittleEndian(icon, offset + 8, 4), 2 * size);
    std::size_t opaque = 0;
    for (std::uint32_t pixel = 0; pixel < size * size; ++pixel) {
      opaque += LittleEndian(icon, offset + 40 + pixel * 4 + 3, 1) == 255 ? 1 : 0;
    }
    EXPECT_GT(opaque, size * size / 5) << size;
    EXPECT_LT(opaque, size * size * 4 / 5) << size;
    next = offset + bytes;
  }
  EXPECT_EQ(icon.size(), next);
}

INSTANTIATE_TEST_SUITE_P(Both, IconFile, testing::Values("connected.ico", "no connection.ico"));

TEST(IconFiles, OfBothStatesDiffer) {
  const std::string folder = HTR60_ICON_FOLDER;
  EXPECT_NE(FileText(folder + "/connected.ico"), FileText(folder + "/no connection.ico"));
}

}  // namespace
}  // namespace htr60::packaging
