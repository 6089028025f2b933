#include "windows/control/in_place.h"

#include "windows/base/entry.h"
#include "windows/base/server.h"

namespace htr60::com {
namespace {

constexpr wchar_t kObjectName[] = L"HTR60";

}  // namespace

HRESULT InPlace::DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND, LPCRECT) {
  return Entry(&Object(), [&]() -> HRESULT {
    switch (verb) {
      case OLEIVERB_PRIMARY:
      case OLEIVERB_SHOW:
      case OLEIVERB_UIACTIVATE: {
        const HRESULT activated = Activate();
        return FAILED(activated) ? activated : ActivateUI();
      }
      case OLEIVERB_INPLACEACTIVATE:
        return Activate();
      case OLEIVERB_HIDE:
        if (view_ != nullptr) view_->Show(false);
        DeactivateUI();
        return S_OK;
      case OLEIVERB_DISCARDUNDOSTATE:
        return S_OK;
      default:
        return verb > 0 ? OLEOBJ_S_INVALIDVERB : E_NOTIMPL;
    }
  });
}

HRESULT InPlace::Close(DWORD save) {
  return Entry(&Object(), [&] {
    Deactivate();
    return OleObject::Close(save);
  });
}

HRESULT InPlace::Activate() {
  if (active_) {
    if (view_ != nullptr) view_->Show(true);
    return S_OK;
  }
  auto site = ComPtr<IOleInPlaceSite>::Of(Site(), IID_IOleInPlaceSite);
  if (!site) return E_FAIL;
  if (site->CanInPlaceActivate() != S_OK) return E_FAIL;
  HRESULT result = site->OnInPlaceActivate();
  if (FAILED(result)) return result;
  active_ = true;
  site_ = site;
  HWND parent = nullptr;
  RECT position{};
  RECT clip{};
  OLEINPLACEFRAMEINFO info{};
  info.cb = sizeof info;
  result = site->GetWindow(&parent);
  if (SUCCEEDED(result)) result = site->GetWindowContext(frame_.Out(), document_.Out(), &position, &clip, &info);
  if (info.haccel != nullptr) DestroyAcceleratorTable(info.haccel);
  if (FAILED(result) || parent == nullptr) {
    Deactivate();
    return FAILED(result) ? result : E_FAIL;
  }
  view_ = MakeView(parent);
  view_->Move(parent, position);
  TurnNow();
  if (view_ != nullptr) view_->Show(true);
  return S_OK;
}

HRESULT InPlace::ActivateUI() {
  if (uiActive_ || !active_) return active_ ? S_OK : E_FAIL;
  uiActive_ = true;
  const ComPtr<IOleInPlaceSite> site = site_;
  if (site) site->OnUIActivate();
  IOleInPlaceActiveObject* const self = this;
  if (frame_) frame_->SetActiveObject(self, kObjectName);
  if (document_) document_->SetActiveObject(self, kObjectName);
  if (frame_) frame_->SetBorderSpace(nullptr);
  if (view_ != nullptr && !view_->HasFocus()) view_->TakeFocus();
  return S_OK;
}

void InPlace::DeactivateUI() {
  if (!uiActive_) return;
  uiActive_ = false;
  if (frame_) frame_->SetActiveObject(nullptr, nullptr);
  if (document_) document_->SetActiveObject(nullptr, nullptr);
  const ComPtr<IOleInPlaceSite> site = site_;
  if (site) site->OnUIDeactivate(FALSE);
}

void InPlace::Deactivate() {
  if (!active_) return;
  DeactivateUI();
  active_ = false;
  if (view_ != nullptr) view_->Close();
  view_.reset();
  const ComPtr<IOleInPlaceSite> site = std::exchange(site_, {});
  frame_.Reset();
  document_.Reset();
  if (site) site->OnInPlaceDeactivate();
}

HRESULT InPlace::GetWindow(HWND* window) {
  if (window == nullptr) return E_POINTER;
  *window = view_ != nullptr ? view_->Handle() : nullptr;
  return *window != nullptr ? S_OK : E_FAIL;
}

