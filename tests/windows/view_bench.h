#pragma once

#include <optional>
#include <string>
#include <vector>

#include "control_bench.h"
#include "library.h"
#include "window_lists.h"
#include "windows/base/hand_out.h"
#include "windows/base/text.h"
#include "windows/view/child.h"
#include "windows/view/page_window.h"

namespace htr60::client {

/// What a frame gives a control: a window, and the interfaces of a place in it. It writes down what is called.
class Site final : public IOleClientSite, public IOleInPlaceSite, public IOleInPlaceFrame, public IOleControlSite {
 public:
  Site() {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.lpfnWndProc = &DefWindowProcW;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = L"TestFrame";
    RegisterClassExW(&description);
    window = CreateWindowExW(0, L"TestFrame", L"frame", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0, 0, 1120, 760, nullptr,
                             nullptr, GetModuleHandleW(nullptr), nullptr);
    CHECK(window != nullptr);
    ShowWindow(window, SW_SHOW);
  }
  virtual ~Site() { DestroyWindow(window); }
  Site(const Site&) = delete;
  Site& operator=(const Site&) = delete;

  HWND window = nullptr;
  RECT place{0, 0, 1100, 720};
  std::string calls;  ///< names, with a blank behind each
  bool takesKeys = false;

  HRESULT WINAPI QueryInterface(REFIID id, void** object) override {
    auto* const client = static_cast<IOleClientSite*>(this);
    auto* const inPlace = static_cast<IOleInPlaceSite*>(this);
    auto* const frame = static_cast<IOleInPlaceFrame*>(this);
    return com::HandOut({{IID_IUnknown, client},
                         {IID_IOleClientSite, client},
                         {IID_IOleInPlaceSite, inPlace},
                         {IID_IOleWindow, inPlace},
                         {IID_IOleInPlaceFrame, frame},
                         {IID_IOleInPlaceUIWindow, frame},
                         {IID_IOleControlSite, static_cast<IOleControlSite*>(this)}},
                        id, object);
  }
  ULONG WINAPI AddRef() override { return static_cast<ULONG>(++references_); }
  ULONG WINAPI Release() override { return static_cast<ULONG>(--references_); }
  LONG References() const { return references_; }

  HRESULT WINAPI SaveObject() override { return E_NOTIMPL; }
  HRESULT WINAPI GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
  HRESULT WINAPI GetContainer(IOleContainer** container) override {
    *container = nullptr;
    return E_NOINTERFACE;
  }
  HRESULT WINAPI ShowObject() override { return S_OK; }
  HRESULT WINAPI OnShowWindow(BOOL) override { return S_OK; }
  HRESULT WINAPI RequestNewObjectLayout() override { return E_NOTIMPL; }

  HRESULT WINAPI GetWindow(HWND* it) override {
    *it = window;
    return S_OK;
  }
  HRESULT WINAPI ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
  HRESULT WINAPI CanInPlaceActivate() override { return Note("CanInPlaceActivate"); }
  HRESULT WINAPI OnInPlaceActivate() override { return Note("OnInPlaceActivate"); }
  HRESULT WINAPI OnUIActivate() override { return Note("OnUIActivate"); }
  HRESULT WINAPI GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT position,
                                  LPRECT clip, LPOLEINPLACEFRAMEINFO) override {
    *frame = this;
    AddRef();
    *document = nullptr;
    *position = *clip = place;
    return Note("GetWindowContext");
  }
  HRESULT WINAPI Scroll(SIZE) override { return E_NOTIMPL; }
  HRESULT WINAPI OnUIDeactivate(BOOL) override { return Note("OnUIDeactivate"); }
  HRESULT WINAPI OnInPlaceDeactivate() override { return Note("OnInPlaceDeactivate"); }
  HRESULT WINAPI DiscardUndoState() override { return S_OK; }
  HRESULT WINAPI DeactivateAndUndo() override { return S_OK; }
  HRESULT WINAPI OnPosRectChange(LPCRECT) override { return S_OK; }

  HRESULT WINAPI GetBorder(LPRECT) override { return E_NOTIMPL; }
  HRESULT WINAPI RequestBorderSpace(LPCBORDERWIDTHS) override { return E_NOTIMPL; }
  HRESULT WINAPI SetBorderSpace(LPCBORDERWIDTHS) override { return S_OK; }
  HRESULT WINAPI SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) override {
    return Note(object != nullptr ? "SetActiveObject" : "NoActiveObject");
  }
  HRESULT WINAPI InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
  HRESULT WINAPI SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
  HRESULT WINAPI RemoveMenus(HMENU) override { return E_NOTIMPL; }
  HRESULT WINAPI SetStatusText(LPCOLESTR) override { return S_OK; }
  HRESULT WINAPI EnableModeless(BOOL enable) override { return Note(enable != FALSE ? "Modeless" : "Modal"); }
  HRESULT WINAPI TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

  HRESULT WINAPI OnControlInfoChanged() override { return S_OK; }
  HRESULT WINAPI LockInPlaceActive(BOOL) override { return S_OK; }
  HRESULT WINAPI GetExtendedControl(IDispatch** control) override {
    *control = nullptr;
    return E_NOTIMPL;
  }
  HRESULT WINAPI TransformCoords(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
  HRESULT WINAPI TranslateAccelerator(LPMSG, DWORD) override {
    Note("KeyOfFrame");
    return takesKeys ? S_OK : S_FALSE;
  }
  HRESULT WINAPI OnFocus(BOOL) override { return S_OK; }
  HRESULT WINAPI ShowPropertyFrame() override { return E_NOTIMPL; }

 private:
  HRESULT Note(const char* name) {
    calls += name;
    calls += ' ';
    return S_OK;
  }

  LONG references_ = 1;
};

