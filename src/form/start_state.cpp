#include "form/form.h"

namespace htr60 {
namespace {

struct StartText {
  ControlId control;
  std::string_view text;
};

// Captions that labels, buttons and group boxes bear from the start. Those not named here start empty.
constexpr StartText kTexts[] = {
    {id::lbArray(7), "Modem Version"},
    {id::lbArray(8), "Sensor Hi Version"},
    {id::lbArray(9), "Sensor Lo Version"},
    {id::cmdSensorDetails, "Sensor Details"},

    {id::frmzGroup(12), "Square Root"},
    {id::cmdSquareRoot, "Curve Graphic"},
    {id::cmdTRDInScale, "Transducer Input Scale"},
    {id::cmdTrdOutScale, "Transducer Output Scale"},
    {id::cmdTemp, "Temperature"},
    {id::lbStatusSensorValue, "Sensor electronic board failure or disconnected"},
    {id::lbArray(26), "Sensor electronic board failure or disconnected"},
    {id::lbArray(107), "Pressure Unit (EU)"},
    {id::frmzGroup(8), "Sensor Limits"},
    {id::frmzGroup(34), "Sensor Limits"},
    {id::frmzGroup(61), "Measure Type"},
    {id::cmdPictureTable, "Curve Graphic"},
    {id::lbArray(46), "Please Wait! Reanding Points..."},

    {id::cmdDensTrdInputScale, "Transducer Pressure Scale"},
    {id::cmdDensTrdOutputScale, "Transducer Density Scale"},
    {id::cmdConstant, "Constants"},
    {id::cmdConcentration, "General Concentration"},
    {id::cmdSolid, "Solid Percent Coefficients"},
    {id::lbParameter(4), "Backup Restore"},
    {id::lbArray(347), "DeadBand Comp"},
    {id::cmdTRDLevelInputScale, "Transducer Pressure Scale"},
    {id::cmdTRDLevelOutputScale, "Transducer Level Scale"},
    {id::cmdTRVScaleVolume, "Transducer Volume/Mass Scale"},

    {id::lbArray(349), "AI Config"},

    {id::LabelAIVal, "PV_VAL"},
    {id::LabelAIStatus, "PV_VAL_ST"},
    {id::lbArray(278), "Sensor Diag"},
    {id::lbArray(261), "Sensor Connected"},
    {id::lbArray(260), "Sensor Initialized"},
    {id::lbArray(277), "Delta Press"},
    {id::lbArray(259), "Delta Press"},
    {id::lbArray(184), "Specific Weight"},

    {id::lbArray(101), "Calibration Unit"},
    {id::cmdCalibLower, "Lower/Upper"},
    {id::cmdCalibGraphic, "Graphic"},
    {id::lbArray(127), "Temperature Unit"},
    {id::cmdTempCalib, "Temp Calibration"},
    {id::Command3, "Cal With Ref"},
    {id::lbArray(102), "Value"},
    {id::lbArray(103), "Status"},
    {id::lbArray(111), "Sensor Limit"},
    {id::lbArray(113), "Calib Point"},
    {id::cmdWriteCalibLower, "Write"},
    {id::lbArray(124), "Sensor Limit"},
    {id::lbArray(122), "Calib Point"},
    {id::cmdWriteCalibUpper, "Write"},
    {id::lbArray(112), "Cal Min Span"},
    {id::lbArray(114), "Calibration Result"},
    {id::lbArray(129), "Value"},
    {id::lbArray(130), "Status"},
    {id::lbArray(135), "Min Temp"},
    {id::lbArray(136), "Temp Cal Point"},
    {id::lbArray(416), "Hi Sensor Limit"},
    {id::lbArray(506), "Lo Sensor Limit"},
    // The lower limit of the Lo sensor bears "Hi" too: so it stands on the form.
    {id::lbArray(510), "Hi Sensor Limit"},
    {id::lbArray(520), "Hi Sensor Limit"},
    {id::lbArray(529), "Cal Unit"},
    {id::cmdWriteCalPoint, "Write"},
    {id::cmdWriteCalPointSns1, "Write"},
    {id::cmdWriteCalPointSns2, "Write"},
    {id::lbArray(344), "Measured Type"},
    {id::lbArray(305), "Temperature Unit"},
    {id::cmdDensityTemp, "Temp Calibration"},
    {id::Command4, "Cal With Ref"},
    {id::lbArray(342), "AZTrim Enable"},
    {id::lbArray(317), "AZTrim Reference"},
    {id::lbArray(316), "AZTrim Noise Band"},
    {id::lbArray(315), "AZTrim Time Action"},
    {id::lbArray(343), "AZTrim Selection"},

    {id::lbArray(318), "Char Operation"},
    {id::cmdResultChar, "Result Characterization"},
    {id::lbParameter(65), "Number of Points"},
    {id::lbParameter(107), "Measured Pressure"},
    {id::frmGroupParameter(32), "Enter Applied Pressure Point P1"},
    {id::lbParameter(114), "P1:"},
    {id::cmdSend, "Send"},
    {id::lbArray(141), "Value"},
    {id::lbArray(147), "Status"},
    {id::lbArray(149), "Curve lenght"},
    {id::lbArray(303), "X1"},
    {id::lbArray(302), "X2"},
    {id::lbArray(301), "X3"},
    {id::lbArray(300), "X4"},
    {id::lbArray(299), "X5"},
    {id::lbArray(298), "Y1"},
    {id::lbArray(297), "Y2"},
    {id::lbArray(296), "Y3"},
    {id::lbArray(295), "Y4"},
    {id::lbArray(294), "Y5"},
    {id::lbArray(142), "X1"},
    {id::lbArray(143), "X2"},
    {id::lbArray(144), "X3"},
    {id::lbArray(145), "X4"},
    {id::lbArray(146), "X5"},
    {id::lbArray(132), "Y1"},
    {id::lbArray(133), "Y2"},
    {id::lbArray(137), "Y3"},
    {id::lbArray(138), "Y4"},
    {id::lbArray(139), "Y5"},

    {id::lbParameter(121), "Backup Restore"},
    {id::lbParameter(5), "GSD Identification Number"},
    {id::lbParameter(6), "Agile"},
    {id::frmGroupParameter(16), "User Identifier Number"},
    {id::cmdCalibWithRef, "Cal With Ref"},
    {id::lbParameter(3), "Please, enter the password and click on the botton"},
    {id::cmdFactory, "Factory"},
    {id::lbParameter(2), "Backup Restore"},
    {id::cmdWriteBackupRestore, "Write"},
    {id::lbArray(22), "Zero Filter"},
    {id::cmdWriteZeroFilter, "Write"},
    {id::cmdCalWithRef, "Cal With Ref"},
    {id::cmdCalWithoutRef, "Cal Without Ref"},
    {id::cmdSensorChar, "Characterization"},
    {id::cmdSensorFactory, "Factory Sensor "},
    {id::cmdFactoryTrdInputScale, "Transducer Input Scale"},
    {id::cmdAutoZeroTrim, "Auto Zero Trim"},
    {id::Command5, "Constants"},

    {id::cmdSave, "Save"},

    // Nothing shows these two; their texts are read by name.
    {id::lbArray(431), "Cal Point"},
    {id::lbArray(434), "Hi Sensor Limit"},
};

// Hidden until something shows them.
constexpr ControlId kHidden[] = {
    id::lbArray(7),          id::lbArray(8),
    id::lbArray(9),          id::txtParameter(7),
    id::txtParameter(8),     id::txtParameter(9),
    id::lbArray(347),        id::lbArray(348),
    id::txtParameter(176),   id::cmbAgile,
    id::lbParameter(6),      id::Frame1,
    id::lbArray(349),        id::cmbAIConfig,
    id::cmdWriteAIConfig,    id::cmbTRDScaleAI,
    id::cmbWritePVScale,     id::cmbWritePVScaleUnit,
    id::lbStatusSensorValue, id::lbArray(26),
    id::PictMessageTable,    id::txtParameter(50),
    id::txtParameter(51),    id::txtParameter(57),
    id::txtParameter(58),    id::lbArray(74),
    id::lbArray(76),         id::lbArray(77),
    id::lbArray(78),         id::txtParameter(183),
    id::txtParameter(184),   id::txtParameter(185),
    id::txtParameter(186),   id::txtParameter(187),
    id::txtParameter(188),   id::txtParameter(189),
    id::txtParameter(190),   id::txtParameter(191),
    id::txtParameter(192),   id::lbArray(294),
    id::lbArray(295),        id::lbArray(296),
    id::lbArray(297),        id::lbArray(298),
    id::lbArray(299),        id::lbArray(300),
    id::lbArray(301),        id::lbArray(302),
    id::lbArray(303),        id::frmzGroup(12),
    id::cmdTablePoints,      id::txtParameter(197),
    id::txtParameter(198),   id::txtParameter(199),
    id::txtParameter(200),   id::txtParameter(201),
    id::txtParameter(202),
};

constexpr std::string_view kTwoSensors[] = {"Hi Sensor ", "Lo Sensor "};
constexpr std::string_view kSensorFlange[] = {"Sensor", "Flange"};
constexpr std::string_view kTrdSettings[] = {"Settings", "Scales/Units", "Simulate", "Sensor Value"};
constexpr std::string_view kDensity[] = {"Settings", "Scales/Units",   "Advanced", "Backup Restore",
                                         "Simulate", "HTR Range Code", "Others"};
constexpr std::string_view kAi[] = {"Basic Settings", "Scales",     "Alarm/Warning", "Fail Safe",
                                    "Simulate",       "Mode Block", "AI Graphic"};
constexpr std::string_view kLcd[] = {"Monit 1", "Monit 2", "Monit 3", "User Prmt", "LCD Switch", "LCD Bargraph"};
constexpr std::string_view kCalib[] = {"Diff. Pressure", "Temperature", "Sensor"};
constexpr std::string_view kDensityCalib[] = {"Measured Type", "Lower", "Upper", "Temperature", "Sensor"};
constexpr std::string_view kCalibWithRef[] = {"Cal Unit", "Hi Press Cal Sensor", "Lo Press Cal Sensor"};
constexpr std::string_view kUpperLower[] = {"Upper", "Lower"};
constexpr std::string_view kDiagnosis[] = {"Sensor", "Sensor Value", "Dynamic Values"};
constexpr std::string_view kFactory[] = {"Backup Restore",    "GSD",           "Reset", "Write Protect",
                                         " Hi/Lo Sensor Cal", "Factory Sensor"};
constexpr std::string_view kFactorySensor[] = {"Hi Sensor ",  "Lo Sensor ",         "Polynomial",
                                               "Gain/OffSet", "Backup/Zero Filter", "Calibration"};

struct StartTabs {
  TabsId strip;
  std::span<const std::string_view> captions;
};

constexpr StartTabs kTabs[] = {
    {id::SSTabInfoSensors, kTwoSensors},
    {id::SSTabInfoSensor, kSensorFlange},
    {id::SSTabInfoSensorLo, kSensorFlange},
    {id::SSTabTRDSettings, kTrdSettings},
    {id::SSTabDensity, kDensity},
    {id::SSTabTRDLevel, kTrdSettings},
    {id::SSTabAI, kAi},
    {id::SSTabLCD, kLcd},
    {id::SSTabCalib, kCalib},
    {id::SSTabDensityCalib, kDensityCalib},
    {id::SSTabCalibWithRef(0), kCalibWithRef},
    {id::SSTabCalibWithRef(1), kUpperLower},
    {id::SSTabCalibWithRef(2), kUpperLower},
    {id::SSTabDiagnosis, kDiagnosis},
    {id::SSTabFactory, kFactory},
    {id::SSTabFactorySensorInfo, kFactorySensor},
    {id::SSTabSensorHiFactory, kSensorFlange},
    {id::SSTabSensorLoFactory, kSensorFlange},
};

// Design intervals in ms, in the order of TimerId.
constexpr int kIntervals[kTimerCount] = {120,  600,  1080, 1560, 2040, 3000, 3480, 4440, 4920,
                                         5400, 4920, 5400, 4440, 3480, 3960, 2520, 3000, 3960};

void SetText(TextField& widget, std::string_view text) { widget.SetText(text); }
void SetText(Label& widget, std::string_view text) { widget.SetText(text); }
void SetText(Button& widget, std::string_view text) { widget.SetText(text); }
void SetText(Frame& widget, std::string_view text) { widget.SetText(text); }
void SetText(Control&, std::string_view) {}

}  // namespace

void Form::SetStartState() {
  for (const StartText& start : kTexts) {
    Visit(start.control, [&](auto& widget) { SetText(widget, start.text); });
  }
  for (const ControlId control : kHidden) {
    Visit(control, [](auto& widget) { widget.SetVisible(false); });
  }
  for (Frame& frame : frames_) {
    if (IsPageFrame(FrameId{frame.Id()})) frame.SetVisible(frame.Id() == id::frmInfo);
  }
  for (const StartTabs& start : kTabs) At(start.strip).SetCaptions(start.captions);
  for (std::size_t i = 0; i < kTimerCount; ++i) timers_[i].interval_ = kIntervals[i];
  frmzGroup(34).SetTop(3120);
  frmzGroup(61).SetTop(4560);
  frmGroupParameter(0).SetHeight(960);
  frmGroupParameter(1).SetHeight(960);
  frmGroupParameter(2).SetHeight(960);
  frmGroupParameter(3).SetHeight(960);
  cmdBack.SetEnabled(false);
  cmdSave.SetEnabled(false);
  cmbUnitScaleOutput.SetClosed();
  cmbLinearizationType.SetClosed();
  txtPassword.SetMaxLength(5);
}

}  // namespace htr60
