#include "windows/manager/manager_object.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

#include "simulator/manager/json_text.h"
#include "windows/base/hand_out.h"
#include "windows/base/server.h"
#include "windows/base/text.h"

namespace htr60::com {

using nlohmann::json;

/// One of the manager's two interfaces. By name it answers what the whole object answers.
template <class Interface>
class Part : public Interface {
 public:
  explicit Part(ManagerObject& object) : owner(object) {}
  virtual ~Part() = default;

  HRESULT WINAPI QueryInterface(REFIID id, void** object) override { return owner.QueryInterface(id, object); }
  ULONG WINAPI AddRef() override { return owner.AddRef(); }
  ULONG WINAPI Release() override { return owner.Release(); }
  HRESULT WINAPI GetTypeInfoCount(UINT* count) override { return owner.GetTypeInfoCount(count); }
  HRESULT WINAPI GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override {
    return owner.GetTypeInfo(index, locale, info);
  }
  HRESULT WINAPI GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override {
    return owner.GetIDsOfNames(reserved, names, count, locale, ids);
  }
  HRESULT WINAPI Invoke(DISPID id, REFIID reserved, LCID locale, WORD kind, DISPPARAMS* params, VARIANT* result,
                        EXCEPINFO* exception, UINT* wrong) override {
    return owner.Invoke(id, reserved, locale, kind, params, result, exception, wrong);
  }

 protected:
  ManagerObject& owner;
};

class ManagerObject::CorePart final : public Part<com::IDtmCore> {
 public:
  using Part::Part;
  HRESULT WINAPI RegisterUI(BSTR className, BSTR invokeId, IUnknown* receiver, LONG number,
                            VARIANT_BOOL* flag) override {
    return Entry(this, [&] {
      owner.Register(Utf8WithMarks(TextOf(className)), Utf8WithMarks(TextOf(invokeId)), ComPtr<IUnknown>(receiver),
                     number);
      if (flag != nullptr) *flag = VARIANT_TRUE;
      return S_OK;
    });
  }
  HRESULT WINAPI UnregisterUI(BSTR invokeId, VARIANT_BOOL, VARIANT_BOOL* flag) override {
    return Entry(this, [&] {
      owner.Unregister(Utf8WithMarks(TextOf(invokeId)));
      if (flag != nullptr) *flag = VARIANT_TRUE;
      return S_OK;
    });
  }
};

class ManagerObject::AccessPart final : public Part<com::IDtmParameterAccess> {
 public:
  using Part::Part;
  HRESULT WINAPI WriteRequest(BSTR code, BSTR document, BSTR* result) override {
    return Send(true, code, document, result);
  }
  HRESULT WINAPI ReadRequest(BSTR code, BSTR document, BSTR* result) override {
    return Send(false, code, document, result);
  }

 private:
  HRESULT Send(bool write, BSTR code, BSTR document, BSTR* result) {
    return Entry(this, [&] {
      const std::string given = owner.Request(write, Utf8WithMarks(TextOf(code)), Utf8WithMarks(TextOf(document)));
      if (result != nullptr) *result = Bstr(std::string_view(given)).Detach();
      return S_OK;
    });
  }
};

/// The receiver that was registered, as the transmitter wants it.
class ManagerObject::Receiver final : public htr60::IUpdateUI {
 public:
  Receiver(ManagerObject& manager, ComPtr<com::IUpdateUI> receiver)
      : manager_(manager), receiver_(std::move(receiver)) {}

  void UpdateUI(std::int32_t responseCode, std::string_view answer) noexcept override {
    Entry(nullptr, [&] {
      const ComPtr<com::IUpdateUI> receiver = receiver_;
      manager_.Answered(responseCode, answer);
      const Bstr text(answer);
      VARIANT variant;
      VariantInit(&variant);
      variant.vt = VT_BSTR;
      variant.bstrVal = text.Get();
      return receiver->UpdateUI(responseCode, variant);
    });
  }

