#include "pages/pages.h"

#include "shell/user_cntrl.h"

namespace htr60::pages::factory_sensor {
namespace {

constexpr PageLayout kLayouts[] = {{.frame = id::frmFactorySensorInfo}};

constexpr AnswerRow kAnswers[] = {{4600}, {4700}, {4800}, {4900}, {5000}, {5500}};
constexpr RereadRow kRereads[] = {
    {"Factory Sensor", {"Factory Sensor", "Factory Sensor Lo"}, 46},
    {"Factory Sensor", "Factory Remote Seal", 47},
    {"Factory Sensor", {"Factory Flange", "Factory Flange Lo"}, 48},
    {"Factory Sensor", "Factory Polynomial", 49},
    {"Factory Sensor", "Factory Gain/OffSet", 50},
    {"Factory Sensor", "Factory Backup Restore", 55},
};

constexpr std::string_view kFlangeTypes[] = {
    "Conventional",    "Coplanar",        "Remote Seal",        "Level 3in 150lb",     "Level 4in 150lb",
    "Level 3in 300lb", "Level 4in 300lb", "Level DN80 PN25/40", "Level DN100 PN25/40", "Level DN100 PN10/16",
    "Level 2in 150lb", "Level 2in 300lb", "Level DN50 PN10/16", "Level DN50 PN25/40",  "Level DN80 PN10/16",
};
constexpr std::string_view kFlangeMaterials[] = {"Carbon Steel", "Undefined", "316 Stainless Steel"};
constexpr std::string_view kORings[] = {"PTFE", "Viton", "Buna-N", "Ethyl-Prop"};
constexpr std::string_view kBackups[] = {
    "Initial Value",       "Restore Factory Calibration", "Restore Last Calibration", "Restore Trd Blk Default Data",
    "Sensor Data Restore", "Backup Factory Calibration",  "Backup Last Calibration",  "Sensor Data Backup",
};
constexpr std::string_view kTrueFalse[] = {"True", "False"};
constexpr std::string_view kMakers[] = {"Lorvane", "Yantai Auto Instruments", "Metlan", "Bashi"};
constexpr std::string_view kConnected[] = {"Connected", "Disconnected"};
constexpr std::string_view kInitialized[] = {"Initialized"};
constexpr std::string_view kTypes[] = {"Capacitive Sensor", "Silicon Piezo Resistive"};
constexpr std::string_view kRanges[] = {
    "Range 1 (7.5 kPa)",    "Range 2 (37.4 kPa)",   "Range 3 (147.1 kPa)",   "Range 4 (690.0 kPa)",
    "Range 5 (2068.0 kPa)", "Range 6 (6890.0 kPa)", "Range 7 (20680.0 kPa)",
};
constexpr std::string_view kFluids[] = {"Silicone oil", "Inert", "fluorolube", "Reserved"};
constexpr std::string_view kDiaphragms[] = {
    "Stainless Steel 316", "Gold Monel",    "Stainless Steel 316l Sup", "Hastelloy C276",
    "Monel 400",           "Hast C276/SST", "Gold Plated SST",          "Version RS",
};
constexpr std::string_view kModels[] = {"Gauge", "Absolute", "Other/Special"};

constexpr FillRow AtSensor(ChoiceId list, std::span<const std::string_view> rows) {
  return {list, &UserCntrl::FirstVisitSensor, rows};
}
constexpr FillRow kFills[] = {
    AtSensor(id::cmbFlangeType, kFlangeTypes),
    AtSensor(id::cmbFlangeTypeLo, kFlangeTypes),
    AtSensor(id::cmbFlangeMaterial, kFlangeMaterials),
    AtSensor(id::cmbFlangeMaterialLo, kFlangeMaterials),
    AtSensor(id::cmbORingMaterial, kORings),
    AtSensor(id::cmbORingMaterialLo, kORings),
    AtSensor(id::cmbBackupRes(0), kBackups),
    AtSensor(id::cmbBackupRes(1), kBackups),
    AtSensor(id::cmbDeadBandBypass, kTrueFalse),
    AtSensor(id::cmbFSensorManufacturer, kMakers),
    AtSensor(id::cmbFSensorConnected, kConnected),
    AtSensor(id::cmbFSensorConnectedLo, kConnected),
    AtSensor(id::cmbFSensorInitialized, kInitialized),
    AtSensor(id::cmbFSensorInitializedLo, kInitialized),
    AtSensor(id::cmbFSensorType, kTypes),
    AtSensor(id::cmbFSensorTypeLo, kTypes),
    AtSensor(id::cmbFSensorRangeCode, kRanges),
    AtSensor(id::cmbFSensorRangeCodeLo, kRanges),
    AtSensor(id::cmbFSensorFillFluid, kFluids),
    AtSensor(id::cmbFSensorFillFluidLo, kFluids),
    AtSensor(id::cmbFSensorDiagMtrl, kDiaphragms),
    AtSensor(id::cmbFSensorDiagMtrlLo, kDiaphragms),
    AtSensor(id::cmbSensorModel, kModels),
    AtSensor(id::cmbSensorModelLo, kModels),
};

}  // namespace

constexpr PageUnit kUnit{.layouts = kLayouts, .answers = kAnswers, .rereads = kRereads, .fills = kFills};

}  // namespace htr60::pages::factory_sensor
