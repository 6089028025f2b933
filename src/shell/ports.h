#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace htr60 {

/// Receiver of answers, registered by the control at the DTM manager.
class IUpdateUI {
 public:
  virtual ~IUpdateUI() = default;
  /// `responseCode` is the read's code times 100; `answer` an XML text in UTF-8, valid for the call only.
  virtual void UpdateUI(std::int32_t responseCode, std::string_view answer) noexcept = 0;
};

/// Core interface of the DTM manager. A call that fails throws `RuntimeFailure`.
///
/// Inside a call of this and the next interface a manager may pump messages: the operator's acts, timers, `Init` and
/// `PrepareToRelease` may run there, further calls included, and the frame may let the control go. What is handed to a
/// call stays valid until it returns, and the interface called is held. Answers alone do not come inside a call.
class IDtmCore {
 public:
  virtual ~IDtmCore() = default;
  /// Records `receiver`: later answers reach its `UpdateUI`, never inside this call. `number` is 0; `flag` is an output
  /// that nothing reads.
  virtual void RegisterUI(std::string_view className, std::string_view invokeId, std::shared_ptr<IUpdateUI> receiver,
                          std::int32_t number, bool& flag) = 0;
  /// Removes the receiver of `invokeId`; an unknown id does nothing. `number` is -1.
  virtual void UnregisterUI(std::string_view invokeId, std::int32_t number, bool& flag) = 0;
};

/// Read and write channel of the DTM manager. A call that fails throws `RuntimeFailure`.
/// Codes are decimal texts; documents are `ViewData` texts (or empty); `result` is an output that nothing reads.
/// An answer never arrives inside a call: it comes later, at `IUpdateUI`.
class IDtmParameterAccess {
 public:
  virtual ~IDtmParameterAccess() = default;
  virtual void WriteRequest(std::string_view code, std::string_view document, std::string& result) = 0;
  virtual void ReadRequest(std::string_view code, std::string_view document, std::string& result) = 0;
};

/// The DTM object that a frame hands to `Init`. An interface that it does not offer is null or throws.
class IDtm {
 public:
  virtual ~IDtm() = default;
  virtual std::shared_ptr<IDtmCore> Core() = 0;
  virtual std::shared_ptr<IDtmParameterAccess> ParameterAccess() = 0;
};

enum class BoxIcon { kNone, kInformation, kStop };
enum class BoxButton { kOk, kYes, kNo };

struct ModalBox {
  std::string_view text;
  std::string_view caption;
  BoxIcon icon = BoxIcon::kNone;
  std::span<const BoxButton> buttons;
};

/// Modal message boxes. `Show` returns when the operator has answered; answers and timers may be handled meanwhile.
class IMessageBoxes {
 public:
  virtual ~IMessageBoxes() = default;
  /// Closing a Yes/No box by other means returns `kNo`, closing an OK box `kOk`.
  virtual BoxButton Show(const ModalBox& box) = 0;
};

/// One-shot timers on the control's one thread. `timer` numbers the control's timers from 0; arming an armed timer
/// restarts its wait. When it is due the host calls `UserCntrl::TimerDue(timer)`, never inside `Arm`.
class ITimers {
 public:
  virtual ~ITimers() = default;
  virtual void Arm(int timer, std::int32_t milliseconds) = 0;
  virtual void Disarm(int timer) = 0;
};

/// The two icon files beside the control.
class IIcons {
 public:
  virtual ~IIcons() = default;
  /// Loads the picture of status panel 1, for example "connected.ico"; false where it cannot be loaded.
  virtual bool Load(std::string_view fileName) = 0;
};

/// Told once when the form begins to differ from what its view took last; the view looks when its turn comes.
class IFormWatcher {
 public:
  virtual ~IFormWatcher() = default;
  virtual void FormChanged() = 0;
};

/// What the control needs from outside. The host keeps the ports alive until the control's last entry has returned.
struct Ports {
  IMessageBoxes& boxes;
  ITimers& timers;
  IIcons& icons;
  IFormWatcher* watcher = nullptr;  ///< none: nobody looks
  char decimalSeparator = '.';      ///< of the operator's locale: '.' or ','
};

}  // namespace htr60
