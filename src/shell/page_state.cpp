#include <string>

#include "shell/guard.h"
#include "shell/tables.h"
#include "shell/user_cntrl.h"

namespace htr60 {
namespace {

constexpr int kStateRead = 90;

}  // namespace

void UserCntrl::HideAllFrames() {
  for (const PictureId panel : tables_->panels) form.At(panel).SetVisible(false);
  for (const FrameId frame : tables_->hidden) form.At(frame).SetVisible(false);
  form.ForgetFrameShown();
}

void UserCntrl::StopPollingTimers() {
  for (const PollRow* row : tables_->polls) {
    if (row != nullptr) form.At(row->timer).SetEnabled(false);
  }
}

bool UserCntrl::IsPolling(TimerId timer) const { return tables_->polls[static_cast<std::size_t>(timer)] != nullptr; }

bool UserCntrl::HasHandler(TimerId timer) const {
  return timer == TimerId::TimerInit || timer == TimerId::TimerReadAfterWrite || IsPolling(timer);
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
  for (const int code : {kStateRead, registry_.start.read}) {
    RequestCode = std::to_string(code);
    StoreDocument({});
    ReadQuietly();
  }
  CurrentPage = registry_.start.page;
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
