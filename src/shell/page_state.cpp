#include <iterator>

#include "shell/guard.h"
#include "shell/tables.h"
#include "shell/user_cntrl.h"
#include "text/failure.h"

namespace htr60 {
namespace {

constexpr TimerId kPollingTimers[] = {
    TimerId::TimerReadPressure,  TimerId::TimerReadTemp,   TimerId::TimerAIOut,       TimerId::TimerDeviceView,
    TimerId::TimerAIView,        TimerId::TimerChar,       TimerId::TimerMonit1,      TimerId::TimerMonit2,
    TimerId::TimerMonit3,        TimerId::TimerMonit4,     TimerId::TimerSensorValue, TimerId::TimerDiagnosisTab3,
    TimerId::TimerDiagnosisTab4, TimerId::TimerMonitCalib, TimerId::TimerCalibRef,
};

// frmAITOTGraphic is not among them: once shown its flag stays set.
constexpr FrameId kHiddenTogether[] = {
    id::frmAI,
    id::frmCalib,
    id::frmCalibPressLowerUpper,
    id::frmCalibTemp,
    id::frmChar,
    id::frmInfo,
    id::frmInfoSensor,
    id::frmLCD,
    id::frmTRDOutputScale,
    id::frmTRDSettings,
    id::frmTRDTable,
    id::frmFactorySensorInfo,
    id::frmTRDTempUnits,
    id::frmDeviceView,
    id::frmAIView,
    id::frmSquareRoot,
    id::frmPictureTable,
    id::frmfactory,
    id::frmCalibGraphic,
    id::frmMethodChar,
    id::frmDiagnosis,
    id::frmFactoryPassword,
    id::frmResultChar,
    id::frmTRDInputScale,
    id::frmAutoZeroTrim,
    id::frmConstants,
    id::frmSolidCoefficients,
    id::frmConcentration,
    id::frmDensityCalib,
    id::frmTRDLevel,
    id::frmTRDDensity,
    id::frmCalWithoutRef,
    id::frmCalWithRef,
    id::frmPrimaryValueType,
};

}  // namespace

void UserCntrl::HideAllFrames() {
  form.PictMessageTable.SetVisible(false);
  for (const FrameId frame : kHiddenTogether) form.At(frame).SetVisible(false);
  form.ForgetFrameShown();
}

void UserCntrl::StopPollingTimers() {
  for (const TimerId timer : kPollingTimers) form.At(timer).SetEnabled(false);
}

bool UserCntrl::HasHandler(TimerId timer) const {
  return timer == TimerId::TimerInit || timer == TimerId::TimerReadAfterWrite ||
         tables_->polls[static_cast<std::size_t>(timer)] != nullptr;
}

void UserCntrl::TimerChanged(const Timer& timer, bool armed) {
  if (!HasHandler(timer.Id())) return;  // a timer that does nothing costs nothing
  if (armed) {
    ports_.timers.Arm(static_cast<int>(timer.Id()), timer.Interval());
  } else {
    ports_.timers.Disarm(static_cast<int>(timer.Id()));
  }
}

void UserCntrl::TimerDue(int timer) noexcept {
  if (timer < 0 || timer >= static_cast<int>(kTimerCount)) return;
  Guarded([&] {
    const auto due = static_cast<TimerId>(timer);
    const Timer& widget = form.At(due);
    if (!widget.Running() || !HasHandler(due)) return;
    ports_.timers.Arm(timer, widget.Interval());
    if (due == TimerId::TimerInit) return OnTimerInit();
    if (due == TimerId::TimerReadAfterWrite) return OnTimerReadAfterWrite();
    OnPoll(*tables_->polls[static_cast<std::size_t>(timer)]);
  });
}

void UserCntrl::OnTimerInit() {
  form.At(TimerId::TimerInit).SetEnabled(false);
  // The first two reads leave panel 4 as it is.
  for (const char* code : {"90", "1"}) {
    RequestCode = code;
    StoreDocument({});
    if (ParameterAccess == nullptr) throw RuntimeFailure("not attached");
    ParameterAccess->ReadRequest(RequestCode, RequestXml, RequestResult);
  }
  CurrentPage = "Identification";
}

void UserCntrl::OnPoll(const PollRow& row) {
  switch (row.document) {
    case PollDocument::kFresh:
      return Read(row.read);
    case PollDocument::kStored:
      return ReadStored(row.read);
    case PollDocument::kOwn:
      return Read(row.read, row.operands(*this));
  }
}

void UserCntrl::OnBack() {
  HideAllFrames();
  StopPollingTimers();
  form.cmdBack.SetEnabled(false);
  for (const BackRow* row : tables_->backs) {
    if (!row->pages.Has(CurrentPage)) continue;
    const BackTarget& to = row->to;
    if (!to.page.empty()) CurrentPage = to.page;
    if (!to.subPage.empty()) SubPage = to.subPage;
    if (to.frame && (to.showIf == nullptr || to.showIf(*this))) form.At(to.frame).SetVisible(true);
    if (to.backEnabled) form.cmdBack.SetEnabled(true);
    if (to.write != ButtonState::kUnchanged) form.cmdWriteParameter.SetEnabled(to.write == ButtonState::kEnabled);
    return;
  }
}

}  // namespace htr60
