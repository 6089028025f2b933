#include <algorithm>
#include <array>

#include "simulator/device/write_rules.h"

namespace htr60::sim {
namespace {

template <std::size_t N>
using CodeList = std::array<std::uint16_t, N>;

constexpr CodeList<2> kLockCodes{0x0000, 0x0999};
constexpr CodeList<4> kTypeCodes{0x0000, 0x0001, 0x0002, 0x0081};
constexpr CodeList<2> kFlagCodes{0x00, 0x01};
constexpr CodeList<2> kOneTwo{0x01, 0x02};
constexpr CodeList<3> kOneToThree{0x01, 0x02, 0x03};
constexpr CodeList<4> kOneToFour{0x01, 0x02, 0x03, 0x04};
constexpr CodeList<3> kZeroToTwo{0x00, 0x01, 0x02};
constexpr CodeList<14> kMeasuredCodes{0x00, 0x01, 0x02, 0x03, 0x04, 0x05, 0x06,
                                      0x07, 0x08, 0x09, 0x0A, 0x0B, 0x0C, 0x0D};
constexpr CodeList<3> kTargetCodes{0x08, 0x10, 0x80};
constexpr CodeList<6> kLcdBlocks{0x00, 0x01, 0x03, 0x04, 0x05, 0xFF};
constexpr CodeList<3> kSimCodes{0x00, 0x01, 0xFF};
constexpr CodeList<3> kSelectorCodes{0x00, 0x01, 0x80};
constexpr CodeList<5> kMakerCodes{0x00, 0x01, 0x02, 0x03, 0xFF};
constexpr CodeList<2> kInitializedCodes{0x00, 0xAA};
constexpr CodeList<2> kSensorTypes{0x0075, 0x0076};
constexpr CodeList<9> kRanges{0x00, 0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0xFD};
constexpr CodeList<6> kFluids{0x0001, 0x0002, 0x0003, 0x00FB, 0x00FC, 0x00FD};
constexpr CodeList<12> kDiaphragms{0x0002, 0x0003, 0x0004, 0x0005, 0x000F, 0x0013,
                                   0x001E, 0x00EC, 0x00ED, 0x00EF, 0x00F0, 0x00FD};
constexpr CodeList<3> kModels{0x006C, 0x006D, 0xFFFF};
constexpr CodeList<18> kFlangeTypes{0x0C, 0x0D, 0x0E, 0x0F, 0x10, 0x11, 0x12, 0x13, 0x14,
                                    0x15, 0x16, 0x17, 0x18, 0x19, 0xEC, 0xFB, 0xFC, 0xFD};
constexpr CodeList<9> kFlangeMaterials{0x00, 0x01, 0x02, 0x03, 0x04, 0x05, 0xFB, 0xFC, 0xFD};
constexpr CodeList<7> kORings{0x0A, 0x0B, 0x0C, 0x0D, 0xFB, 0xFC, 0xFD};

constexpr WriteItem Plain(std::size_t attribute, std::string_view name) {
  return {.attribute = attribute, .names = {name}};
}
constexpr WriteItem Coded(std::size_t attribute, std::string_view name, std::span<const std::uint16_t> codes,
                          Effect effect = nullptr) {
  return {.attribute = attribute, .names = {name}, .check = CheckCodes, .effect = effect, .codes = codes};
}
constexpr WriteItem Ranged(std::size_t attribute, std::string_view name, double least, double most) {
  return {.attribute = attribute, .names = {name}, .check = CheckRange, .least = least, .most = most};
}
constexpr WriteItem Checked(std::size_t attribute, std::string_view name, Check check, Effect effect = nullptr) {
  return {.attribute = attribute, .names = {name}, .check = check, .effect = effect};
}
constexpr WriteItem Joined(std::size_t attribute, std::string_view first, std::string_view second, Check check,
                           Effect effect = nullptr) {
  return {.attribute = attribute, .names = {first, second}, .check = check, .effect = effect};
}
constexpr WriteItem Since(int version, WriteItem item) {
  item.since = version;
  return item;
}
constexpr WriteItem Shaped(Shape shape, WriteItem item) {
  item.shape = shape;
  return item;
}
constexpr WriteItem Always(WriteItem item) {
  item.always = true;
  return item;
}

constexpr WriteItem kPvTypeItem = Coded(1, "pvType", kTypeCodes, ApplyPvType);
constexpr WriteItem kAiConfigItem = Coded(4, "aiConfig", kOneTwo, ApplyAiConfig);

constexpr std::array kWrite2{kPvTypeItem, Checked(2, "linType", CheckLinType), Ranged(3, "sqrtPoint", 0, 100),
                             Ranged(4, "cutOff", 0, 100)};
constexpr std::array kWrite3{Joined(1, "inScale", "inUnit", CheckInScale, ApplyInScale)};
constexpr std::array kWrite4{Joined(1, "outScale", "outUnit", CheckOutScale)};
constexpr std::array kWrite5{Checked(1, "tempUnit", CheckTemperatureUnit, ApplyTemperatureUnit)};
constexpr std::array kWrite7{Coded(2, "ai.target", kTargetCodes), Ranged(3, "ai.damping", 0, 120),
                             Since(107, kAiConfigItem)};
constexpr std::array kWrite8{
    WriteItem{.attribute = 2, .names = {"ai.hiHi", "ai.hi", "ai.loLo", "ai.lo", "ai.hyst"}, .check = CheckAlarms}};
constexpr std::array kWrite9{Coded(2, "ai.fsType", kZeroToTwo), Plain(3, "ai.fsValue")};
constexpr std::array kWrite10{Checked(2, "ai.sim", CheckSimulation)};
constexpr std::array kWrite12{Checked(1, "sensorUnit", CheckPressureUnit, ApplySensorUnit)};
constexpr std::array kWrite24{Coded(1, "lcd.block", kLcdBlocks), Plain(2, "lcd.index"),
                              Plain(3, "lcd.element"),           Shaped(Shape::kMnemonic, Plain(4, "lcd.mnemonic")),
                              Coded(5, "lcd.point", kOneToFour), Coded(6, "lcd.alpha", kFlagCodes)};
constexpr std::array kWrite28{Coded(1, "lcdSwitch", kOneToThree)};
constexpr std::array kWrite29{Coded(1, "lcdBar", kFlagCodes)};
constexpr std::array kWrite33{
    WriteItem{.attribute = 1, .names = {"identSelector"}, .check = CheckSelector, .codes = kSelectorCodes},
    Since(105, Plain(2, "userIdent")), Since(108, Coded(3, "agile", kFlagCodes))};
constexpr std::array kWrite35{Coded(1, "simEnable", kSimCodes), Plain(2, "simValue")};
constexpr std::array kWrite36{Coded(1, "writeLock", kLockCodes)};
constexpr std::array kWrite37{Coded(1, "sensorMaker", kMakerCodes),           Coded(2, "connected", kFlagCodes),
                              Coded(3, "initialized.hi", kInitializedCodes),  Coded(4, "sensorType.hi", kSensorTypes),
                              Coded(5, "range.hi", kRanges, ApplyRange),      Coded(6, "fluid.hi", kFluids),
                              Checked(7, "sensorSerial.hi", CheckSerial),     Coded(8, "diaphragm.hi", kDiaphragms),
                              Coded(9, "sensorModel.hi", kModels, ApplyModel)};
constexpr std::array kWrite39{Coded(1, "flangeType.hi", kFlangeTypes), Coded(2, "flangeMaterial.hi", kFlangeMaterials),
                              Coded(3, "oRing.hi", kORings)};
constexpr std::array kWrite40{Plain(1, "polyVersion"), Shaped(Shape::kTwelve, Plain(2, "poly.hi")),
                              Shaped(Shape::kTwelve, Plain(3, "poly.lo"))};
constexpr std::array kWrite41{Ranged(1, "gain", 0.5, 2),     Checked(2, "offset", CheckPressureOffset),
                              Ranged(3, "gainTemp", 0.5, 2), Ranged(4, "offsetTemp", -50, 50),
                              Ranged(5, "gain.hi", 0.5, 2),  Checked(6, "offset.hi", CheckPressureOffset),
                              Ranged(7, "gain.lo", 0.5, 2),  Checked(8, "offset.lo", CheckPressureOffset)};
constexpr std::array kWrite42{Always(Joined(1, "outScale", "outUnit", CheckOutScale, ApplyScaleCopy))};
constexpr std::array kWrite43{Coded(1, "zeroFilter", kFlagCodes)};
constexpr std::array kWrite45{Coded(1, "azEnable", kFlagCodes, ApplyAutoZero),
                              Checked(2, "azRef", CheckAzReference, ApplyAutoZero),
                              Checked(3, "azBand", CheckAzBand, ApplyAutoZero),
                              Shaped(Shape::kLong, Checked(4, "azTime", CheckAzTime, ApplyAutoZero)),
                              Coded(5, "azSelect", kOneTwo, ApplyAutoZero)};
constexpr std::array kWrite46{Ranged(1, "gravity", 1, 20),       Ranged(2, "height", 0.05, 100),
                              Ranged(3, "dilatation", 0, 0.001), Ranged(4, "pressCoeff", -1000, 1000),
                              Ranged(5, "zeroTemp", -50, 200),   Ranged(6, "heightTemp", -50, 200)};
constexpr std::array kWrite47{Plain(1, "k[0]"),
                              Plain(2, "k[1]"),
                              Plain(3, "k[2]"),
                              Plain(4, "k[3]"),
                              Plain(5, "k[4]"),
                              Plain(6, "k[5]"),
                              Plain(7, "k[6]"),
                              Plain(8, "k[7]"),
                              Plain(9, "k[8]"),
                              Plain(10, "k[9]"),
                              Plain(11, "k[10]"),
                              Plain(12, "k[11]"),
                              Plain(13, "k[12]"),
                              Plain(14, "k[13]"),
                              Plain(15, "k[14]"),
                              Plain(16, "k[15]"),
                              Plain(17, "k[16]"),
                              Plain(18, "k[17]"),
                              Joined(19, "limTempHi", "limTempLo", CheckUpperAbove),
                              Joined(21, "limDensHi", "limDensLo", CheckUpperAbove),
                              Plain(23, "kDens"),
                              Plain(24, "kTemp")};
constexpr std::array kWrite48{Plain(1, "solid[0]"),
                              Plain(2, "solid[1]"),
                              Plain(3, "solid[2]"),
                              Plain(4, "solid[3]"),
                              Plain(5, "solid[4]"),
                              Plain(6, "solid[5]"),
                              Joined(7, "solidHi", "solidLo", CheckUpperAbove, ApplySolidLimits)};
constexpr std::array kWrite51{kPvTypeItem, Coded(2, "measuredType", kMeasuredCodes, ApplyMeasuredType),
                              Coded(3, "mounting", kFlagCodes), Checked(4, "linType", CheckLinType)};
constexpr std::array kWrite57{Joined(1, "volScale", "volUnit", CheckVolScale)};
constexpr std::array kWrite59{kPvTypeItem,
                              Checked(2, "linType", CheckLinType),
                              Coded(3, "compensation", kFlagCodes, ApplyCompensation),
                              Ranged(4, "gravity", 1, 20),
                              Ranged(5, "height", 0.05, 100),
                              Since(105, Checked(6, "deadBand", CheckDeadBand))};
constexpr std::array kWrite60{Coded(1, "debugEnable", kFlagCodes), Plain(2, "debugPressure"), Plain(3, "debugTemp")};
constexpr std::array kWrite61{Coded(1, "densityRange", kZeroToTwo, ApplyDensityRange)};
constexpr std::array kWrite70{Coded(1, "initialized.lo", kInitializedCodes),  Coded(2, "sensorType.lo", kSensorTypes),
                              Coded(3, "range.lo", kRanges, ApplyRange),      Coded(4, "fluid.lo", kFluids),
                              Checked(5, "sensorSerial.lo", CheckSerial),     Coded(6, "diaphragm.lo", kDiaphragms),
                              Coded(7, "sensorModel.lo", kModels, ApplyModel)};
constexpr std::array kWrite71{Coded(1, "flangeType.lo", kFlangeTypes), Coded(2, "flangeMaterial.lo", kFlangeMaterials),
                              Coded(3, "oRing.lo", kORings)};
constexpr std::array kWrite72{kPvTypeItem};
constexpr std::array kWrite75{Checked(2, "ai.outScale", CheckBlockScale)};
constexpr std::array kWrite76{WriteItem{
    .attribute = 1, .names = {"aiConfig"}, .check = CheckAiConfig, .effect = ApplyAiConfig, .codes = kOneTwo}};

// What the attributes of the commands are, for whoever reads what travels.
constexpr std::array kOf1 = std::to_array<WriteOperand>({{1, "tag"}, {2, "writeLock"}});
constexpr std::array kOf6 = std::to_array<WriteOperand>({{1, "tablePoints"},
                                                         {2, "points"},
                                                         {3, "points"},
                                                         {4, "points"},
                                                         {5, "points"},
                                                         {6, "points"},
                                                         {7, "points"},
                                                         {8, "points"},
                                                         {9, "points"},
                                                         {10, "points"},
                                                         {11, "points"},
                                                         {12, "points"},
                                                         {13, "tableEnable"}});
constexpr std::array kOf11 = std::to_array<WriteOperand>({{2, "ai.out"}, {3, "ai.target"}});
constexpr std::array kOf14 = std::to_array<WriteOperand>({{1, "calLo"}});
constexpr std::array kOf15 = std::to_array<WriteOperand>({{1, "calHi"}});
constexpr std::array kOf16 = std::to_array<WriteOperand>({{1, "calTemp"}});
constexpr std::array kOf30 = std::to_array<WriteOperand>({{1, "charOperation"}});
constexpr std::array kOf31 =
    std::to_array<WriteOperand>({{1, "curveLength"}, {2, "curveX"}, {3, "curveY"}, {4, "charOperation"}});
constexpr std::array kOf32 = std::to_array<WriteOperand>({{1, "backupRestore"}});
constexpr std::array kOf34 = std::to_array<WriteOperand>({{1, "factoryReset"}});
constexpr std::array kOf44 = std::to_array<WriteOperand>({{1, "calHi"}, {2, "calLo"}, {3, "unused"}, {4, "unused"}});
constexpr std::array kOf52 = std::to_array<WriteOperand>({{1, "densLo"}, {2, "height"}});
constexpr std::array kOf53 = std::to_array<WriteOperand>({{1, "densHi"}, {2, "height"}});
constexpr std::array kOf54 = std::to_array<WriteOperand>({{1, "measuredType"}});
constexpr std::array kOf63 =
    std::to_array<WriteOperand>({{1, "calHi.hi"}, {2, "calLo.hi"}, {3, "unused"}, {4, "unused"}});
constexpr std::array kOf64 =
    std::to_array<WriteOperand>({{1, "calHi.lo"}, {2, "calLo.lo"}, {3, "unused"}, {4, "unused"}});
constexpr std::array kOf65 = std::to_array<WriteOperand>({{1, "calHi.hi"}});
constexpr std::array kOf66 = std::to_array<WriteOperand>({{1, "calLo.hi"}});
constexpr std::array kOf67 = std::to_array<WriteOperand>({{1, "calHi.lo"}});
constexpr std::array kOf68 = std::to_array<WriteOperand>({{1, "calLo.lo"}});
constexpr std::array kOf73 = std::to_array<WriteOperand>({{2, "snsScale"}, {3, "configuration"}});
constexpr std::array kOf74 = std::to_array<WriteOperand>({{2, "snsUnit"}, {3, "configuration"}});

constexpr WriteRow OfBlock(int code, std::span<const WriteItem> items) {
  return {.code = code, .items = items, .block = true};
}
constexpr WriteRow Acting(int code, Command command, std::span<const WriteOperand> operands, bool block = false) {
  return {.code = code, .block = block, .command = command, .operands = operands};
}
constexpr WriteRow Gated(int code, std::span<const WriteItem> items, Gate gate) {
  return {.code = code, .items = items, .gate = gate};
}

constexpr std::array kWrites = std::to_array<WriteRow>({
    Acting(1, WriteIdentification, kOf1),
    {2, kWrite2},
    {3, kWrite3},
    Gated(4, kWrite4, GateDensityScale),
    {5, kWrite5},
    Acting(6, WriteTablePoints, kOf6),
    OfBlock(7, kWrite7),
    OfBlock(8, kWrite8),
    OfBlock(9, kWrite9),
    OfBlock(10, kWrite10),
    Acting(11, WriteBlockMode, kOf11, true),
    {12, kWrite12},
    {13, kWrite5},
    Acting(14, WriteTrim, kOf14),
    Acting(15, WriteTrim, kOf15),
    Acting(16, WriteTemperatureTrim, kOf16),
    {24, kWrite24},
    {25, kWrite24},
    {26, kWrite24},
    {27, kWrite24},
    {28, kWrite28},
    {29, kWrite29},
    Acting(30, WriteCharOperation, kOf30),
    Acting(31, WriteCharPoints, kOf31),
    Acting(32, WriteBackupRestore, kOf32),
    {33, kWrite33},
    Acting(34, WriteFactoryReset, kOf34),
    {35, kWrite35},
    {36, kWrite36},
    {37, kWrite37},
    {38, {}},
    {39, kWrite39},
    {40, kWrite40},
    {41, kWrite41},
    Gated(42, kWrite42, GateDensityScale),
    {43, kWrite43},
    Acting(44, WriteWithoutReference, kOf44),
    {45, kWrite45},
    {46, kWrite46},
    {47, kWrite47},
    {48, kWrite48},
    {49, kWrite3},
    Gated(50, kWrite4, GateAlways),
    {51, kWrite51},
    Acting(52, WriteDensityPoint, kOf52),
    Acting(53, WriteDensityPoint, kOf53),
    Acting(54, WriteMeasuredType, kOf54),
    {57, kWrite57},
    {59, kWrite59},
    {60, kWrite60},
    {61, kWrite61},
    {62, kWrite35},
    Acting(63, WriteWithoutReference, kOf63),
    Acting(64, WriteWithoutReference, kOf64),
    Acting(65, WriteTrim, kOf65),
    Acting(66, WriteTrim, kOf66),
    Acting(67, WriteTrim, kOf67),
    Acting(68, WriteTrim, kOf68),
    {69, kWrite12},
    {70, kWrite70},
    {71, kWrite71},
    {72, kWrite72},
    Acting(73, WriteChannelScale, kOf73, true),
    Acting(74, WriteChannelUnit, kOf74, true),
    OfBlock(75, kWrite75),
    {76, kWrite76},
});
static_assert(std::is_sorted(kWrites.begin(), kWrites.end(),
                             [](const WriteRow& a, const WriteRow& b) { return a.code < b.code; }));

}  // namespace

const WriteRow* FindWrite(int code) {
  const auto* const row = std::lower_bound(kWrites.begin(), kWrites.end(), code,
                                           [](const WriteRow& r, int wanted) { return r.code < wanted; });
  return row == kWrites.end() || row->code != code ? nullptr : row;
}

std::span<const WriteRow> WriteRows() { return kWrites; }

}  // namespace htr60::sim