/// Handles what waits for so long, timers too.
inline void Pump(DWORD milliseconds) {
  const ULONGLONG end = GetTickCount64() + milliseconds;
  for (;;) {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
    const ULONGLONG now = GetTickCount64();
    if (now >= end) return;
    MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
  }
}

/// Handles what comes until nothing has come for longer than an answer takes.
inline void Settle() {
  do {
    Pump(0);
  } while (MsgWaitForMultipleObjects(0, nullptr, FALSE, 25, QS_ALLINPUT) == WAIT_OBJECT_0);
}

/// A control with a window in a frame of the test's own.
class Shown {
 public:
  Shown() {
    CHECK(Ole()->SetClientSite(&site) == S_OK);
    CHECK(Verb(OLEIVERB_INPLACEACTIVATE) == S_OK);
  }
  ~Shown() {
    Ole()->Close(OLECLOSE_NOSAVE);
    Ole()->SetClientSite(nullptr);
  }
  Shown(const Shown&) = delete;
  Shown& operator=(const Shown&) = delete;

  com::ControlObject& Object() const {
    return static_cast<com::ControlObject&>(
        *static_cast<com::Scriptable<com::IDtmActiveXControl>*>(control.object.Get()));
  }
  presentation::Presentation& Presented() const { return Object().Presented(); }
  ComPtr<IOleObject> Ole() const { return ComPtr<IOleObject>::Of(control.object.Get(), IID_IOleObject); }
  HRESULT Verb(LONG verb) const { return Ole()->DoVerb(verb, nullptr, &site, 0, site.window, &site.place); }
  HWND Root() const {
    HWND window = nullptr;
    ComPtr<IOleInPlaceObject>::Of(control.object.Get(), IID_IOleInPlaceObject)->GetWindow(&window);
    return window;
  }
  HWND Page() const { return FindWindowExW(Root(), nullptr, L"Htr60Page", nullptr); }

  mutable Site site;
  Control control;
};

inline const Library* theManager;  ///< the DLL of the simulated one; lives in main

/// A simulated manager with ready-made settings.
inline ComPtr<IDispatch> ManagerWith(std::wstring_view preset) {
  auto made = theManager->Create<IDispatch>(com::kManagerClass, IID_IDispatch);
  const auto call = [&](const wchar_t* name, std::wstring_view argument) {
    auto* asked = const_cast<wchar_t*>(name);
    DISPID id = DISPID_UNKNOWN;
    CHECK(made->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_NEUTRAL, &id) == S_OK);
    const Bstr text(argument);
    VARIANT variant = TextVariant(text);
    DISPPARAMS params{&variant, nullptr, 1, 0};
    CHECK(made->Invoke(id, IID_NULL, LOCALE_NEUTRAL, DISPATCH_METHOD, &params, nullptr, nullptr, nullptr) == S_OK);
  };
  call(L"UsePreset", preset);
  call(L"Set", LR"({"timing": {"answerMs": 0}})");
  return made;
}

/// Attached, with the identification on its page.
inline void Start(const Shown& shown, std::wstring_view preset = L"pressure") {
  const auto its = ManagerWith(preset);
  VARIANT_BOOL attached = VARIANT_FALSE;
  CHECK(shown.control.object->Init(nullptr, nullptr, its.Get(), &attached) == S_OK && attached == VARIANT_TRUE);
  shown.control.Inside().TimerDue(static_cast<int>(TimerId::TimerInit));
  for (const ULONGLONG end = GetTickCount64() + 10000; shown.control.Tag().empty(); Pump(20)) {
    CHECK(GetTickCount64() < end);
  }
  Pump(50);
}

inline void Open(const Shown& shown, std::string_view node) {
  const auto& nodes = shown.control.Inside().form.treeView.Nodes();
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    if (nodes[i].text != node) continue;
    shown.Presented().Activate(std::string(node), static_cast<int>(i) + 1);
    Settle();
    return;
  }
  CHECK_FOR(std::string(node), false);
}

/// What stands behind the window of the page.
inline const view::PageWindow& PageOf(const Shown& shown) {
  auto* window = reinterpret_cast<view::Window*>(GetWindowLongPtrW(shown.Page(), GWLP_USERDATA));
  CHECK(window != nullptr);
  return *static_cast<view::PageWindow*>(window);
}

inline view::Child* FieldWindow(HWND page, ControlId control) {
  for (const HWND window : Below(page)) {
    view::Child* child = view::Child::Of(window);
    if (child != nullptr && child->Spot() == presentation::Spot(control) && child->IsShown()) return child;
  }
  return nullptr;
}

inline int CALLBACK AddText(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM list) {
  if (record->iType != EMR_EXTTEXTOUTW) return 1;
  const auto& text = *reinterpret_cast<const EMREXTTEXTOUTW*>(record);
  const auto* words = reinterpret_cast<const wchar_t*>(reinterpret_cast<const char*>(record) + text.emrtext.offString);
  reinterpret_cast<std::wstring*>(list)->append(words, text.emrtext.nChars).push_back(L'\n');
  return 1;
}

/// The texts that a window paints itself, one a line.
inline std::wstring Painted(HWND window) {
  const HDC recorder = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
  SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(recorder), PRF_CLIENT);
  const HENHMETAFILE file = CloseEnhMetaFile(recorder);
  std::wstring texts;
  EnumEnhMetaFile(nullptr, file, &AddText, &texts, nullptr);
  DeleteEnhMetaFile(file);
  return texts;
}

}  // namespace htr60::client
