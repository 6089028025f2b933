#include "pages/pages.h"

#include <initializer_list>

#include "codecs/mAllUnits.h"
#include "codecs/mEnumeration.h"
#include "codecs/mFunctions.h"
#include "codecs/mStatusProfibus.h"
#include "shell/user_cntrl.h"

// The live values of the two sensors, of which the transducer pages and the diagnosis page each show a part.
namespace htr60::pages::sensor_values {
namespace {

constexpr int kSensorRead = 45;
constexpr int kChainRead = 53;
constexpr double kReadingLimit = 9000.0;  // sensor electronics that do not answer read more

void SetCaptions(UserCntrl& c, std::string_view text, std::initializer_list<LabelId> labels) {
  for (const LabelId label : labels) c.form.At(label).SetText(text);
}

void SetCaptionsIfAny(UserCntrl& c, std::string_view text, std::initializer_list<LabelId> labels) {
  if (!text.empty()) SetCaptions(c, text, labels);
}

/// Sets `field` to the value of a value with status, and gives the status as text.
std::string_view TakeValue(UserCntrl& c, std::string_view hex, TextField& field) {
  std::int32_t status = 0;
  c.codecs.HexToFloatStatus(hex, field, status);
  return StatusByteToText(status);
}

bool AboveLimit(UserCntrl& c, const TextField& high, const TextField& low) {
  const double highReading = c.codecs.ParseLocaleNumber(high.Text());
  const double lowReading = c.codecs.ParseLocaleNumber(low.Text());
  return highReading > kReadingLimit || lowReading > kReadingLimit;
}

// Both transducer pages are filled at once; each field of the second is a copy of the first's.
void OnSensorValueAnswer(UserCntrl& c, const Answer& a) {
  Form& f = c.form;
  if (const std::string_view diag = DecodeSensorDiag(a.Number("SensorDiag")); !diag.empty()) {
    f.txtParameter(298).SetText(diag);
    f.txtParameter(143).SetText(diag);
  }
  f.txtParameter(10).SetText(c.codecs.FormatValue(HexToFloat(a.Text("SensorValue"))));
  f.txtParameter(144).SetText(f.txtParameter(10).Text());
  SetCaptions(
      c, UnitCodeToText(a.Word("TRDSensorUnit")),
      {id::lbArray(270), id::lbArray(187), id::lbArray(489), id::lbArray(490), id::lbArray(495), id::lbArray(496)});
  f.txtParameter(299).SetText(TakeValue(c, a.Text("PrimaryValue"), f.txtParameter(60)));
  f.txtParameter(316).SetText(f.txtParameter(60).Text());
  f.txtParameter(210).SetText(f.txtParameter(299).Text());
  SetCaptions(c, UnitCodeToText(a.Word("TRDPrimaryValueUnit")), {id::lbArray(279), id::lbArray(190)});
  f.txtParameter(300).SetText(TakeValue(c, a.Text("CapHiValue"), f.txtParameter(61)));
  f.txtParameter(334).SetText(f.txtParameter(61).Text());
  f.txtParameter(333).SetText(f.txtParameter(300).Text());
  TakeValue(c, a.Text("CapLoValue"), f.txtParameter(62));
  f.txtParameter(336).SetText(f.txtParameter(62).Text());
  f.lbStatusSensorValue.SetVisible(AboveLimit(c, f.txtParameter(61), f.txtParameter(62)));
  f.lbArray(26).SetVisible(AboveLimit(c, f.txtParameter(334), f.txtParameter(336)));
  TakeValue(c, a.Text("SpecificHeight"), f.txtParameter(317));
  TakeValue(c, a.Text("SpecificHeight"), f.txtParameter(139));
  SetCaptionsIfAny(c, UnitCodeToText(a.Word("TempUnit")), {id::lbArray(221), id::lbArray(498)});
  TakeValue(c, a.Text("Temp"), f.txtParameter(17));
  f.txtParameter(301).SetText(f.txtParameter(17).Text());
}

// The diagnosis page and the density page are filled at once.
void OnMeasuringChainAnswer(UserCntrl& c, const Answer& a) {
  Form& f = c.form;
  f.txtParameter(175).SetText(c.codecs.FormatValue(HexToFloat(a.Text("SensorValue"))));
  f.txtParameter(323).SetText(f.txtParameter(175).Text());
  f.txtParameter(310).SetText(TakeValue(c, a.Text("CapHiValue"), f.txtParameter(173)));
  f.txtParameter(321).SetText(f.txtParameter(173).Text());
  f.txtParameter(322).SetText(f.txtParameter(310).Text());
  f.txtParameter(311).SetText(TakeValue(c, a.Text("CapLoValue"), f.txtParameter(170)));
  f.txtParameter(319).SetText(f.txtParameter(170).Text());
  f.txtParameter(320).SetText(f.txtParameter(311).Text());  // stays only until the temperature below
  SetCaptions(
      c, UnitCodeToText(a.Word("SensorValueUnit")),
      {id::lbArray(284), id::lbArray(485), id::lbArray(486), id::lbArray(487), id::lbArray(488), id::lbArray(503)});
  TakeValue(c, a.Text("SpecificHeight"), f.txtParameter(337));
  SetCaptionsIfAny(c, UnitCodeToText(a.Word("TempUnit")), {id::lbArray(502)});
  TakeValue(c, a.Text("Temp"), f.txtParameter(320));
  f.txtParameter(335).SetText(TakeValue(c, a.Text("PrimaryValue"), f.txtParameter(352)));
  SetCaptionsIfAny(c, UnitCodeToText(a.Word("TRDOutUnit")), {id::lbArray(499)});
  SetCaptionsIfAny(c, DecodeMeasuredType(a.Number("MeasuredType")), {id::lbArray(469)});
}

constexpr AnswerRow kAnswers[] = {
    {kSensorRead * 100, OnSensorValueAnswer},
    {kChainRead * 100, OnMeasuringChainAnswer},
};
constexpr PollRow kPolls[] = {
    {TimerId::TimerSensorValue, kSensorRead, PollDocument::kFresh},
    {TimerId::TimerDiagnosisTab3, kChainRead, PollDocument::kStored},
};

}  // namespace

constexpr PageUnit kUnit{.answers = kAnswers, .polls = kPolls};

}  // namespace htr60::pages::sensor_values
