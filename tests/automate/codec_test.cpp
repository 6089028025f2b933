#include <string>

#include "driver.h"

namespace htr60::automation {
namespace {

struct Case {
  const char* name;
  const char* args;
  const char* result;
};

// One look at each operation; what the codecs do is told by their own tests.
constexpr Case kCases[] = {
    {"FloatToHex", R"j(["1.5"])j", R"j("3FC00000")j"},
    {"HexToFloat", R"j(["3FC00000"])j", "1.5"},
    {"HexToFloat", R"j(["C0000000"])j", "-2"},
    {"ByteToBits", "[5]", R"j("00000101")j"},
    {"ByteToBits", "[5.0]", R"j("00000101")j"},
    {"IntegerPartToBits", R"j(["12.5"])j", R"j("1100")j"},
    {"IntegerToBits", "[10]", R"j("1010")j"},
    {"IntegerToBits", "[-1]", R"j("0")j"},
    {"FractionToBits", "[0.5]", R"j("1")j"},
    {"NormalizeMantissa", R"j(["1.1"])j", R"j(["01111111","10000000000000000000000"])j"},
    {"BitsToHexDigit", R"j(["1111"])j", R"j("F")j"},
    {"ParseLeadingNumber", R"j([" 12.5kPa"])j", "12.5"},
    {"ParseLeadingNumber", R"j(["&H1F"])j", "31"},
    {"ParseLocaleNumber", R"j(["1,000.5"])j", "1000.5"},
    {"NumberToText", "[0.1]", R"j("0.1")j"},
    {"NumberToText", "[100]", R"j("100")j"},
    {"FormatValue", "[1.5]", R"j("1.500")j"},
    {"FormatValue", "[-0.0001]", R"j("0.000")j"},
    {"HexToWord", R"j(["0999"])j", "2457"},
    {"HexToWord", R"j(["GG"])j", "null"},
    {"HexToLong", R"j(["7FFFFFFF"])j", "2147483647"},
    {"HexToLong", R"j(["80000000"])j", "null"},
    {"HexToFourWords", R"j(["0001000200038000"])j", "[1,2,3,null]"},
    {"HexToThreeBytes", R"j(["0898"])j", "[8,152,null]"},
    {"HexToFloatArray", R"j(["3FC0000000000000"])j",
     "[1.5,0,5.87747175411144e-39,5.87747175411144e-39,5.87747175411144e-39,5.87747175411144e-39,"
     "5.87747175411144e-39,5.87747175411144e-39,5.87747175411144e-39,5.87747175411144e-39,5.87747175411144e-39,"
     "5.87747175411144e-39,5.87747175411144e-39,5.87747175411144e-39,5.87747175411144e-39,5.87747175411144e-39]"},
    {"HexToFloatPair", R"j(["3FC00000C0000000"])j", R"j(["1.500","-2.000"])j"},
    {"HexToScale", R"j(["3FC0000000000000046D00"])j", R"j(["1.500","0.000",1133])j"},
    {"HexToScale", R"j(["3FC0000000000000FFFF00"])j", R"j(["1.500","0.000",null])j"},
    {"HexToFloatStatus", R"j(["3FC0000080"])j", R"j(["1.500",128])j"},
    {"HexToFloatStatus", R"j(["3FC00000"])j", R"j(["1.500",null])j"},
    {"HexToSimulation", R"j(["803FC0000001"])j", "[128,1.5,1]"},
    {"HexToSimulation", R"j(["X"])j", "[null,null,null]"},
    {"HexToTextField", R"j(["312E00FF34"])j", R"j("1.")j"},
    {"HexToTextFieldStrict", R"j(["312E00FF34"])j", R"j("1.4")j"},
    {"TextToHexPadded", R"j([""])j", R"j("")j"},
    {"TextToHexPadded", R"j(["µ€"])j", R"j("B5800000000000000000000000000000")j"},
    {"MnemonicToHex", R"j(["AI1"])j", R"j("41493100000000000000000000000000")j"},
    {"TextToHex32", R"j(["AB"])j", R"j("4142000000000000000000000000000000000000000000000000000000000000")j"},
    {"UnitCodeToText", "[1133]", R"j("kPa")j"},
    {"UnitTextToCode", R"j(["m³"])j", R"j("040A")j"},
    {"StatusByteToText", "[0]", R"j("Bad & Non-specific")j"},
    {"StatusTextToHex", R"j(["no status"])j", R"j("")j"},
    {"DecodePVType", "[129]", R"j("Density")j"},
    {"DecodePVType", "[-1]", R"j("")j"},
    {"EncodePVType", R"j(["Density"])j", R"j("0081")j"},
    {"EncodeLinType", R"j(["anything"])j", R"j("00")j"},
    {"EncodeMonitIndex", R"j(["PV%"])j", R"j("006D")j"},
    {"DecodeMonitIndex", R"j([11,"Physical"])j", R"j("User Index")j"},
    {"DecodeMonitIndexFull", R"j([11,"Physical"])j", R"j("PV Scale")j"},
    {"DecodeMonitDataType", R"j(["Out"])j", R"j("FLOATANDSTATUS")j"},
    {"FillLengthUnitList", "[]", R"j(["m","cm","mm","ft","in"])j"},
    {"GetFactor1Unit", R"j(["kPa"])j", R"j("0.248642")j"},
    {"GetFactor2Unit", R"j(["mH2O"])j", R"j("2.53545000002576E-02")j"},
};

TEST(CodecCommand, EveryOperationAnswersInItsForm) {
  Driver driver(Driver::Captured());
  for (const Case& c : kCases) {
    SCOPED_TRACE(std::string(c.name) + c.args);
    EXPECT_EQ(driver.Codec(c.name, Json::parse(c.args)), Json::parse(c.result));
  }
  EXPECT_EQ(driver.Ok({{"do", "codec"}, {"name", "FillUnitList"}})["result"].size(), 577U);
  EXPECT_EQ(driver.Codec("FillStatusList", Json::array()).size(), 146U);
  EXPECT_EQ(driver.Codec("FillVolumeUnitList", Json::array()).size(), 9U);
  EXPECT_EQ(driver.Codec("FillDensityUnitList", Json::array()).size(), 13U);
}

TEST(CodecCommand, WholeNumbersAreIntegersAndOthersReadBackTheSame) {
  Driver driver(Driver::Captured());
  EXPECT_TRUE(driver.Codec("HexToFloat", {"42C80000"}).is_number_integer());
  EXPECT_EQ(driver.Codec("HexToFloat", {"42C80000"}).dump(), "100");
  EXPECT_EQ(driver.Codec("ParseLeadingNumber", {"0.1"}).dump(), "0.1");
  EXPECT_EQ(driver.Codec("HexToFloat", {"7F800000"}).get<double>(), 3.40282366920938E+38);
}

TEST(CodecCommand, TheStateIsTheControlsAndTheFormStaysAsItIs) {
  Driver driver(Driver::Captured());
  EXPECT_EQ(driver.Codec("FloatToHex", {""}), "00000000");
  driver.Codec("FloatToHex", {"0.001"});
  EXPECT_EQ(driver.Codec("FloatToHex", {"0.0000001"}), "3A800000");  // the exponent of the text before
  driver.Codec("GetFactor1Unit", {"kPa"});
  EXPECT_EQ(driver.Text("txtParameter(197)"), "");
  driver.Refused({{"do", "codec"}, {"name", "FloatToHex"}, {"args", {"99999999999"}}});
  driver.Ok({{"do", "create"}});
  EXPECT_EQ(driver.Codec("FloatToHex", {"0.0000001"}), "00000000");
}

TEST(CodecCommand, TheLocaleCounts) {
  Driver driver(Json{{"decimalSeparator", ","}});
  EXPECT_EQ(driver.Codec("FormatValue", {1.5}), "1,500");
  EXPECT_EQ(driver.Codec("GetFactor2Unit", {"kPa"}), "0,248642");
  EXPECT_EQ(driver.Codec("ParseLocaleNumber", {"1.000,5"}), 1000.5);
  EXPECT_EQ(driver.Codec("FloatToHex", {"1,5"}), "3FC00000");
}

}  // namespace
}  // namespace htr60::automation
