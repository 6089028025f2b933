#include <string>

#include "shell/guard.h"
#include "shell/tables.h"
#include "shell/user_cntrl.h"

namespace htr60 {
// The page is looked at once: a step does not lead to another page's step.
void UserCntrl::RunSteps(const std::vector<const PageStepRow*>& rows) {
  const std::string page = CurrentPage;
  for (const PageStepRow* row : rows) {
    if (row->pages.Has(page)) row->run(*this);
  }
}

void UserCntrl::OnWriteParameter() {
  if (ConnectionState != kConnected) return;
  BlockSelector = "None";
  for (const PollRow* row : tables_->polls) {
    if (row != nullptr && row->endsAtWrite) form.At(row->timer).SetEnabled(false);
  }
  StoreDocument({});
  RunSteps(tables_->beforeWrites);
  const WriteRow* row = Tables::Find(tables_->writes, CurrentPage, SubPage);
  if (row == nullptr) return;
  const Operands operands = row->operands ? row->operands(*this) : Operands{};
  if (!operands.Sends()) return;
  StoreDocument(operands);
  form.statusBar.SetText(4, "Writing Xmtr Data...");
  ArmReread(row->rereadMs);
  SendWrite(std::to_string(row->code));
}

void UserCntrl::OnTimerReadAfterWrite() {
  if (ConnectionState == kConnected) {
    RequestCode = "0";
    RunSteps(tables_->beforeRereads);
    if (const RereadRow* row = Tables::Find(tables_->rereads, CurrentPage, SubPage)) {
      if (row->also) row->also(*this);
      ReadBlock(row->read);
    }
  }
  // A failure above leaves the timer running: it tries again after the same interval.
  Timer& timer = form.At(TimerId::TimerReadAfterWrite);
  timer.SetEnabled(false);
  timer.SetInterval(0);
}

}  // namespace htr60
