#pragma once

#include <memory>

#include "windows/base/dispatch.h"
#include "windows/base/entry.h"
#include "windows/control/control_host.h"
#include "windows/control/identity.h"
#include "windows/control/in_place.h"

namespace htr60::com {

/// The control as frames and scripts know it. Everything is called on the thread that made it.
class ControlObject final : public Scriptable<IDtmActiveXControl>,
                            public InPlace,
                            public IPersistStreamInit,
                            public IProvideClassInfo,
                            private Counted {
 public:
  ControlObject();

  HRESULT WINAPI QueryInterface(REFIID id, void** object) override;
  ULONG WINAPI AddRef() override { return CountUp(); }
  ULONG WINAPI Release() override { return CountDown(); }

  HRESULT WINAPI Init(BSTR invokeId, BSTR functionCall, IUnknown* dtm, VARIANT_BOOL* attached) override;
  HRESULT WINAPI PrepareToRelease(VARIANT_BOOL* done) override;

  /// What scripts call beside these two.
  UserCntrl& Control() { return host_.Control(); }
  presentation::Presentation& Presented() { return host_.Presented(); }

  HRESULT WINAPI GetTypeInfoCount(UINT* count) override;
  HRESULT WINAPI GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
  HRESULT WINAPI GetClassInfo(ITypeInfo** info) override;

  // Nothing is kept between two runs: the device holds every value.
  HRESULT WINAPI GetClassID(CLSID* id) override { return GetUserClassID(id); }
  HRESULT WINAPI IsDirty() override { return S_FALSE; }
  HRESULT WINAPI Load(IStream*) override { return S_OK; }
  HRESULT WINAPI Save(IStream*, BOOL) override { return S_OK; }
  HRESULT WINAPI GetSizeMax(ULARGE_INTEGER* size) override;
  HRESULT WINAPI InitNew() override { return S_OK; }

 private:
  ~ControlObject() override;
  Members ScriptMembers() const override;
  IUnknown& Object() override { return *static_cast<IDtmActiveXControl*>(this); }
  std::shared_ptr<view::ControlView> MakeView(HWND parent) override;
  void TurnNow() override { host_.TurnNow(); }
  void Turned();

  ControlHost host_;
};

/// For the class factory.
HRESULT CreateControl(REFIID id, void** object) noexcept;

}  // namespace htr60::com
