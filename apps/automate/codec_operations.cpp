#include "automate/codec_operations.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>

#include "automate/virtual_host.h"
#include "codecs/codec_names.h"
#include "codecs/codecs.h"
#include "codecs/mAllUnits.h"
#include "codecs/mEnumeration.h"
#include "codecs/mFunctions.h"
#include "codecs/mStatusProfibus.h"
#include "text/numbers.h"

namespace htr60::automation {
namespace {

/// The arguments of one operation, checked already.
class Args {
 public:
  explicit Args(const Json& args) : args_(args) {}
  std::string_view Text(std::size_t i) const { return args_[i].get_ref<const std::string&>(); }
  double Real(std::size_t i) const { return args_[i].get<double>(); }
  std::int32_t Whole(std::size_t i) const { return args_[i].get<std::int32_t>(); }

 private:
  const Json& args_;
};

using Run = Json (*)(UserCntrl&, const Args&);

/// Kinds of the arguments: 't' a text, 'n' a number, 'i' a 32-bit whole number, 'b' a byte.
struct Operation {
  std::string_view name;
  std::string_view kinds;
  Run run;
};

/// Stands for a field of the form.
struct ScratchField {
  void SetText(std::string_view value) { text = std::string(value); }
  std::optional<std::string> text;
};

Json TextOf(std::string_view text) { return std::string(text); }
Json TextOf(const ScratchField& field) { return field.text ? Json(*field.text) : Json(); }
// No operation gives a negative number to an output: one that is negative still was not reached.
constexpr int kUntouched = -1;
Json WholeOf(std::int32_t output) { return output < 0 ? Json() : Json(output); }
Json RowsOf(std::span<const std::string_view> rows) { return rows; }

Json RunHexToWord(UserCntrl&, const Args& args) {
  std::int32_t word = kUntouched;
  HexToWord(args.Text(0), word);
  return WholeOf(word);
}

Json RunHexToLong(UserCntrl&, const Args& args) {
  std::int32_t number = kUntouched;
  HexToLong(args.Text(0), number);
  return WholeOf(number);
}

Json RunHexToFourWords(UserCntrl&, const Args& args) {
  std::array<std::int16_t, 4> words;
  words.fill(kUntouched);
  HexToFourWords(args.Text(0), words[0], words[1], words[2], words[3]);
  return Json::array({WholeOf(words[0]), WholeOf(words[1]), WholeOf(words[2]), WholeOf(words[3])});
}

Json RunHexToThreeBytes(UserCntrl&, const Args& args) {
  std::array<std::int32_t, 3> bytes;
  bytes.fill(kUntouched);
  HexToThreeBytes(args.Text(0), bytes[0], bytes[1], bytes[2]);
  return Json::array({WholeOf(bytes[0]), WholeOf(bytes[1]), WholeOf(bytes[2])});
}

Json RunHexToFloatArray(UserCntrl&, const Args& args) {
  std::array<double, 16> values{};
  HexToFloatArray(args.Text(0), values);
  Json numbers = Json::array();
  for (const double value : values) numbers.push_back(Number(value));
  return numbers;
}

Json RunHexToFloatPair(UserCntrl& control, const Args& args) {
  ScratchField first;
  ScratchField second;
  control.codecs.HexToFloatPair(args.Text(0), first, second);
  return Json::array({TextOf(first), TextOf(second)});
}

Json RunHexToScale(UserCntrl& control, const Args& args) {
  ScratchField high;
  ScratchField low;
  std::int16_t unit = kUntouched;
  control.codecs.HexToScale(args.Text(0), high, low, unit);
  return Json::array({TextOf(high), TextOf(low), WholeOf(unit)});
}

Json RunHexToFloatStatus(UserCntrl& control, const Args& args) {
  ScratchField value;
  std::int32_t status = kUntouched;
  control.codecs.HexToFloatStatus(args.Text(0), value, status);
  return Json::array({TextOf(value), WholeOf(status)});
}

Json RunHexToSimulation(UserCntrl&, const Args& args) {
  std::int32_t first = kUntouched;
  double value = std::numeric_limits<double>::quiet_NaN();
  std::int32_t last = kUntouched;
  HexToSimulation(args.Text(0), first, value, last);
  return Json::array({WholeOf(first), std::isnan(value) ? Json() : Number(value), WholeOf(last)});
}

// The operation has no output but the two texts that the codec keeps.
Json RunNormalizeMantissa(UserCntrl& control, const Args& args) {
  FloatCodec& codec = control.codecs.Float();
  codec.NormalizeMantissa(args.Text(0));
  return Json::array({TextOf(codec.ExponentBits()), TextOf(codec.MantissaBits())});
}

// The member fills a field of the form, so a control of its own has to hold out its field.
template <void (UserCntrl::*kMember)(std::string_view), std::uint16_t kField>
Json RunFactor(UserCntrl& control, const Args& args) {
  VirtualHost scratch({.decimalSeparator = control.codecs.DecimalSeparator(), .iconFolder = {}, .simulator = {}});
  (scratch.Control().*kMember)(args.Text(0));
  return scratch.Control().form.At(TextId{ControlId{kField}}).Text();
}

constexpr Operation kOperations[] = {
    {"HexToFloat", "t", [](UserCntrl&, const Args& a) { return Number(HexToFloat(a.Text(0))); }},
    {"FloatToHex", "t", [](UserCntrl& c, const Args& a) { return TextOf(c.codecs.FloatToHex(a.Text(0))); }},
    {"ByteToBits", "b", [](UserCntrl&, const Args& a) { return TextOf(FloatCodec::ByteToBits(a.Whole(0))); }},
    {"IntegerPartToBits", "t",
     [](UserCntrl& c, const Args& a) { return TextOf(c.codecs.Float().IntegerPartToBits(a.Text(0))); }},
    {"IntegerToBits", "i", [](UserCntrl&, const Args& a) { return TextOf(FloatCodec::IntegerToBits(a.Whole(0))); }},
    {"FractionToBits", "n",
     [](UserCntrl& c, const Args& a) { return TextOf(c.codecs.Float().FractionToBits(a.Real(0))); }},
    {"NormalizeMantissa", "t", RunNormalizeMantissa},
    {"BitsToHexDigit", "t",
     [](UserCntrl&, const Args& a) -> Json { return std::string(1, FloatCodec::BitsToHexDigit(a.Text(0))); }},
    {"ParseLeadingNumber", "t", [](UserCntrl&, const Args& a) { return Number(ParseLeadingNumber(a.Text(0))); }},
    {"ParseLocaleNumber", "t",
     [](UserCntrl& c, const Args& a) { return Number(c.codecs.ParseLocaleNumber(a.Text(0))); }},
    {"NumberToText", "n", [](UserCntrl& c, const Args& a) { return TextOf(c.codecs.NumberToText(a.Real(0))); }},
    {"FormatValue", "n", [](UserCntrl& c, const Args& a) { return TextOf(c.codecs.FormatValue(a.Real(0))); }},
    {"HexToWord", "t", RunHexToWord},
    {"HexToLong", "t", RunHexToLong},
    {"HexToFourWords", "t", RunHexToFourWords},
    {"HexToThreeBytes", "t", RunHexToThreeBytes},
    {"HexToFloatArray", "t", RunHexToFloatArray},
    {"HexToFloatPair", "t", RunHexToFloatPair},
    {"HexToScale", "t", RunHexToScale},
    {"HexToFloatStatus", "t", RunHexToFloatStatus},
    {"HexToSimulation", "t", RunHexToSimulation},
    {"HexToTextField", "t", [](UserCntrl&, const Args& a) { return TextOf(HexToTextField(a.Text(0))); }},
    {"HexToTextFieldStrict", "t", [](UserCntrl&, const Args& a) { return TextOf(HexToTextFieldStrict(a.Text(0))); }},
    {"TextToHex32", "t", [](UserCntrl&, const Args& a) { return TextOf(TextToHex32(a.Text(0))); }},
    {"TextToHexPadded", "t", [](UserCntrl&, const Args& a) { return TextOf(TextToHexPadded(a.Text(0))); }},
    {"MnemonicToHex", "t", [](UserCntrl&, const Args& a) { return TextOf(MnemonicToHex(a.Text(0))); }},
    {"UnitCodeToText", "i", [](UserCntrl&, const Args& a) { return TextOf(UnitCodeToText(a.Whole(0))); }},
    {"UnitTextToCode", "t", [](UserCntrl&, const Args& a) { return TextOf(UnitTextToCode(a.Text(0))); }},
    {"StatusByteToText", "i", [](UserCntrl&, const Args& a) { return TextOf(StatusByteToText(a.Whole(0))); }},
    {"StatusTextToHex", "t", [](UserCntrl&, const Args& a) { return TextOf(StatusTextToHex(a.Text(0))); }},
    {"FillUnitList", "", [](UserCntrl&, const Args&) { return RowsOf(UnitListRows()); }},
    {"FillVolumeUnitList", "", [](UserCntrl&, const Args&) { return RowsOf(VolumeUnitListRows()); }},
    {"FillLengthUnitList", "", [](UserCntrl&, const Args&) { return RowsOf(LengthUnitListRows()); }},
    {"FillDensityUnitList", "", [](UserCntrl&, const Args&) { return RowsOf(DensityUnitListRows()); }},
    {"FillStatusList", "", [](UserCntrl&, const Args&) { return RowsOf(StatusListRows()); }},
    {"DecodeMonitIndex", "it",
     [](UserCntrl&, const Args& a) { return TextOf(DecodeMonitIndex(a.Whole(0), a.Text(1))); }},
    {"DecodeMonitIndexFull", "it",
     [](UserCntrl&, const Args& a) { return TextOf(DecodeMonitIndexFull(a.Whole(0), a.Text(1))); }},
    {"DecodeMonitDataType", "t", [](UserCntrl&, const Args& a) { return TextOf(DecodeMonitDataType(a.Text(0))); }},
    {"GetFactor1Unit", "t", RunFactor<&UserCntrl::GetFactor1Unit, id::txtParameter(197).ordinal>},
    {"GetFactor2Unit", "t", RunFactor<&UserCntrl::GetFactor2Unit, id::txtParameter(198).ordinal>},
};

/// `arg` as the operation takes it; throws where it is not of that kind.
Json Checked(const Json& arg, char kind) {
  switch (kind) {
    case 't':
      if (arg.is_string()) return arg;
      throw CommandError("an argument is not a text");
    case 'n':
      if (arg.is_number()) return arg;
      throw CommandError("an argument is not a number");
    default:
      break;
  }
  const bool byte = kind == 'b';
  const auto whole = WholeNumber(arg, byte ? 0 : std::numeric_limits<std::int32_t>::min(),
                                 byte ? 255 : std::numeric_limits<std::int32_t>::max());
  if (!whole) throw CommandError(byte ? "an argument is not a byte" : "an argument is not a 32-bit whole number");
  return *whole;
}

Json CheckedArgs(const Json& args, std::string_view kinds) {
  if (args.size() != kinds.size()) {
    throw CommandError("the operation takes " + std::to_string(kinds.size()) + " arguments");
  }
  Json checked = Json::array();
  for (std::size_t i = 0; i < kinds.size(); ++i) checked.push_back(Checked(args[i], kinds[i]));
  return checked;
}

}  // namespace

std::function<Json(UserCntrl&)> PrepareCodec(std::string_view name, const Json& args) {
  for (const Operation& operation : kOperations) {
    if (operation.name != name) continue;
    return [run = operation.run, checked = CheckedArgs(args, operation.kinds)](UserCntrl& control) {
      return run(control, Args(checked));
    };
  }
  if (const Decoder decode = FindDecoder(name)) {
    return [decode, checked = CheckedArgs(args, "i")](UserCntrl&) { return TextOf(decode(Args(checked).Whole(0))); };
  }
  if (const Encoder encode = FindEncoder(name)) {
    return [encode, checked = CheckedArgs(args, "t")](UserCntrl&) { return TextOf(encode(Args(checked).Text(0))); };
  }
  throw CommandError("there is no codec operation " + Quoted(name));
}

}  // namespace htr60::automation
