#include <string_view>

#include "shell/guard.h"
#include "shell/tables.h"
#include "shell/user_cntrl.h"

namespace htr60 {
namespace {

constexpr TimerId kMonitTimers[] = {TimerId::TimerMonit1, TimerId::TimerMonit2, TimerId::TimerMonit3,
                                    TimerId::TimerMonit4};
constexpr int kTableWrite = 6;  // the device checks the curve: its re-read waits longer

}  // namespace

void UserCntrl::OnWriteParameter() {
  if (ConnectionState != kConnected) return;
  BlockSelector = "None";
  for (const TimerId timer : kMonitTimers) form.At(timer).SetEnabled(false);
  StoreDocument({});
  for (const BeforeWriteRow* row : tables_->beforeWrites) {
    if (row->pages.Has(CurrentPage)) row->run(*this);
  }
  const WriteRow* row = Tables::Find(tables_->writes, CurrentPage, SubPage);
  if (row == nullptr) return;
  const Operands operands = row->operands ? row->operands(*this) : Operands{};
  if (!operands.Sends()) return;
  StoreDocument(operands);
  form.statusBar.SetText(4, "Writing Xmtr Data...");
  ArmReread(row->code == kTableWrite ? 4000 : 2000);
  SendWrite(std::to_string(row->code));
}

void UserCntrl::OnTimerReadAfterWrite() {
  if (ConnectionState == kConnected) {
    RequestCode = "0";
    SelectBlockOfPage();
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
