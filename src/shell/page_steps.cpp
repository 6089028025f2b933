#include "shell/page_steps.h"

#include <utility>

namespace htr60 {
namespace {

void SetWrite(UserCntrl& c, ButtonState state) {
  if (state != ButtonState::kUnchanged) c.form.cmdWriteParameter.SetEnabled(state == ButtonState::kEnabled);
}

}  // namespace

void RunTab(UserCntrl& c, const TabStep& step) {
  c.RequestCode = "0";
  c.StopPollingTimers();
  if (!step.page.empty()) c.CurrentPage = step.page;
  if (!step.subPage.empty()) c.SubPage = step.subPage;
  SetWrite(c, step.write);
  if (step.read != 0) c.Read(step.read);
  if (step.polls) c.StartTimer(step.timer, step.interval);
}

void RunTabReadingLast(UserCntrl& c, TabStep step) {
  const int read = std::exchange(step.read, 0);
  RunTab(c, step);
  if (read != 0) c.Read(read);
}

void OpenPage(UserCntrl& c, const OpenStep& step) {
  c.HideAllFrames();
  c.form.At(step.frame).SetVisible(true);
  c.form.cmdBack.SetEnabled(true);
  c.CurrentPage = step.page;
  if (!step.subPage.empty()) c.SubPage = step.subPage;
  SetWrite(c, step.write);
  if (step.read != 0) c.Read(step.read);
}

}  // namespace htr60
