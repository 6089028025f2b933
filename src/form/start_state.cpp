#include "form/form.h"
#include "form/tab_captions.h"

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
  for (const TabCaptions& strip : kTabCaptions) At(strip.strip).SetCaptions(strip.captions);
  for (std::size_t i = 0; i < kTimerCount; ++i) timers_[i].interval_ = kDesignIntervals[i];
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