 private:
  ManagerObject& manager_;
  ComPtr<com::IUpdateUI> receiver_;
};

namespace {

std::int64_t Now() { return static_cast<std::int64_t>(GetTickCount64()); }

ManagerObject& Self(IDispatch& self) { return static_cast<ManagerObject&>(static_cast<Scriptable<IDispatch>&>(self)); }

std::string TextAt(const Arguments& arguments, std::size_t i) { return Utf8WithMarks(arguments.Text(i)); }

/// What is refused ends with its sentence.
template <class Body>
auto Told(Body&& body) {
  try {
    return body();
  } catch (const std::exception& error) {
    throw ComFailure{.result = DISP_E_EXCEPTION, .sentence = Utf16WithMarks(error.what())};
  }
}

void CallRegister(IDispatch& self, const Arguments& arguments, VARIANT&) {
  const ComPtr<IUnknown> receiver = arguments.Object(2);
  const LONG number = arguments.Number(3);
  Told([&] { Self(self).Register(TextAt(arguments, 0), TextAt(arguments, 1), receiver, number); });
  arguments.PutFlag(4, true);
}

void CallUnregister(IDispatch& self, const Arguments& arguments, VARIANT&) {
  Self(self).Unregister(TextAt(arguments, 0));
  arguments.PutFlag(2, true);
}

template <bool Write>
void CallRequest(IDispatch& self, const Arguments& arguments, VARIANT&) {
  const std::string code = TextAt(arguments, 0);
  const std::string document = TextAt(arguments, 1);
  const std::string given = Told([&] { return Self(self).Request(Write, code, document); });
  arguments.PutText(2, Utf16WithMarks(given));
}

void CallUseSettings(IDispatch& self, const Arguments& arguments, VARIANT&) {
  const std::string settings = TextAt(arguments, 0);
  Told([&] { Self(self).Use(settings); });
}

void CallUsePreset(IDispatch& self, const Arguments& arguments, VARIANT&) {
  const std::string name = TextAt(arguments, 0);
  Told([&] { Self(self).UsePreset(name); });
}

void CallPresetNames(IDispatch&, const Arguments&, VARIANT& result) {
  std::string names;
  for (const std::string_view name : sim::PresetNames()) {
    if (!names.empty()) names += ' ';
    names += name;
  }
  PutText(result, Utf16WithMarks(names));
}

void CallSet(IDispatch& self, const Arguments& arguments, VARIANT&) {
  const std::string settings = TextAt(arguments, 0);
  Told([&] { Self(self).Transmitter().Set(sim::ParseJsonText(settings)); });
}

void CallBeginFault(IDispatch& self, const Arguments& arguments, VARIANT& result) {
  const std::string fault = TextAt(arguments, 0);
  PutNumber(result, Told([&] { return Self(self).Transmitter().BeginFault(sim::ParseJsonText(fault)); }));
}

void CallClearFault(IDispatch& self, const Arguments& arguments, VARIANT&) {
  const LONG fault = arguments.Number(0);
  Told([&] { Self(self).Transmitter().ClearFault(fault); });
}

void CallClearAllFaults(IDispatch& self, const Arguments&, VARIANT&) { Self(self).Transmitter().ClearAllFaults(); }

void CallOnline(IDispatch& self, const Arguments&, VARIANT& result) {
  PutFlag(result, Self(self).Transmitter().Online());
}

void CallSetOnline(IDispatch& self, const Arguments& arguments, VARIANT&) {
  Self(self).Transmitter().SetOffline(!arguments.Flag(0));
}

void CallValues(IDispatch& self, const Arguments& arguments, VARIANT& result) {
  const std::string names = TextAt(arguments, 0);
  PutText(result, Utf16WithMarks(Told([&] { return Self(self).Transmitter().Get(sim::ParseJsonText(names)).dump(); })));
}

void CallWait(IDispatch& self, const Arguments& arguments, VARIANT&) { Self(self).Wait(arguments.Number(0)); }

void CallLastAnswer(IDispatch& self, const Arguments& arguments, VARIANT& result) {
  PutText(result, Utf16WithMarks(Self(self).LastAnswer(arguments.Number(0))));
}

constexpr Member kMembers[] = {
    {L"RegisterUI", kRegisterUI, DISPATCH_METHOD, 5, &CallRegister},
    {L"UnregisterUI", kUnregisterUI, DISPATCH_METHOD, 3, &CallUnregister},
    {L"WriteRequest", kWriteRequest, DISPATCH_METHOD, 3, &CallRequest<true>},
    {L"ReadRequest", kReadRequest, DISPATCH_METHOD, 3, &CallRequest<false>},
    {L"UseSettings", 5, DISPATCH_METHOD, 1, &CallUseSettings},
    {L"UsePreset", 6, DISPATCH_METHOD, 1, &CallUsePreset},
    {L"PresetNames", 7, DISPATCH_METHOD | DISPATCH_PROPERTYGET, 0, &CallPresetNames},
    {L"Set", 8, DISPATCH_METHOD, 1, &CallSet},
    {L"BeginFault", 9, DISPATCH_METHOD, 1, &CallBeginFault},
    {L"ClearFault", 10, DISPATCH_METHOD, 1, &CallClearFault},
    {L"ClearAllFaults", 11, DISPATCH_METHOD, 0, &CallClearAllFaults},
    {L"Online", 12, DISPATCH_PROPERTYGET, 0, &CallOnline},
    {L"Online", 12, DISPATCH_PROPERTYPUT, 1, &CallSetOnline},
    {L"Values", 13, DISPATCH_METHOD, 1, &CallValues},
    {L"Wait", 14, DISPATCH_METHOD, 1, &CallWait},
    {L"LastAnswer", 15, DISPATCH_METHOD, 1, &CallLastAnswer},
};

constexpr UINT_PTR kAlarm = 1;

}  // namespace

const ServedClass kServedClass{
    .id = kManagerClass,
    .progId = L"HTR60.SimulatedManager",
    .progIdVersion = L"HTR60.SimulatedManager.1",
    .title = L"HTR60 simulated DTM manager",
    .isControl = false,
    .create = &CreateManager,
};

ManagerObject::ManagerObject()
    : core_(std::make_unique<CorePart>(*this)), access_(std::make_unique<AccessPart>(*this)) {
  Begin(sim::Settings{});
}

ManagerObject::~ManagerObject() { manager_->onScheduleChanged = nullptr; }

Members ManagerObject::ScriptMembers() const { return kMembers; }

HRESULT ManagerObject::QueryInterface(REFIID id, void** object) {
  auto* const dispatch = static_cast<IDispatch*>(this);
  return HandOut({{IID_IUnknown, dispatch},
                  {IID_IDispatch, dispatch},
                  {kDtmCore, static_cast<com::IDtmCore*>(core_.get())},
                  {kDtmParameterAccess, static_cast<com::IDtmParameterAccess*>(access_.get())}},
                 id, object);
}

void ManagerObject::Begin(const sim::Settings& settings) {
  const std::shared_ptr<sim::Manager> next = sim::Manager::Create(settings, &Now);
  if (manager_ != nullptr) manager_->onScheduleChanged = nullptr;
  manager_ = next;
  manager_->onScheduleChanged = [this] { SetAlarm(); };
  SetAlarm();
}

void ManagerObject::Use(const std::string& settings) { Begin(sim::Parse(sim::ParseJsonText(settings))); }

void ManagerObject::UsePreset(const std::string& name) { Begin(sim::Parse(sim::PresetObject(name))); }

void ManagerObject::Register(const std::string& className, const std::string& invokeId,
                             const ComPtr<IUnknown>& receiver, LONG number) {
  auto taker = ComPtr<com::IUpdateUI>::Of(receiver.Get(), kUpdateUI);
  if (!taker) throw sim::SettingsError("the receiver has no UpdateUI");
  bool flag = false;
  manager_->RegisterUI(className, invokeId, std::make_shared<Receiver>(*this, std::move(taker)), number, flag);
}

void ManagerObject::Unregister(const std::string& invokeId) {
  bool flag = false;
  manager_->UnregisterUI(invokeId, -1, flag);
}

std::string ManagerObject::Request(bool write, const std::string& code, const std::string& document) {
  std::string result;
  if (write) {
    manager_->WriteRequest(code, document, result);
  } else {
    manager_->ReadRequest(code, document, result);
  }
  return result;
}

void ManagerObject::Wait(LONG milliseconds) {
  constexpr LONG kLongest = 60 * 60 * 1000;
  const std::int64_t end = Now() + std::clamp(milliseconds, 0L, kLongest);
  for (std::int64_t left = end - Now(); left > 0; left = end - Now()) {
    MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(left), QS_ALLINPUT);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
      if (message.message == WM_QUIT) {  // is for the loop outside
        PostQuitMessage(static_cast<int>(message.wParam));
        return;
      }
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
  }
}

