#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "shell/ports.h"
#include "simulator/manager/manager.h"
#include "windows/base/dispatch.h"
#include "windows/base/entry.h"
#include "windows/base/message_window.h"
#include "windows/control/identity.h"

namespace htr60::com {

/// The simulated transmitter's DTM manager as an object for frames and scripts: what a frame hands to `Init`.
///
/// It answers by its own message-only window, so its thread has to look at its messages; `Wait` does so for a script
/// that cannot. By name it answers the requests of both interfaces, the settings and the faults; what is refused is an
/// error with a sentence. All on the thread that made it.
class ManagerObject final : public Scriptable<IDispatch>, private MessageWindow, private Counted {
 public:
  ManagerObject();

  HRESULT WINAPI QueryInterface(REFIID id, void** object) override;
  ULONG WINAPI AddRef() override { return CountUp(); }
  ULONG WINAPI Release() override { return CountDown(); }

  sim::Manager& Transmitter() { return *manager_; }

  void Use(const std::string& settings);
  void UsePreset(const std::string& name);
  void Register(const std::string& className, const std::string& invokeId, const ComPtr<IUnknown>& receiver,
                LONG number);
  void Unregister(const std::string& invokeId);
  /// The text that stands at `result` of a request.
  std::string Request(bool write, const std::string& code, const std::string& document);
  /// Handles this thread's messages for so many milliseconds, at most an hour.
  void Wait(LONG milliseconds);
  /// The document of the last answer of that code; empty where there was none.
  const std::string& LastAnswer(LONG code) const;

 private:
  class CorePart;
  class AccessPart;
  class Receiver;

  ~ManagerObject() override;
  Members ScriptMembers() const override;
  void OnMessage(UINT message, WPARAM word) override;
  void Begin(const sim::Settings& settings);
  void SetAlarm();
  void Answered(std::int32_t code, std::string_view document);

  std::unique_ptr<CorePart> core_;
  std::unique_ptr<AccessPart> access_;
  std::shared_ptr<sim::Manager> manager_;
  std::vector<std::pair<std::int32_t, std::string>> answers_;  // the last of each code
};

/// For the class factory.
HRESULT CreateManager(REFIID id, void** object) noexcept;

}  // namespace htr60::com
