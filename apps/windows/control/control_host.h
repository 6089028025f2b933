#pragma once

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "form/control_names.h"
#include "presentation/presentation.h"
#include "shell/ports.h"
#include "shell/user_cntrl.h"
#include "windows/base/com_ptr.h"
#include "windows/base/message_window.h"
#include "windows/control/manager_proxy.h"
#include "windows/control/receiver.h"
#include "windows/win.h"

namespace htr60::com {

/// One control with what it needs of the system: timers, the turn of the view and posted answers by a message-only
/// window, message boxes over the frame's window, icons from beside the DLL. All on the thread that makes it.
///
/// While `kMostBoxes` message boxes stand on top of each other it hands the control nothing: answers and timers wait.
class ControlHost final : private MessageWindow,
                          private IAnswerTaker,
                          private IMessageBoxes,
                          private ITimers,
                          private IIcons,
                          private IFormWatcher {
 public:
  static constexpr int kMostBoxes = 8;

  /// What stands around it.
  struct Around {
    std::function<HWND()> begin;   ///< a box is coming: gives the window before which it stands
    std::function<void()> end;     ///< it has gone
    std::function<void()> turned;  ///< the presentation has taken what changed
  };

  /// `owner` is held while anything of the control runs.
  ControlHost(IUnknown& owner, Around around);
  ~ControlHost() override;

  UserCntrl& Control() { return *control_; }
  bool Init(std::wstring_view invokeId, std::wstring_view functionCall, const ComPtr<IUnknown>& dtm);
  presentation::Presentation& Presented() { return *presentation_; }
  /// Takes what has changed.
  void TurnNow();

 private:
  static constexpr UINT kTurn = WM_APP;
  static constexpr UINT kAnswer = WM_APP + 1;
  static constexpr UINT_PTR kDeadline = kTimerCount + 1;  // the control's timers are 1 to kTimerCount

  void OnMessage(UINT message, WPARAM word) override;
  bool IsBusy() const override { return calls_->underWay > 0 || Full(); }
  void TakeAnswer(std::int32_t code, std::string_view document) override;
  BoxButton Show(const ModalBox& box) override;
  void Arm(int timer, std::int32_t milliseconds) override;
  void Disarm(int timer) override;
  bool Load(std::string_view fileName) override;
  void FormChanged() override;

  bool Full() const { return openBoxes_ >= kMostBoxes; }
  void TimerIsDue(UINT_PTR timer);

  IUnknown& owner_;
  Around around_;
  std::shared_ptr<CallsOut> calls_ = std::make_shared<CallsOut>();
  ComPtr<Receiver> receiver_;
  std::array<std::optional<std::string>, 2> icons_;  // names of those that were loaded
  int openBoxes_ = 0;
  bool turnPosted_ = false;
  std::shared_ptr<UserCntrl> control_;
  std::optional<presentation::Presentation> presentation_;
};

}  // namespace htr60::com
