// Round after round of a control's life, and what is left of them: rounds_client CONTROL MANAGER ROUNDS [LEAK]
// The first two are the DLLs. LEAK is left behind once, for to see that it is found: object, handle, heap or window.

#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "form/control_names.h"
#include "library.h"
#include "measures.h"
#include "windows/base/text.h"
#include "windows/control/identity.h"

namespace htr60::client {
namespace {

using com::Bstr;

void Pump(DWORD milliseconds) {
  MsgWaitForMultipleObjects(0, nullptr, FALSE, milliseconds, QS_ALLINPUT);
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) DispatchMessageW(&message);
}

/// The simulated manager.
class Manager {
 public:
  explicit Manager(const Library& library)
      : access_(library.Create<com::IDtmParameterAccess>(com::kManagerClass, com::kDtmParameterAccess)) {
    Call(L"UseSettings", LR"({"timing": {"answerMs": 0}})");
  }
  IUnknown* Get() const { return access_.Get(); }
  void Read(int code) const {
    const Bstr number(std::string_view(std::to_string(code)));
    Bstr result;
    CHECK(access_->ReadRequest(number.Get(), nullptr, result.Out()) == S_OK);
  }
  bool HasAnswered(int code) const { return !Call(L"LastAnswer", std::to_wstring(code * 100)).empty(); }
  void WaitFor(int code) const {
    for (const ULONGLONG end = GetTickCount64() + 20000; !HasAnswered(code); Pump(50)) CHECK(GetTickCount64() < end);
  }

 private:
  std::wstring Call(const wchar_t* name, std::wstring_view argument) const {
    auto* asked = const_cast<wchar_t*>(name);
    DISPID id = DISPID_UNKNOWN;
    CHECK(access_->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_NEUTRAL, &id) == S_OK);
    const Bstr text(argument);
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = VT_BSTR;
    variant.bstrVal = text.Get();
    DISPPARAMS params{&variant, nullptr, 1, 0};
    VARIANT result;
    VariantInit(&result);
    CHECK(access_->Invoke(id, IID_NULL, LOCALE_NEUTRAL, DISPATCH_METHOD, &params, &result, nullptr, nullptr) == S_OK);
    const std::wstring given = result.vt == VT_BSTR ? std::wstring(com::TextOf(result.bstrVal)) : std::wstring();
    VariantClear(&result);
    return given;
  }

  ComPtr<com::IDtmParameterAccess> access_;
};

struct Libraries {
  Library control;
  Library manager;
};

// The answers of every page; a few in each round.
constexpr int kCodes[] = {2, 4, 5, 6, 7, 8, 10, 12, 20, 29, 36, 52, 54, 57, 66, 72, 77, 79};
constexpr int kCodesARound = 4;
constexpr int kWithRealTimer = 50;  // in every so manyth round the control's own timer is waited for

/// One life of a control beside a second one, which is there for less.
void Round(const Libraries& libraries, int number, bool leaves) {
  const Manager manager(libraries.manager);
  const auto control = libraries.control.Create<com::IDtmActiveXControl>(com::kControlClass, com::kDtmActiveXControl);
  const Bstr id(std::string_view(std::to_string(number)));
  VARIANT_BOOL attached = VARIANT_FALSE;
  CHECK(control->Init(id.Get(), nullptr, manager.Get(), &attached) == S_OK && attached == VARIANT_TRUE);
  {
    const auto other = libraries.control.Create<com::IDtmActiveXControl>(com::kControlClass, com::kDtmActiveXControl);
    const Manager its(libraries.manager);
    CHECK(other->Init(nullptr, nullptr, its.Get(), &attached) == S_OK && attached == VARIANT_TRUE);
  }
  if (number % kWithRealTimer != 0) {
    // Its first timer is due, without the wait.
    for (const HWND window : MessageWindows()) {
      SendMessageW(window, WM_TIMER, static_cast<WPARAM>(TimerId::TimerInit) + 1, 0);
    }
  }
  manager.WaitFor(1);
  int last = 0;
  for (int i = 0; i < kCodesARound; ++i) {
    last = kCodes[static_cast<std::size_t>(number * kCodesARound + i) % std::size(kCodes)];
    manager.Read(last);
  }
  manager.WaitFor(last);
  Pump(0);
  VARIANT_BOOL done = VARIANT_FALSE;
  if (number % 3 != 0) CHECK(control->PrepareToRelease(&done) == S_OK && done == VARIANT_TRUE);
  if (leaves) control->AddRef();
}

void Leave(std::string_view what) {
  if (what == "handle") CreateEventW(nullptr, FALSE, FALSE, nullptr);
  if (what == "heap") *static_cast<char*>(HeapAlloc(GetProcessHeap(), 0, 1)) = 1;
  if (what == "window") {
    CreateWindowExW(0, L"Htr60MessageWindow", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                    GetModuleHandleW(L"htr60_control.dll"), nullptr);
  }
}

struct Measures {
  const char* name;
  std::size_t before;
  std::size_t after;
};

int Run(const Libraries& libraries, int rounds, std::string_view leak) {
  constexpr int kSettled = 2;
  std::size_t handles = 0;
  std::size_t heap = 0;
  std::size_t windows = 0;
  LONG objects = 0;
  const auto live = [&] { return libraries.control.LiveObjects() + libraries.manager.LiveObjects(); };
  for (int number = 1; number <= rounds; ++number) {
    Round(libraries, number, leak == "object" && number == kSettled + 3);
    if (number == kSettled + 3) Leave(leak);
    Pump(0);
    if (number == kSettled) {
      windows = MessageWindows().size();
      objects = live();
      handles = Handles();
      heap = HeapBytes();
    }
  }
  const Measures all[] = {
      {"windows", windows, MessageWindows().size()},
      {"objects", static_cast<std::size_t>(objects), static_cast<std::size_t>(live())},
      {"handles", handles, Handles()},
      {"heap bytes", heap, HeapBytes()},
  };
  int grown = 0;
  std::printf("ok %d rounds\n", rounds);
  for (const Measures& m : all) {
    const bool same = m.before == m.after;
    if (!same) ++grown;
    std::printf("%s %s\n", same ? "ok" : "GROWN", m.name);
    std::fprintf(stderr, "%s: %zu after round %d, %zu after round %d\n", m.name, m.before, kSettled, m.after, rounds);
  }
  return grown;
}

}  // namespace
}  // namespace htr60::client

int main(int count, char** arguments) {
  using namespace htr60::client;
  if (count < 4) return 2;
  OleInitialize(nullptr);
  const std::string_view leak = count > 4 ? arguments[4] : "";
  try {
    const Libraries libraries{Library(arguments[1]), Library(arguments[2])};
    const int grown = Run(libraries, std::atoi(arguments[3]), leak);
    return (grown != 0) == !leak.empty() ? 0 : 1;
  } catch (const Failure& failure) {
    std::printf("FAILED %s\n", failure.what.c_str());
    return 1;
  }
}
