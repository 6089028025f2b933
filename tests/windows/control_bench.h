#pragma once

#include <string>
#include <string_view>

#include "cases.h"
#include "test_manager.h"
#include "windows/control/control_object.h"

namespace htr60::client {

using com::Bstr;

/// COM for the length of a program.
class Apartment {
 public:
  Apartment() { OleInitialize(nullptr); }
  ~Apartment() { OleUninitialize(); }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
};

/// Handles the oldest message that waits; false where none does. Timers are left alone.
inline bool HandleOne() {
  MSG message;
  if (PeekMessageW(&message, nullptr, WM_APP, 0xBFFF, PM_REMOVE) == FALSE) return false;
  DispatchMessageW(&message);
  return true;
}
inline void HandleAll() {
  while (HandleOne()) {
  }
}

/// Runs `body` on another thread and waits for it; `body` must not throw.
template <class Body>
void OnThread(Body&& body) {
  struct Start {
    static DWORD WINAPI Run(void* it) {
      (*static_cast<std::remove_reference_t<Body>*>(it))();
      return 0;
    }
  };
  const HANDLE thread = CreateThread(nullptr, 0, &Start::Run, &body, 0, nullptr);
  CHECK(thread != nullptr);
  const DWORD waited = WaitForSingleObject(thread, 20000);
  CloseHandle(thread);
  CHECK(waited == WAIT_OBJECT_0);
}

/// A control with a look into it.
class Control {
 public:
  Control() { CHECK(SUCCEEDED(com::CreateControl(com::kDtmActiveXControl, reinterpret_cast<void**>(object.Out())))); }
  UserCntrl& Inside() const {
    return static_cast<com::ControlObject*>(static_cast<com::Scriptable<com::IDtmActiveXControl>*>(object.Get()))
        ->Control();
  }
  /// What stands in the first field of the page of identification, without the blanks at its end.
  std::string Tag() const {
    std::string text(Inside().form.txtParameter(0).Text());
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
  }
  VARIANT_BOOL Init(TestManager& manager, const wchar_t* invokeId = L"7") const {
    VARIANT_BOOL attached = 7;
    CHECK(object->Init(Bstr(std::wstring_view(invokeId)).Get(), nullptr, manager.AsUnknown().Get(), &attached) == S_OK);
    return attached;
  }
  VARIANT_BOOL PrepareToRelease() const {
    VARIANT_BOOL done = 7;
    CHECK(object->PrepareToRelease(&done) == S_OK);
    return done;
  }
  /// A read that goes out; false where it fails.
  bool Read() const {
    return Sends([&] { Inside().Read(1); });
  }
  bool Write() const {
    return Sends([&] { Inside().Write(1, {"00", "01"}); });
  }

  ComPtr<com::IDtmActiveXControl> object;

 private:
  template <class Act>
  static bool Sends(Act&& act) {
    try {
      act();
      return true;
    } catch (const std::exception&) {
      return false;
    }
  }
};

/// The answer that puts `tag` into the field of the tag.
inline std::wstring Identification(std::string_view tag) {
  constexpr wchar_t kDigits[] = L"0123456789ABCDEF";
  std::wstring digits;
  for (const char c : tag) {
    digits += kDigits[(static_cast<unsigned char>(c) >> 4U) & 15U];
    digits += kDigits[static_cast<unsigned char>(c) & 15U];
  }
  while (digits.size() < 64) digits += L"20";
  return L"<A><P tag='TRDPVType' value='0000'/><P tag='PHYTag' value='" + digits + L"'/></A>";
}
constexpr LONG kIdentificationCode = 100;

/// One answer, as a manager gives it.
inline HRESULT Answer(com::IUpdateUI& receiver, std::wstring_view document, LONG code = kIdentificationCode) {
  const Bstr text(document);
  return receiver.UpdateUI(code, TextVariant(text));
}

}  // namespace htr60::client
