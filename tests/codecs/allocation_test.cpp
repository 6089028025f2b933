#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <string>
#include <string_view>

#include "codecs/codecs.h"
#include "codecs/mAllUnits.h"
#include "codecs/mEnumeration.h"
#include "codecs/mStatusProfibus.h"

namespace {
std::atomic<int> allocations{0};
}

// Not inlined: the compiler would take the pair of malloc and delete for a mismatch.
[[gnu::noinline]] void* operator new(std::size_t size) {
  ++allocations;
  if (void* const place = std::malloc(size)) return place;
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* place) noexcept { std::free(place); }
[[gnu::noinline]] void operator delete(void* place, std::size_t) noexcept { std::free(place); }

namespace htr60 {
namespace {

struct Field {
  void SetText(std::string_view text) { size += text.size(); }
  std::size_t size = 0;
};

TEST(Allocation, CodecsTakeNoneFromTheHeap) {
  Codecs codecs('.');
  Field field;
  std::array<double, 16> values{};
  std::int32_t number = 0;
  std::int16_t word = 0;
  const std::string longDigits = "0." + std::string(90, '7');
  const int before = allocations;
  std::size_t size = 0;
  for (const std::string_view text :
       {std::string_view("123.456"), std::string_view("-0.000000123456789123456789"), std::string_view("0,25"),
        std::string_view("1E3"), std::string_view(longDigits), std::string_view("0.5E-299")}) {
    size += codecs.FloatToHex(text).size();
  }
  for (const double value : {1.5, -1e300, 1e-300, 123456789.0005}) {
    size += codecs.FormatValue(value).size() + codecs.NumberToText(value).size() +
            codecs.Float().FractionToBits(value).size();
  }
  codecs.HexToFloatPair("42C8000042C80000", field, field);
  codecs.HexToScale("42C8000042C80000046D", field, field, word);
  HexToFloatArray("42C80000", values);
  HexToSimulation("0042C8000001", number, values[0], number);
  size += HexToTextField("4142").size() + TextToHex32("Tag").size() + TextToHexPadded("Tag").size();
  size += UnitTextToCode("kPa").size() + UnitCodeToText(1133).size() + StatusTextToHex("Good (NC)").size() +
          EncodePVType("Flow").size() + DecodePVType(1).size() + EncodeMonitIndex("Out").size();
  size += static_cast<std::size_t>(codecs.TextToInt32("12"));
  EXPECT_EQ(allocations, before);
  EXPECT_GT(size, 0U);
  EXPECT_GT(field.size, 0U);
  const InlineText spilled(std::string_view(longDigits.data(), 92));
  EXPECT_EQ(allocations, before);
  const std::string counted(200, 'x');
  EXPECT_GT(allocations, before);
}

}  // namespace
}  // namespace htr60
