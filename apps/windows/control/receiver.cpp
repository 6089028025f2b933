#include "windows/control/receiver.h"

#include <utility>

#include "windows/base/hand_out.h"
#include "windows/base/text.h"

namespace htr60::com {
namespace {

/// The section of other threads.
class Lock {
 public:
  explicit Lock(CRITICAL_SECTION& section) : section_(section) { EnterCriticalSection(&section_); }
  ~Lock() { LeaveCriticalSection(&section_); }
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

 private:
  CRITICAL_SECTION& section_;
};

std::string DocumentOf(std::wstring_view text) { return Utf8(text).value_or(std::string(1, '\0')); }

constexpr Member kMembers[] = {
    {L"UpdateUI", kUpdate, DISPATCH_METHOD, 2,
     [](IDispatch& self, const Arguments& arguments, VARIANT&) {
       const HRESULT result = static_cast<IUpdateUI&>(self).UpdateUI(arguments.Number(0), arguments.At(1));
       if (FAILED(result)) throw ComFailure{.result = result, .argument = 1};
     }},
};

}  // namespace

Receiver::Receiver(IAnswerTaker& taker, HWND window, UINT message)
    : thread_(GetCurrentThreadId()), message_(message), taker_(&taker), window_(window) {
  InitializeCriticalSection(&access_);
  CoCreateFreeThreadedMarshaler(static_cast<IUpdateUI*>(this), marshaler_.Out());
}

Receiver::~Receiver() {
  marshaler_.Reset();
  DeleteCriticalSection(&access_);
}

Members Receiver::ScriptMembers() const { return kMembers; }

HRESULT Receiver::QueryInterface(REFIID id, void** object) {
  auto* const update = static_cast<IUpdateUI*>(this);
  return HandOut({{IID_IUnknown, update},
                  {IID_IDispatch, update},
                  {kUpdateUI, update},
                  {IID_IMarshal, static_cast<IMarshal*>(this)}},
                 id, object);
}

void Receiver::Close() {
  taker_ = nullptr;
  const Lock lock(access_);
  closed_ = true;
  waiting_.clear();
  bytes_ = 0;
}

HRESULT Receiver::UpdateUI(LONG responseCode, VARIANT answer) {
  return Entry(static_cast<IUpdateUI*>(this), [&]() -> HRESULT {
    VARIANTARG argument[] = {answer};
    DISPPARAMS params{argument, nullptr, 1, 0};
    return Take(responseCode, DocumentOf(Arguments(params).Text(0)));
  });
}

HRESULT Receiver::Take(std::int32_t code, std::string document) {
  if (GetCurrentThreadId() != thread_) return Keep(code, std::move(document));
  if (taker_ == nullptr) return CO_E_OBJNOTCONNECTED;
  if (taker_->IsBusy() || HasWaiting()) return Keep(code, std::move(document));
  taker_->TakeAnswer(code, document);
  return S_OK;
}

HRESULT Receiver::Keep(std::int32_t code, std::string document) {
  const Lock lock(access_);
  if (closed_) return CO_E_OBJNOTCONNECTED;
  if (waiting_.size() >= kMostWaiting || bytes_ + document.size() > kMostBytes) return E_OUTOFMEMORY;
  bytes_ += document.size();
  waiting_.push_back({code, std::move(document)});
  AskForMessage();
  return S_OK;
}

// One at a time, however many wait: the system's queue holds only so many, and others need it too.
void Receiver::AskForMessage() {
  if (!asked_ && !waiting_.empty()) asked_ = PostMessageW(window_, message_, 0, 0) != FALSE;
}

bool Receiver::HasWaiting() {
  const Lock lock(access_);
  return !waiting_.empty();
}

std::optional<Receiver::Waiting> Receiver::Next() {
  const Lock lock(access_);
  if (waiting_.empty()) return std::nullopt;
  Waiting next = std::move(waiting_.front());
  waiting_.pop_front();
  bytes_ -= next.document.size();
  AskForMessage();  // before this one is handled, which may run a loop of its own
  return next;
}

void Receiver::HandleOne() {
  {
    const Lock lock(access_);
    asked_ = false;
  }
  if (taker_ == nullptr || taker_->IsBusy()) return;
  if (const std::optional<Waiting> next = Next()) taker_->TakeAnswer(next->code, next->document);
}

void Receiver::Resume() {
  const Lock lock(access_);
  AskForMessage();
}

// ---- between threads

namespace {

/// The interface of another object, for the length of a call.
template <class Call>
HRESULT Marshal(const ComPtr<IUnknown>& marshaler, Call&& call) {
  const auto found = ComPtr<IMarshal>::Of(marshaler.Get(), IID_IMarshal);
  return found ? call(*found.Get()) : E_NOINTERFACE;
}

/// The standard way would make a proxy of whatever interface the frame has registered under the identifier.
bool StaysInProcess(DWORD context) { return context == MSHCTX_INPROC || context == MSHCTX_CROSSCTX; }

}  // namespace

HRESULT Receiver::GetUnmarshalClass(REFIID id, void* object, DWORD context, void* reserved, DWORD flags, CLSID* proxy) {
  if (!StaysInProcess(context)) return E_NOINTERFACE;
  return Marshal(marshaler_,
                 [&](IMarshal& m) { return m.GetUnmarshalClass(id, object, context, reserved, flags, proxy); });
}

HRESULT Receiver::GetMarshalSizeMax(REFIID id, void* object, DWORD context, void* reserved, DWORD flags, DWORD* size) {
  if (!StaysInProcess(context)) return E_NOINTERFACE;
  return Marshal(marshaler_,
                 [&](IMarshal& m) { return m.GetMarshalSizeMax(id, object, context, reserved, flags, size); });
}

HRESULT Receiver::MarshalInterface(IStream* stream, REFIID id, void* object, DWORD context, void* reserved,
                                   DWORD flags) {
  if (!StaysInProcess(context)) return E_NOINTERFACE;
  return Marshal(marshaler_,
                 [&](IMarshal& m) { return m.MarshalInterface(stream, id, object, context, reserved, flags); });
}

HRESULT Receiver::UnmarshalInterface(IStream* stream, REFIID id, void** object) {
  return Marshal(marshaler_, [&](IMarshal& m) { return m.UnmarshalInterface(stream, id, object); });
}

HRESULT Receiver::ReleaseMarshalData(IStream* stream) {
  return Marshal(marshaler_, [&](IMarshal& m) { return m.ReleaseMarshalData(stream); });
}

HRESULT Receiver::DisconnectObject(DWORD reserved) {
  return Marshal(marshaler_, [&](IMarshal& m) { return m.DisconnectObject(reserved); });
}

}  // namespace htr60::com
