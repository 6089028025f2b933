#include <algorithm>
#include <array>

#include "simulator/device/reads.h"

namespace htr60::sim {
namespace {

using enum Form;

constexpr std::array kRead1 = std::to_array<ReadRow>({
    {"TRDPVType", kE4, "pvType"},
    {"PHYTag", kT32, "tag"},
    {"PHYManufacturer", kW4, "maker"},
    {"TRDOrderingCode", kT32, "orderingCode"},
    {"PHYFirmware", kT16b, "firmware"},
    {"PHYDevSerialNumber", kT16, "serial"},
    {"PHYGSDIdentNumSelector", kE2, "identSelector"},
    {"PHYWriteProtection", kE4, "writeLock"},
    {"ModemVersion", kW4, "modemVersion", 109},
    {"SnsHiVersion", kX2, "snsVersion.hi", 109},
    {"SnsLoVersion", kX2, "snsVersion.lo", 109},
});

constexpr std::array kRead2 = std::to_array<ReadRow>({
    {"TRDTransducerType", kE4, "transducerType.hi"},
    {"TRDTransducerType_Lo", kE4, "transducerType.lo"},
    {"TRDSensorType", kE4, "sensorType.hi"},
    {"TRDSensorType_Lo", kE4, "sensorType.lo"},
    {"TRDSensorRangeCode", kE2, "range.hi"},
    {"TRDSensorRangeCode_Lo", kE2, "range.lo"},
    {"TRDSensorFillFluid", kE4, "fluid.hi"},
    {"TRDSensorFillFluid_Lo", kE4, "fluid.lo"},
    {"TRDSensorSerialNumber", kD8, "sensorSerial.hi"},
    {"TRDSensorSerialNumber_Lo", kD8, "sensorSerial.lo"},
    {"TRDSensorDiaMtrl", kE4, "diaphragm.hi"},
    {"TRDSensorDiaMtrl_Lo", kE4, "diaphragm.lo"},
    {"TRDSensorLimitHi_SnsHi", kF8, "limHi.hi"},
    {"TRDSensorLimitHi_SnsLo", kF8, "limHi.lo"},
    {"TRDSensorLimitLo_SnsHi", kF8, "limLo.hi"},
    {"TRDSensorLimitLo_SnsLo", kF8, "limLo.lo"},
});

constexpr std::array kRead3 = std::to_array<ReadRow>({
    {"TRDRemoteSealType", kE2, "sealType"},
    {"TRDRemoteSealFluid", kE2, "sealFluid"},
    {"TRDRemoteSealIsoMtrl", kE2, "sealMaterial"},
    {"TRDRemoteSealNumber", kE2, "sealCount"},
});

constexpr std::array kRead4 = std::to_array<ReadRow>({
    {"TRDFlangeType", kE2, "flangeType.hi"},
    {"TRDFlangeType_Lo", kE2, "flangeType.lo"},
    {"TRDFlangeMaterial", kE2, "flangeMaterial.hi"},
    {"TRDFlangeMaterial_Lo", kE2, "flangeMaterial.lo"},
    {"TRDORingMaterial", kE2, "oRing.hi"},
    {"TRDORingMaterial_Lo", kE2, "oRing.lo"},
});

constexpr std::array kRead5 = std::to_array<ReadRow>({
    {"TRDPVType", kE4, "pvType"},
    {"TRDLinType", kE2, "linType"},
    {"TRDFlowLinSqrt", kF8, "sqrtPoint"},
    {"TRDLowFlowCutOff", kF8, "cutOff"},
});

constexpr std::array kRead6 = std::to_array<ReadRow>({
    {"TRDInputScale", kP16, "inScale"},
    {"TRDPressUnit", kU4, "inUnit"},
    {"TRDUpperSnsLimit", kF8, "@limHi.in"},
    {"TRDLowerSnsLimit", kF8, "@limLo.in"},
});

constexpr std::array kRead7 = std::to_array<ReadRow>({
    {"MeasuredType", kE2, "measuredType"},
    {"TRDOutScale", kP16, "outScale"},
    {"TRDOutUnit", kU4, "outUnit"},
    {"TRDSensorUnit", kU4, "sensorUnit"},
    {"TRDUpperSnsLimit", kF8, "limHi.hi"},
    {"TRDLowerSnsLimit", kF8, "limLo.hi"},
});

constexpr std::array kRead8 = std::to_array<ReadRow>({
    {"TRDTempUnit", kU4, "tempUnit"},
});

constexpr std::array kRead9 = std::to_array<ReadRow>({
    {"TRDLinType", kE2, "linType"},   {"TRDNumpoints", kE2, "tablePoints"}, {"TRDX1Y1", kP16, "point[1]"},
    {"TRDX2Y2", kP16, "point[2]"},    {"TRDX3Y3", kP16, "point[3]"},        {"TRDX4Y4", kP16, "point[4]"},
    {"TRDX5Y5", kP16, "point[5]"},    {"TRDX6Y6", kP16, "point[6]"},        {"TRDX7Y7", kP16, "point[7]"},
    {"TRDX8Y8", kP16, "point[8]"},    {"TRDX9Y9", kP16, "point[9]"},        {"TRDX10Y10", kP16, "point[10]"},
    {"TRDX11Y11", kP16, "point[11]"}, {"TRDX12Y12", kP16, "point[12]"},     {"TRDX13Y13", kP16, "point[13]"},
    {"TRDX14Y14", kP16, "point[14]"}, {"TRDX15Y15", kP16, "point[15]"},     {"TRDX16Y16", kP16, "point[16]"},
    {"TRDX17Y17", kP16, "point[17]"}, {"TRDX18Y18", kP16, "point[18]"},     {"TRDX19Y19", kP16, "point[19]"},
    {"TRDX20Y20", kP16, "point[20]"}, {"TRDX21Y21", kP16, "point[21]"},     {"TRDTableStatus", kE2, "tableStatus"},
});

constexpr std::array kRead10 = std::to_array<ReadRow>({
    {"AITarget", kE2, "ai.target"},
    {"AIActual", kB6, "@mode"},
    {"AIChannel", kE4, "ai.channel"},
    {"AIDamping", kF8, "ai.damping"},
    {"AIConfig", kE2, "aiConfig", 107},
});

constexpr std::array kRead11 = std::to_array<ReadRow>({
    {"AIUpperLimAlarm", kF8, "ai.hiHi"},
    {"AIUpperLimWarning", kF8, "ai.hi"},
    {"AILowerLimAlarm", kF8, "ai.loLo"},
    {"AILowerLimWarning", kF8, "ai.lo"},
    {"AILimHysteresis", kF8, "ai.hyst"},
    {"AIUnit", kR22, "ai.outScale"},
    {"AICurrAlarm", kL16, "@alarm"},
});

constexpr std::array kRead12 = std::to_array<ReadRow>({
    {"AIUnit", kR22, "ai.outScale"},
    {"AIFailSafeType", kE2, "ai.fsType"},
    {"AIFailSafeValue", kF8, "ai.fsValue"},
});

constexpr std::array kRead13 = std::to_array<ReadRow>({
    {"AISimulate", kM12, "ai.sim"},
});

constexpr std::array kRead14 = std::to_array<ReadRow>({
    {"AITarget", kE2, "ai.target"},
    {"AIUnit", kR22, "ai.outScale"},
    {"AIActual", kB6, "@mode"},
    {"AIOutput", kS10, "@out"},
    {"AIAlarm", kL16, "@alarm"},
});

constexpr std::array kRead15 = std::to_array<ReadRow>({
    {"TRDUnit", kU4, "sensorUnit"},
    {"TRDPVType", kE4, "pvType"},
});

constexpr std::array kRead16 = std::to_array<ReadRow>({
    {"TRDLowerSnsLimit", kF8, "limLo.hi"},
    {"TRDMinSpan", kF8, "minSpan"},
    {"TRDLowerCalibPoint", kF8, "calLo"},
    {"TRDPressure", kS10, "@trim"},
    {"TRDUnit", kU4, "sensorUnit"},
    {"TRDOperResult", kE2, "operResult"},
    {"TRDUpperSnsLimit", kF8, "limHi.hi"},
    {"TRDUpperCalibPoint", kF8, "calHi"},
});

constexpr std::array kRead17 = std::to_array<ReadRow>({
    {"TRDUpperSnsLimit", kF8, "limHi.hi"},
    {"TRDUpperCalibPoint", kF8, "calHi"},
    {"TRDUnit", kU4, "sensorUnit"},
});

constexpr std::array kRead18 = std::to_array<ReadRow>({
    {"TRDUnitTemp", kU4, "tempUnit"},
});

constexpr std::array kRead19 = std::to_array<ReadRow>({
    {"TRDMaxTemp", kF8, "tempMax"},
    {"TRDMinTemp", kF8, "tempMin"},
    {"TRDCalTempPoint", kF8, "calTemp"},
    {"TRDTempVal", kS10, "@t"},
});

constexpr std::array kRead20 = std::to_array<ReadRow>({
    {"TRDCharOperation", kE4, "charOperation"},
    {"TRDPVOut", kS10, "@trim"},
    {"TRDCurveX", kA128, "curveX"},
    {"TRDCurveY", kA128, "curveY"},
    {"TRDCurveLenght", kX2, "curveLength"},
    {"TRDUnit", kU4, "sensorUnit"},
});

constexpr std::array kRead26 = std::to_array<ReadRow>({
    {"SensorValue", kF8, "@raw"},        {"TrimmedValue", kS10, "@trim"},     {"CalPointHi", kF8, "calHi"},
    {"CalPointLo", kF8, "calLo"},        {"CalMinSpan", kF8, "minSpan"},      {"CalUnit", kU4, "sensorUnit"},
    {"Pressure", kS10, "@press"},        {"SensorHiLim", kF8, "limHi.hi"},    {"SensorLoLim", kF8, "limLo.hi"},
    {"SensorHiLim_Lo", kF8, "limHi.lo"}, {"SensorLoLim_Lo", kF8, "limLo.lo"}, {"TRDPress_Hi", kF8, "@p.hi"},
    {"TRDPress_Lo", kF8, "@p.lo"},       {"LinType", kE2, "linType"},         {"AIOutput", kR22, "ai1.outScale"},
    {"AI1Channel", kE4, "ai1.channel"},  {"AI2Channel", kE4, "ai2.channel"},  {"AI3Channel", kE4, "ai3.channel"},
    {"PrimaryValue", kS10, "@pv"},       {"TempValue", kS10, "@t"},           {"TempUnit", kU4, "tempUnit"},
    {"TempMax", kF8, "tempMax"},         {"TempMin", kF8, "tempMin"},         {"TRDZeroFilter", kE2, "zeroFilter"},
    {"TRDInputScale", kP16, "inScale"},  {"TRDPressUnit", kU4, "inUnit"},     {"TRDCap_Hi", kF8, "@cap.hi"},
    {"TRDCap_Lo", kF8, "@cap.lo"},       {"TRDCalTempPoint", kF8, "calTemp"}, {"AI1Out", kS10, "@ai1.out"},
    {"AI2Out", kS10, "@ai2.out"},        {"AI3Out", kS10, "@ai3.out"},        {"TRDPVType", kE4, "pvType"},
});

constexpr std::array kRead27 = std::to_array<ReadRow>({
    {"AISimulate", kM12, "ai.sim"},
    {"AIPrimaryValue", kS10, "@channel"},
    {"AIChannel", kE4, "ai.channel"},
    {"TRDPVType", kE4, "pvType"},
    {"AIPVScale", kP16, "@pvScale"},
    {"AIPVUnit", kU4, "@pvUnit"},
    {"AIModeBlock", kE2, "ai.target"},
    {"AIDamping", kF8, "ai.damping"},
    {"AIFailSafeType", kE2, "ai.fsType"},
    {"AIFailSafeVal", kF8, "ai.fsValue"},
    {"AIScaleOut", kR22, "ai.outScale"},
    {"AIOut", kS10, "@out"},
    {"AIAlarm", kL16, "@alarm"},
});

constexpr std::array kRead29 = std::to_array<ReadRow>({
    {"LCDFunctionBlock", kE2, "lcd.block"},
    {"LCDRelIndex", kW4, "lcd.index"},
    {"LCDElement", kX2, "lcd.element"},
    {"LCDMnemonic", kT16, "lcd.mnemonic"},
    {"LCDDecPoint", kE2, "lcd.point"},
    {"LCDAlphaNum", kE2, "lcd.alpha"},
});

constexpr std::array kRead32 = std::to_array<ReadRow>({
    {"LCDFunctionBlock", kE2, "lcd.block"},
    {"LCDRelIndex", kW4, "lcd.index"},
    {"LCDElement", kX2, "lcd.element"},
    {"LCDMnemonic", kT16, "lcd.mnemonic"},
    {"LCDDecPoint", kE2, "lcd.point"},
});

constexpr std::array kRead33 = std::to_array<ReadRow>({
    {"LCDSwitch", kE2, "lcdSwitch"},
});

constexpr std::array kRead34 = std::to_array<ReadRow>({
    {"LCDBargraph", kE2, "lcdBar"},
});

constexpr std::array kRead35 = std::to_array<ReadRow>({
    {"TRDPressure", kS10, "@trim"},
});

constexpr std::array kRead36 = std::to_array<ReadRow>({
    {"TRDTempVal", kS10, "@t"},
});

constexpr std::array kRead37 = std::to_array<ReadRow>({
    {"AIOutput", kS10, "@out"},
    {"AIAlarm", kL16, "@alarm"},
});

constexpr std::array kRead38 = std::to_array<ReadRow>({
    {"PV", kS10, "@rawStatus"},
    {"PVUnit", kU4, "sensorUnit"},
    {"CharNumPoints", kE2, "curveLength"},
});

constexpr std::array kRead39 = std::to_array<ReadRow>({
    {"Pressure", kS10, "@curveInput"},
});

constexpr std::array kRead40 = std::to_array<ReadRow>({
    {"BackupRestore", kE2, "backupRestore"},
    {"GSDIdentNumber", kE2, "identSelector"},
    {"FactoryReset", kE4, "factoryReset"},
    {"USERIdentNumber", kX4, "userIdent", 105},
    {"Agile", kE2, "agile", 108},
});

constexpr std::array kRead41 = std::to_array<ReadRow>({
    {"ParamValue", kE2, "@monitored"},
});

constexpr std::array kRead43 = std::to_array<ReadRow>({
    {"TRDSimulateEnable", kE2, "simEnable"},
    {"TRDSimulateValue", kS10, "simValue"},
});

constexpr std::array kRead44 = std::to_array<ReadRow>({
    {"WriteProtect", kE4, "writeLock"},
});

constexpr std::array kRead45 = std::to_array<ReadRow>({
    {"SensorDiag", kE2, "@diag"},
    {"SensorValue", kF8, "@raw"},
    {"TRDSensorUnit", kU4, "sensorUnit"},
    {"PrimaryValue", kS10, "@pv"},
    {"TRDPrimaryValueUnit", kU4, "outUnit"},
    {"CapHiValue", kS10, "@capStatus.hi"},
    {"CapLoValue", kS10, "@capStatus.lo"},
    {"SpecificHeight", kS10, "@weight"},
    {"TempUnit", kU4, "tempUnit"},
    {"Temp", kS10, "@t"},
});

constexpr std::array kRead46 = std::to_array<ReadRow>({
    {"SensorManufacturer", kE2, "sensorMaker"},
    {"SensorConnected", kE2, "@connected"},
    {"SensorInitialized", kE2, "initialized.hi"},
    {"SensorInitialized_Lo", kE2, "initialized.lo"},
    {"TRDSensorType", kE4, "sensorType.hi"},
    {"TRDSensorType_Lo", kE4, "sensorType.lo"},
    {"TRDSensorRangeCode", kE2, "range.hi"},
    {"TRDSensorRangeCode_Lo", kE2, "range.lo"},
    {"TRDSensorFillFluid", kE4, "fluid.hi"},
    {"TRDSensorFillFluid_Lo", kE4, "fluid.lo"},
    {"TRDSensorSerialNumber", kD8, "sensorSerial.hi"},
    {"TRDSensorSerialNumber_Lo", kD8, "sensorSerial.lo"},
    {"TRDSensorDiaMtrl", kE4, "diaphragm.hi"},
    {"TRDSensorDiaMtrl_Lo", kE4, "diaphragm.lo"},
    {"TRDSensorModel", kE4, "sensorModel.hi"},
    {"TRDSensorModel_Lo", kE4, "sensorModel.lo"},
    {"TRDUpperSnsLimit", kF8, "limHi.hi"},
    {"TRDLowerSnsLimit", kF8, "limLo.hi"},
});

constexpr std::array kRead48 = std::to_array<ReadRow>({
    {"TRDFlangeType", kE2, "flangeType.hi"},
    {"TRDFlangeTypeLo", kE2, "flangeType.lo"},
    {"TRDFlangeMaterial", kE2, "flangeMaterial.hi"},
    {"TRDFlangeMaterialLo", kE2, "flangeMaterial.lo"},
    {"TRDORingMaterial", kE2, "oRing.hi"},
    {"TRDORingMaterialLo", kE2, "oRing.lo"},
});

constexpr std::array kRead49 = std::to_array<ReadRow>({
    {"PolyVersion", kX2, "polyVersion"},
    {"CoeffPol", kA128, "poly.hi"},
    {"CoeffPolSns2", kA128, "poly.lo"},
});

constexpr std::array kRead50 = std::to_array<ReadRow>({
    {"TRDPressGain", kF8, "gain"},
    {"TRDPressSensorOffset", kF8, "offset"},
    {"TRDTempSensorGain", kF8, "gainTemp"},
    {"TRDTempSensorOffSet", kF8, "offsetTemp"},
    {"TRDSns1Gain", kF8, "gain.hi"},
    {"TRDSns1OffSet", kF8, "offset.hi"},
    {"TRDSns2Gain", kF8, "gain.lo"},
    {"TRDSns2OffSet", kF8, "offset.lo"},
});

constexpr std::array kRead51 = std::to_array<ReadRow>({
    {"SensorDiag", kE2, "@diag"},
    {"SensorConnected", kE2, "@connected"},
    {"SensorInitialized", kE2, "@initialized"},
});

constexpr std::array kRead53 = std::to_array<ReadRow>({
    {"SensorValue", kF8, "@raw"},
    {"CapHiValue", kS10, "@capStatus.hi"},
    {"CapLoValue", kS10, "@capStatus.lo"},
    {"SensorValueUnit", kU4, "sensorUnit"},
    {"SpecificHeight", kS10, "@weight"},
    {"TempUnit", kU4, "tempUnit"},
    {"Temp", kS10, "@t"},
    {"PrimaryValue", kS10, "@pv"},
    {"TRDOutUnit", kU4, "outUnit"},
    {"MeasuredType", kE2, "measuredType"},
});

constexpr std::array kRead54 = std::to_array<ReadRow>({
    {"SensorValue", kF8, "@raw"},
    {"SpecificHeight", kS10, "@weight"},
    {"PrimaryValue", kS10, "@pv"},
    {"AI1Out", kS10, "@ai1.out"},
    {"AI2Out", kS10, "@ai2.out"},
    {"AI3Out", kS10, "@ai3.out"},
    {"SensorValueUnit", kU4, "sensorUnit"},
    {"PrimaryValueUnit", kU4, "outUnit"},
    {"AI1OutUnit", kR22, "ai1.outScale"},
    {"AI2OutUnit", kR22, "ai2.outScale"},
    {"AI3OutUnit", kR22, "ai3.outScale"},
    {"TRDPVType", kE4, "pvType"},
    {"MeasuredType", kE2, "measuredType"},
});

constexpr std::array kRead55 = std::to_array<ReadRow>({
    {"BackupRestore", kE2, "backupRestore"},
    {"TRDDeadBandBypass", kE2, "zeroFilter"},
});

constexpr std::array kRead56 = std::to_array<ReadRow>({
    {"CalPointHi", kF8, "calHi"},
    {"CalPointLo", kF8, "calLo"},
    {"CalUnit", kU4, "sensorUnit"},
    {"CalPointHiSns1", kF8, "calHi.hi"},
    {"CalPointLoSns1", kF8, "calLo.hi"},
    {"CalPointHiSns2", kF8, "calHi.lo"},
    {"CalPointLoSns2", kF8, "calLo.lo"},
});

constexpr std::array kRead57 = std::to_array<ReadRow>({
    {"TRDAzTrimEnable", kE2, "azEnable"},
    {"TRDAzTrimReference", kF8, "azRef"},
    {"TRDAzTrimNoiseBand", kF8, "azBand"},
    {"TRDAzTrimTimeAction", kD8, "azTime"},
    {"TRDAzTrimSelection", kE2, "azSelect"},
});

constexpr std::array kRead58 = std::to_array<ReadRow>({
    {"Gravity", kF8, "gravity"},
    {"Height", kF8, "height"},
    {"LinearDilatation", kF8, "dilatation"},
    {"PressureCoeff", kF8, "pressCoeff"},
    {"ZeroAdjustTemp", kF8, "zeroTemp"},
    {"heighMeasTemp", kF8, "heightTemp"},
});

constexpr std::array kRead59 = std::to_array<ReadRow>({
    {"K0", kF8, "k[0]"},
    {"K1", kF8, "k[1]"},
    {"K2", kF8, "k[2]"},
    {"K3", kF8, "k[3]"},
    {"K4", kF8, "k[4]"},
    {"K5", kF8, "k[5]"},
    {"K6", kF8, "k[6]"},
    {"K7", kF8, "k[7]"},
    {"K8", kF8, "k[8]"},
    {"K9", kF8, "k[9]"},
    {"K10", kF8, "k[10]"},
    {"K11", kF8, "k[11]"},
    {"K12", kF8, "k[12]"},
    {"K13", kF8, "k[13]"},
    {"K14", kF8, "k[14]"},
    {"K15", kF8, "k[15]"},
    {"K16", kF8, "k[16]"},
    {"K17", kF8, "k[17]"},
    {"HiLimDens", kF8, "limDensHi"},
    {"LoLimDens", kF8, "limDensLo"},
    {"HiLimTemp", kF8, "limTempHi"},
    {"LoLimTemp", kF8, "limTempLo"},
    {"KDens", kF8, "kDens"},
    {"KTemp", kF8, "kTemp"},
});

constexpr std::array kRead60 = std::to_array<ReadRow>({
    {"Coeff0", kF8, "solid[0]"},
    {"Coeff1", kF8, "solid[1]"},
    {"Coeff2", kF8, "solid[2]"},
    {"Coeff3", kF8, "solid[3]"},
    {"Coeff4", kF8, "solid[4]"},
    {"Coeff5", kF8, "solid[5]"},
    {"LimHi", kF8, "solidHi"},
    {"LimLo", kF8, "solidLo"},
});

constexpr std::array kRead61 = std::to_array<ReadRow>({
    {"TRDInputScale", kP16, "inScale"},
    {"TRDPressUnit", kU4, "inUnit"},
});

constexpr std::array kRead63 = std::to_array<ReadRow>({
    {"TRDPVType", kE4, "pvType"},
    {"MeasuredType", kE2, "measuredType"},
    {"PositionMounting", kE2, "mounting"},
    {"TRDLinType", kE2, "linType"},
});

constexpr std::array kRead64 = std::to_array<ReadRow>({
    {"LowerCalibPoint", kF8, "densLo"},
    {"UpperCalibPoint", kF8, "densHi"},
    {"CalibUnit", kU4, "outUnit"},
    {"PressEUUnit", kU4, "inUnit"},
    {"TempUnit", kU4, "tempUnit"},
    {"Height", kF8, "height"},
});

constexpr std::array kRead65 = std::to_array<ReadRow>({
    {"PressCalPointLo", kF8, "densPressLo"},
    {"PressCalPointHi", kF8, "densPressHi"},
    {"PrimayValue", kS10, "@pv"},
    {"Pressure", kS10, "@press"},
    {"Temperature", kS10, "@t"},
    {"OperResult", kE2, "operResult"},
});

constexpr std::array kRead66 = std::to_array<ReadRow>({
    {"MeasuredType", kE2, "measuredType"},
    {"TRDPVType", kE4, "pvType"},
});

constexpr std::array kRead67 = std::to_array<ReadRow>({
    {"TRDInputScale", kP16, "volScale"},
    {"TRDPressUnit", kU4, "volUnit"},
});

constexpr std::array kRead69 = std::to_array<ReadRow>({
    {"TRDPVType", kE4, "pvType"},
    {"TRDCompensation", kE2, "compensation"},
    {"TRDLinType", kE2, "linType"},
    {"Gravity", kF8, "gravity"},
    {"Height", kF8, "height"},
    {"DeadBandComp", kF8, "deadBand", 105},
    {"SnsHiUnit", kU4, "sensorUnit", 105},
});

constexpr std::array kRead70 = std::to_array<ReadRow>({
    {"TRDDebugEnable", kE2, "debugEnable"},
    {"TRDFloatDebug", kF8, "debugPressure"},
    {"TRDTempSimulate", kF8, "debugTemp"},
});

constexpr std::array kRead71 = std::to_array<ReadRow>({
    {"TRDRangeCode", kE2, "densityRange"},
});

constexpr std::array kRead73 = std::to_array<ReadRow>({
    {"SensorLimit", kF8, "limHi.hi"},
    {"CalPoint", kF8, "calHi.hi"},
    {"SensorVal", kS10, "@pStatus.hi"},
    {"CalUnit", kU4, "sensorUnit"},
    {"TRDOperResult", kE2, "operResult"},
});

constexpr std::array kRead74 = std::to_array<ReadRow>({
    {"SensorLimit", kF8, "limLo.hi"},
    {"CalPoint", kF8, "calLo.hi"},
    {"SensorVal", kS10, "@pStatus.hi"},
    {"CalUnit", kU4, "sensorUnit"},
    {"TRDOperResult", kE2, "operResult"},
});

constexpr std::array kRead75 = std::to_array<ReadRow>({
    {"SensorLimit", kF8, "limHi.lo"},
    {"CalPoint", kF8, "calHi.lo"},
    {"SensorVal", kS10, "@pStatus.lo"},
    {"CalUnit", kU4, "sensorUnit"},
    {"TRDOperResult", kE2, "operResult"},
});

constexpr std::array kRead76 = std::to_array<ReadRow>({
    {"SensorLimit", kF8, "limLo.lo"},
    {"CalPoint", kF8, "calLo.lo"},
    {"SensorVal", kS10, "@pStatus.lo"},
    {"CalUnit", kU4, "sensorUnit"},
    {"TRDOperResult", kE2, "operResult"},
});

constexpr std::array kRead77 = std::to_array<ReadRow>({
    {"CalUnit", kU4, "sensorUnit"},
});

constexpr std::array kRead78 = std::to_array<ReadRow>({
    {"SensorValHi", kS10, "@pStatus.hi"},
    {"SensorValLo", kS10, "@pStatus.lo"},
    {"TRDOperResult", kE2, "operResult"},
});

constexpr std::array kRead79 = std::to_array<ReadRow>({
    {"TRDPVType", kE4, "pvType"},
});

constexpr std::array kRead80 = std::to_array<ReadRow>({
    {"TRDPVType", kE4, "pvType"},
    {"TrdHTRRange", kE2, "densityRange"},
    {"AIScaleOutput", kR22, "ai.outScale"},
    {"PVUnitScale", kU4, "@pvUnitScale"},
    {"AIConfig", kE2, "aiConfig", 107},
    {"TrdScaleSnsHi", kP16, "snsScale.hi", 104},
    {"TrdScaleSnsHiUnit", kU4, "snsUnit.hi", 104},
    {"TrdScaleSnsLo", kP16, "snsScale.lo", 104},
    {"TrdScaleSnsLoUnit", kU4, "snsUnit.lo", 104},
    {"PVScale", kP16, "@pvScale"},
});

struct ReadTable {
  int code;
  std::span<const ReadRow> rows;
};

constexpr std::array kReads = std::to_array<ReadTable>({
    {1, kRead1},   {2, kRead2},   {3, kRead3},   {4, kRead4},   {5, kRead5},   {6, kRead6},   {7, kRead7},
    {8, kRead8},   {9, kRead9},   {10, kRead10}, {11, kRead11}, {12, kRead12}, {13, kRead13}, {14, kRead14},
    {15, kRead15}, {16, kRead16}, {17, kRead17}, {18, kRead18}, {19, kRead19}, {20, kRead20}, {26, kRead26},
    {27, kRead27}, {29, kRead29}, {30, kRead29}, {31, kRead29}, {32, kRead32}, {33, kRead33}, {34, kRead34},
    {35, kRead35}, {36, kRead36}, {37, kRead37}, {38, kRead38}, {39, kRead39}, {40, kRead40}, {41, kRead41},
    {43, kRead43}, {44, kRead44}, {45, kRead45}, {46, kRead46}, {47, kRead3},  {48, kRead48}, {49, kRead49},
    {50, kRead50}, {51, kRead51}, {52, {}},      {53, kRead53}, {54, kRead54}, {55, kRead55}, {56, kRead56},
    {57, kRead57}, {58, kRead58}, {59, kRead59}, {60, kRead60}, {61, kRead61}, {62, kRead7},  {63, kRead63},
    {64, kRead64}, {65, kRead65}, {66, kRead66}, {67, kRead67}, {68, kRead7},  {69, kRead69}, {70, kRead70},
    {71, kRead71}, {72, kRead43}, {73, kRead73}, {74, kRead74}, {75, kRead75}, {76, kRead76}, {77, kRead77},
    {78, kRead78}, {79, kRead79}, {80, kRead80},
});
static_assert(std::is_sorted(kReads.begin(), kReads.end(),
                             [](const ReadTable& a, const ReadTable& b) { return a.code < b.code; }));

}  // namespace

std::optional<std::span<const ReadRow>> ReadRows(int code) {
  const auto* const row = std::lower_bound(kReads.begin(), kReads.end(), code,
                                           [](const ReadTable& table, int wanted) { return table.code < wanted; });
  if (row == kReads.end() || row->code != code) return std::nullopt;
  return row->rows;
}

std::vector<int> ReadCodes() {
  std::vector<int> codes;
  for (const auto& table : kReads) codes.push_back(table.code);
  return codes;
}

}  // namespace htr60::sim
