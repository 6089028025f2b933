#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

namespace htr60 {

/// One row of an enumeration: the code that decodes to the text and the digits that the text is written as.
struct EnumerationRow {
  constexpr EnumerationRow(std::int32_t rowCode, std::string_view rowText, std::string_view rowWritten = {})
      : code(rowCode), text(rowText), written(rowWritten) {}
  /// A text that can be written and that no code decodes to.
  constexpr EnumerationRow(std::string_view rowText, std::string_view rowWritten)
      : hasCode(false), text(rowText), written(rowWritten) {}

  bool hasCode = true;
  std::int32_t code = 0;
  std::string_view text;
  std::string_view written;  ///< empty: the text is not known to the encoder
};

/// Rows in their order; `fallback` is what the encoder gives for a text without a row.
template <std::size_t N>
struct Enumeration {
  std::array<EnumerationRow, N> rows;
  std::string_view fallback;
};

template <std::size_t N>
constexpr Enumeration<N> MakeEnumeration(const EnumerationRow (&rows)[N], std::string_view fallback = {}) {
  return [&]<std::size_t... I>(std::index_sequence<I...>) { return Enumeration<N>{{rows[I]...}, fallback}; }
  (std::make_index_sequence<N>());
}

inline constexpr auto kAzTrimEnable = MakeEnumeration({
    {0, "False", "00"},
    {1, "True", "01"},
});

inline constexpr auto kAgile = MakeEnumeration({
    {0, "Enabled", "00"},
    {1, "Disabled", "01"},
});

inline constexpr auto kPositionMounting = MakeEnumeration({
    {0, "Reverse", "00"},
    {1, "Direct", "01"},
});

inline constexpr auto kAIConfig = MakeEnumeration({
    {1, "Config 1", "01"},
    {2, "Config 2", "02"},
});

inline constexpr auto kMeasuredType = MakeEnumeration({
    {0, "Density (g/cm³)", "00"},
    {1, "Density (kg/m³)", "01"},
    {2, "Density (20°C)", "02"},
    {3, "Density (4°C)", "03"},
    {4, "Baume", "04"},
    {5, "Brix", "05"},
    {6, "Plato", "06"},
    {7, "INPM", "07"},
    {8, "Alcohol (0-100)", "08"},
    {9, "Solid %", "09"},
    {10, "lb/ft³", "0A"},
    {11, "API", "0B"},
    {12, "Concentration", "0C"},
    {13, "t/m³", "0D"},
});

inline constexpr auto kAzTrimSelection = MakeEnumeration({
    {1, "Using Zero Trim", "01"},
    {2, "Using LRV", "02"},
});

inline constexpr auto kIdentNumber = MakeEnumeration({
    {0, "Profile Specific", "00"},
    {1, "Manufacturer Specific", "01"},
    {128, "User Ident Number", "80"},
});

inline constexpr auto kSensorDiag = MakeEnumeration({
    {0, "None"},
    {1, "Sensor Failure"},
    {2, "Sensor Not Initalized"},
    {3, "Sensor Not Connected"},
    {4, "Low Capacitance Failure"},
    {5, "Hi Capacitance Failure"},
    {6, "Excessive Sensor Gain"},
    {7, "Excessive Sensor OffSet"},
});

inline constexpr auto kSimulateEnable = MakeEnumeration({
    {0, "Disable", "00"},
    {1, "Enable", "FF"},
    {255, "Enable", "FF"},
});

inline constexpr auto kCompensation = MakeEnumeration({
    {0, "Disable", "00"},
    {1, "Enable", "01"},
});

inline constexpr auto kDensityRange = MakeEnumeration({
    {0, "Range 1 (0.5 @ 1.8 g/cm³)", "00"},
    {1, "Range 2 (1.0 @ 2.5 g/cm³)", "01"},
    {2, "Range 3 (2.0 @ 5.0 g/cm³)", "02"},
});

inline constexpr auto kSensorRange = MakeEnumeration(
    {
        {0, "Not Initialized", "00"},
        {1, "Range 1 (7.5 kPa)", "01"},
        {2, "Range 2 (37.4 kPa)", "02"},
        {3, "Range 3 (147.1 kPa)", "03"},
        {4, "Range 4 (690.0 kPa)", "04"},
        {5, "Range 5 (2068.0 kPa)", "05"},
        {6, "Range 6 (6890.0 kPa)", "06"},
        {7, "Range 7 (20680.0 kPa)", "07"},
        {253, "Special"},
    },
    "FF");

inline constexpr auto kSensorManufacturer = MakeEnumeration({
    {0, "Lorvane", "00"},
    {1, "Yantai Auto Instruments", "01"},
    {2, "Metlan", "02"},
    {3, "Bashi", "03"},
    {"Not Initialized", "FF"},
});

inline constexpr auto kSensorConnected = MakeEnumeration({
    {0, "Disconnected", "00"},
    {1, "Connected", "01"},
});

inline constexpr auto kSensorInitialized = MakeEnumeration({
    {0, "Not Initialized", "00"},
    {170, "Initialized", "AA"},
});

inline constexpr auto kSensorType = MakeEnumeration(
    {
        {117, "Capacitive Sensor", "0075"},
        {118, "Silicon Piezo Resistive", "0076"},
    },
    "FF");

inline constexpr auto kFillFluid = MakeEnumeration(
    {
        {1, "Silicone oil", "0001"},
        {2, "Inert", "0002"},
        {3, "fluorolube", "0003"},
        {251, "Reserved", "00FB"},
        {252, "Unknown", "00FC"},
        {253, "Special", "00FD"},
    },
    "00FF");

inline constexpr auto kDiaphragmMaterial = MakeEnumeration(
    {
        {2, "Stainless Steel 316", "0002"},
        {3, "Hastelloy C", "0003"},
        {4, "Monel", "0004"},
        {5, "Tantalum", "0005"},
        {15, "Gold Monel", "000F"},
        {19, "Stainless Steel 316l Sup", "0013"},
        {30, "Hastelloy C276", "001E"},
        {236, "Hast C276/SST", "00EC"},
        {237, "Gold Plated SST", "00ED"},
        {239, "Monel 400", "00EF"},
        {240, "Version RS", "00F0"},
        {253, "Special", "00FD"},
    },
    "00FF");

inline constexpr auto kFlangeType = MakeEnumeration(
    {
        {12, "Conventional", "0C"},
        {13, "Coplanar", "0D"},
        {14, "Remote Seal", "0E"},
        {15, "Level 3in 150lb", "0F"},
        {16, "Level 4in 150lb", "10"},
        {17, "Level 3in 300lb", "11"},
        {18, "Level 4in 300lb", "12"},
        {19, "Level DN80 PN25/40", "13"},
        {20, "Level DN100 PN25/40", "14"},
        {21, "Level DN100 PN10/16", "15"},
        {22, "Level 2in 150lb", "16"},
        {23, "Level 2in 300lb", "17"},
        {24, "Level DN50 PN10/16", "18"},
        {25, "Level DN50 PN25/40", "19"},
        {236, "Level DN80 PN10/16", "EC"},
        {251, "None", "FB"},
        {252, "Unknown", "FC"},
        {253, "Special", "FD"},
    },
    "FF");

inline constexpr auto kFlangeMaterial = MakeEnumeration(
    {
        {0, "Carbon Steel", "00"},
        {1, "Undefined", "01"},
        {2, "316 Stainless Steel", "02"},
        {3, "Hastelloy C", "03"},
        {4, "Monel", "04"},
        {5, "Tantalum", "05"},
        {251, "None", "FB"},
        {252, "Unknown", "FC"},
        {253, "Special", "FD"},
    },
    "FF");

inline constexpr auto kORingMaterial = MakeEnumeration(
    {
        {10, "PTFE", "0A"},
        {11, "Viton", "0B"},
        {12, "Buna-N", "0C"},
        {13, "Ethyl-Prop", "0D"},
        {251, "None", "FB"},
        {252, "Unknown", "FC"},
        {253, "Special", "FD"},
    },
    "FF");

inline constexpr auto kSensorModel = MakeEnumeration({
    {108, "Gauge", "006C"},
    {109, "Absolute", "006D"},
    {65535, "Other/Special", "FFFF"},
});

inline constexpr auto kTargetMode = MakeEnumeration({
    {8, "Auto", "08"},
    {16, "Man", "10"},
    {128, "Out of Service", "80"},
});

inline constexpr auto kAIChannel = MakeEnumeration({
    {0, "Disconnected"},
    {274, "PV"},
    {285, "SV1"},
    {287, "SV2"},
});

inline constexpr auto kFailSafeType = MakeEnumeration({
    {0, "FSafe_Value", "00"},
    {1, "Last Usable Value", "01"},
    {2, "Use Wrong Value", "02"},
});

inline constexpr auto kActualMode = MakeEnumeration({
    {8, "Auto"},
    {16, "Man"},
    {128, "Out of Service"},
});

inline constexpr auto kBackupRestore = MakeEnumeration({
    {0, "Initial Value", "00"},
    {1, "Restore Factory Calibration", "01"},
    {2, "Restore Last Calibration", "02"},
    {3, "Restore Trd Blk Default Data", "03"},
    {5, "Sensor Data Restore", "05"},
    {11, "Backup Factory Calibration", "0B"},
    {12, "Backup Last Calibration", "0C"},
    {15, "Sensor Data Backup", "0F"},
});

inline constexpr auto kOperResult = MakeEnumeration({
    {16, "Good"},
    {22, "Applied process out of range"},
    {26, "Invalid configuration for request"},
    {27, "Excess correction"},
    {28, "Calibration failed"},
});

inline constexpr auto kCharOperation = MakeEnumeration({
    {0, "Disabled", "0000"},
    {1, "Disable and Allow to Enter Points", "0001"},
    {2, "Disable and Restore Cal", "0002"},
    {3, "Enable Curve and Backup Cal", "0003"},
    {4, "Enable Curve", "0004"},
});

inline constexpr auto kPVType = MakeEnumeration({
    {0, "Pressure", "0000"},
    {1, "Flow", "0001"},
    {2, "Level", "0002"},
    {129, "Density", "0081"},
});

inline constexpr auto kTableStatus = MakeEnumeration({
    {0, "Table Not Initialised"},
    {1, "New Table is Valid"},
    {2, "Not Monotonous Inc"},
    {3, "Not Monotonous Dec"},
});

inline constexpr auto kLinType = MakeEnumeration(
    {
        {0, "No Linearization.", "00"},
        {1, "User Defined(Table)", "01"},
        {10, "Square Root", "0A"},
        {240, "Square Root & Table", "F0"},
        {251, "None", "FB"},
    },
    "00");

inline constexpr auto kTransducerType = MakeEnumeration({
    {107, "Differential"},
    {108, "Gauge"},
    {109, "Absolute"},
    {65535, "Others Special"},
});

inline constexpr auto kWriteProtect = MakeEnumeration({
    {0, "Write Locked", "0000"},
    {2457, "Write Unlocked", "0999"},
});

inline constexpr auto kFactoryReset = MakeEnumeration({
    {0, "No Function", "0000"},
    {1, "Factory Reset Parameters", "0001"},
    {2506, "Warm Startup", "09CA"},
    {2712, "Factory Reset Address", "0A98"},
});

inline constexpr auto kSimulateActive = MakeEnumeration({
    {0, "Disable", "00"},
    {1, "Active", "01"},
});

inline constexpr auto kDebugEnable = MakeEnumeration({
    {0, "Disable"},
    {1, "Enable"},
});

inline constexpr auto kFalseTrue = MakeEnumeration({
    {0, "False", "00"},
    {1, "True", "01"},
});

inline constexpr auto kMonitBlock = MakeEnumeration({
    {0, "Physical", "00"},
    {1, "Transducer", "01"},
    {3, "Analog Input 1", "03"},
    {4, "Analog Input 2", "04"},
    {5, "Analog Input 3", "05"},
    {255, "None", "FF"},
});

inline constexpr auto kDecimalPoint = MakeEnumeration({
    {1, "1", "01"},
    {2, "2", "02"},
    {3, "3", "03"},
    {"4", "04"},
});

inline constexpr auto kAlphaNumField = MakeEnumeration({
    {0, "False", "00"},
    {1, "True", "01"},
});

inline constexpr auto kLcdBargraph = MakeEnumeration({
    {0, "False", "00"},
    {1, "True", "01"},
});

inline constexpr auto kLcdSwitch = MakeEnumeration({
    {1, "1", "01"},
    {2, "2", "02"},
    {3, "3", "03"},
});

inline constexpr auto kEnableFlag = MakeEnumeration({{"Disable", "00"}, {"Enable", "01"}});

inline constexpr auto kNrPoints = MakeEnumeration({
    {"1", "01"},  {"2", "02"},  {"3", "03"},  {"4", "04"},  {"5", "05"},  {"6", "06"},  {"7", "07"},
    {"8", "08"},  {"9", "09"},  {"10", "0A"}, {"11", "0B"}, {"12", "0C"}, {"13", "0D"}, {"14", "0E"},
    {"15", "0F"}, {"16", "10"}, {"17", "11"}, {"18", "12"}, {"19", "13"}, {"20", "14"}, {"21", "15"},
});

inline constexpr auto kSendCode = MakeEnumeration({{"2", "02"}, {"3", "03"}, {"4", "04"}, {"5", "05"}});

}  // namespace htr60
