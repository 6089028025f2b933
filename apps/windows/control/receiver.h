#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "windows/base/dispatch.h"
#include "windows/base/entry.h"
#include "windows/control/identity.h"

namespace htr60::com {

/// Where answers go.
class IAnswerTaker {
 public:
  virtual ~IAnswerTaker() = default;
  /// Answers are not taken now: a call to the manager is under way, or too many boxes are open.
  virtual bool IsBusy() const = 0;
  /// `document` is UTF-8; what was no text of characters is a NUL, which no reader takes.
  virtual void TakeAnswer(std::int32_t code, std::string_view document) = 0;
};

/// The object that the manager calls with answers. It does not hold the control: after `Close` it takes none.
///
/// An answer on the control's thread, while nothing is under way, is handled inside the call. Any other is copied and
/// handled when the thread's messages come to it, in the order of their coming. Its identifier is a frame's interface
/// too, so that between threads of the process it is handed on as it is, and to another process not at all.
class Receiver final : public Scriptable<IUpdateUI>, public IMarshal, private Counted {
 public:
  /// More answers than this do not wait: the manager is told so.
  static constexpr std::size_t kMostWaiting = 1024;
  static constexpr std::size_t kMostBytes = std::size_t{32} << 20U;

  /// `window` gets `message` when an answer waits. `taker` belongs to the thread that makes this.
  Receiver(IAnswerTaker& taker, HWND window, UINT message);

  /// No more answers: the taker goes. On its thread.
  void Close();
  /// Handles the answer that waits longest, on the taker's thread; asks for another message while more wait.
  void HandleOne();
  /// Asks for a message where answers wait: what was under way has ended.
  void Resume();

  HRESULT WINAPI QueryInterface(REFIID id, void** object) override;
  ULONG WINAPI AddRef() override { return CountUp(); }
  ULONG WINAPI Release() override { return CountDown(); }

  HRESULT WINAPI UpdateUI(LONG responseCode, VARIANT answer) override;

  HRESULT WINAPI GetUnmarshalClass(REFIID id, void* object, DWORD context, void* reserved, DWORD flags,
                                   CLSID* proxy) override;
  HRESULT WINAPI GetMarshalSizeMax(REFIID id, void* object, DWORD context, void* reserved, DWORD flags,
                                   DWORD* size) override;
  HRESULT WINAPI MarshalInterface(IStream* stream, REFIID id, void* object, DWORD context, void* reserved,
                                  DWORD flags) override;
  HRESULT WINAPI UnmarshalInterface(IStream* stream, REFIID id, void** object) override;
  HRESULT WINAPI ReleaseMarshalData(IStream* stream) override;
  HRESULT WINAPI DisconnectObject(DWORD reserved) override;

 private:
  struct Waiting {
    std::int32_t code = 0;
    std::string document;
  };

  ~Receiver() override;
  Members ScriptMembers() const override;
  HRESULT Take(std::int32_t code, std::string document);
  HRESULT Keep(std::int32_t code, std::string document);
  void AskForMessage();  // `access_` is held
  bool HasWaiting();
  std::optional<Waiting> Next();

  const DWORD thread_;
  const UINT message_;
  ComPtr<IUnknown> marshaler_;
  IAnswerTaker* taker_;      // on its thread alone
  CRITICAL_SECTION access_;  // to what follows
  HWND window_;
  std::deque<Waiting> waiting_;
  std::size_t bytes_ = 0;
  bool asked_ = false;  // for a message that has not come yet
  bool closed_ = false;
};

}  // namespace htr60::com