HRESULT InPlace::InPlaceDeactivate() {
  return Entry(&Object(), [&] {
    Deactivate();
    return S_OK;
  });
}

HRESULT InPlace::UIDeactivate() {
  return Entry(&Object(), [&] {
    DeactivateUI();
    return S_OK;
  });
}

HRESULT InPlace::SetObjectRects(LPCRECT position, LPCRECT) {
  if (position == nullptr) return E_POINTER;
  return Entry(&Object(), [&] {
    HWND parent = nullptr;  // the frame may have moved the site
    if (view_ != nullptr && site_ && SUCCEEDED(site_->GetWindow(&parent)) && parent != nullptr) {
      view_->Move(parent, *position);
    }
    return S_OK;
  });
}

// The frame's own keys come first.
HRESULT InPlace::TranslateAccelerator(LPMSG message) {
  if (message == nullptr) return E_POINTER;
  return Entry(&Object(), [&]() -> HRESULT {
    if (!uiActive_ || view_ == nullptr) return S_FALSE;
    const auto site = ComPtr<IOleControlSite>::Of(Site(), IID_IOleControlSite);
    DWORD held = 0;
    if (GetKeyState(VK_SHIFT) < 0) held |= 1;
    if (GetKeyState(VK_CONTROL) < 0) held |= 2;
    if (GetKeyState(VK_MENU) < 0) held |= 4;
    if (site && site->TranslateAccelerator(message, held) == S_OK) return S_OK;
    const std::shared_ptr<view::ControlView> view = view_;
    return view != nullptr && view->TakeAccelerator(*message) ? S_OK : S_FALSE;
  });
}

void InPlace::FocusChanged(bool inside) {
  if (inside) ActivateUI();
  if (const auto site = ComPtr<IOleControlSite>::Of(Site(), IID_IOleControlSite)) site->OnFocus(inside ? TRUE : FALSE);
}

HWND InPlace::BeginBox() {
  if (const ComPtr<IOleInPlaceFrame> frame = frame_) frame->EnableModeless(FALSE);
  return FrameWindow();
}

void InPlace::EndBox() {
  if (const ComPtr<IOleInPlaceFrame> frame = frame_) frame->EnableModeless(TRUE);
}

// ---- for a frame that draws it by itself

HRESULT InPlace::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC context, LPCRECTL bounds, LPCRECTL,
                      BOOL(WINAPI*)(ULONG_PTR), ULONG_PTR) {
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  if (context == nullptr || bounds == nullptr) return E_POINTER;
  return Entry(&Object(), [&] {
    RECT rect{bounds->left, bounds->top, bounds->right, bounds->bottom};
    const int saved = SaveDC(context);
    if (view_ != nullptr) {
      OffsetViewportOrgEx(context, rect.left, rect.top, nullptr);
      SendMessageW(view_->Handle(), WM_PRINT, reinterpret_cast<WPARAM>(context),
                   PRF_CLIENT | PRF_CHILDREN | PRF_NONCLIENT | PRF_OWNED);
    } else {
      FillRect(context, &rect, GetSysColorBrush(COLOR_BTNFACE));
      SetBkMode(context, TRANSPARENT);
      SetTextColor(context, GetSysColor(COLOR_BTNTEXT));
      DrawTextW(context, kServedClass.title, -1, &rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    }
    RestoreDC(context, saved);
    return S_OK;
  });
}

HRESULT InPlace::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE** set) {
  if (set != nullptr) *set = nullptr;
  return S_FALSE;
}

HRESULT InPlace::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
  return Entry(&Object(), [&] {
    viewSink_ = ComPtr<IAdviseSink>(sink);
    viewAspects_ = aspects;
    viewFlags_ = flags;
    return S_OK;
  });
}

HRESULT InPlace::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) {
  if (aspects != nullptr) *aspects = viewAspects_;
  if (flags != nullptr) *flags = viewFlags_;
  if (sink != nullptr) {
    *sink = viewSink_.Get();
    if (*sink != nullptr) (*sink)->AddRef();
  }
  return S_OK;
}

}  // namespace htr60::com