const std::string& ManagerObject::LastAnswer(LONG code) const {
  static const std::string none;
  const auto found = std::find_if(answers_.begin(), answers_.end(), [&](const auto& a) { return a.first == code; });
  return found == answers_.end() ? none : found->second;
}

// As many as there are codes.
void ManagerObject::Answered(std::int32_t code, std::string_view document) {
  const auto found = std::find_if(answers_.begin(), answers_.end(), [&](const auto& a) { return a.first == code; });
  if (found != answers_.end()) {
    found->second = document;
  } else {
    answers_.emplace_back(code, document);
  }
}

void ManagerObject::SetAlarm() {
  const auto due = manager_->NextDue();
  if (!due) {
    KillTimer(Handle(), kAlarm);
    return;
  }
  constexpr std::int64_t kLongest = 24 * 60 * 60 * 1000;
  SetTimer(Handle(), kAlarm, static_cast<UINT>(std::clamp<std::int64_t>(*due - Now(), 0, kLongest)), nullptr);
}

// One delivery a message, so that others get their turn.
void ManagerObject::OnMessage(UINT, WPARAM) {
  const ComPtr<IUnknown> hold(static_cast<IDispatch*>(this));
  const std::shared_ptr<sim::Manager> manager = manager_;
  manager->RunOne(Now());
  SetAlarm();
}

HRESULT CreateManager(REFIID id, void** object) noexcept {
  return Entry(nullptr, [&] {
    const auto manager = ComPtr<IDispatch>::Attach(new ManagerObject);
    return manager->QueryInterface(id, object);
  });
}

}  // namespace htr60::com
