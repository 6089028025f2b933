#pragma once

#include <memory>

#include "presentation/presentation.h"
#include "windows/base/com_ptr.h"
#include "windows/control/ole_object.h"
#include "windows/view/control_view.h"

namespace htr60::com {

/// The control in its frame's window: activated, focused, resized, let go. A window lives only while it is active.
class InPlace : public OleObject,
                public IOleInPlaceObject,
                public IOleInPlaceActiveObject,
                public IOleControl,
                public IViewObject2,
                protected view::IViewHolder {
 public:
  HRESULT WINAPI DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent, LPCRECT rect) override;
  HRESULT WINAPI Close(DWORD save) override;

  // Of both in-place interfaces.
  HRESULT WINAPI GetWindow(HWND* window) override;
  HRESULT WINAPI ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }

  HRESULT WINAPI InPlaceDeactivate() override;
  HRESULT WINAPI UIDeactivate() override;
  HRESULT WINAPI SetObjectRects(LPCRECT position, LPCRECT clip) override;
  HRESULT WINAPI ReactivateAndUndo() override { return E_NOTIMPL; }

  HRESULT WINAPI TranslateAccelerator(LPMSG message) override;
  HRESULT WINAPI OnFrameWindowActivate(BOOL) override { return S_OK; }
  HRESULT WINAPI OnDocWindowActivate(BOOL) override { return S_OK; }
  HRESULT WINAPI ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) override { return S_OK; }
  HRESULT WINAPI EnableModeless(BOOL) override { return S_OK; }

  HRESULT WINAPI GetControlInfo(CONTROLINFO*) override { return E_NOTIMPL; }
  HRESULT WINAPI OnMnemonic(MSG*) override { return S_OK; }
  HRESULT WINAPI OnAmbientPropertyChange(DISPID) override { return S_OK; }
  HRESULT WINAPI FreezeEvents(BOOL) override { return S_OK; }

  HRESULT WINAPI Draw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* target, HDC targetContext,
                      HDC context, LPCRECTL bounds, LPCRECTL windowBounds, BOOL(WINAPI* goesOn)(ULONG_PTR),
                      ULONG_PTR word) override;
  HRESULT WINAPI GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE** set) override;
  HRESULT WINAPI Freeze(DWORD, LONG, void*, DWORD*) override { return E_NOTIMPL; }
  HRESULT WINAPI Unfreeze(DWORD) override { return E_NOTIMPL; }
  HRESULT WINAPI SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
  HRESULT WINAPI GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
  HRESULT WINAPI GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL extent) override {
    return OleObject::GetExtent(aspect, extent);
  }
  using OleObject::GetExtent;

 protected:
  /// Whole and on its own, for the entries of all these interfaces.
  virtual IUnknown& Object() = 0;
  virtual std::shared_ptr<view::ControlView> MakeView(HWND parent) = 0;
  const std::shared_ptr<view::ControlView>& View() const { return view_; }

  void FocusChanged(bool inside) override;
  HWND BeginBox() override;
  void EndBox() override;

 private:
  HRESULT Activate();
  HRESULT ActivateUI();
  void DeactivateUI();
  void Deactivate();

  ComPtr<IOleInPlaceSite> site_;
  ComPtr<IOleInPlaceFrame> frame_;
  ComPtr<IOleInPlaceUIWindow> document_;
  ComPtr<IAdviseSink> viewSink_;
  DWORD viewAspects_ = 0;
  DWORD viewFlags_ = 0;
  std::shared_ptr<view::ControlView> view_;
  bool active_ = false;
  bool uiActive_ = false;
};

}  // namespace htr60::com
