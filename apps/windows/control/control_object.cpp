#include "windows/control/control_object.h"

#include <array>
#include <string>
#include <string_view>

#include "windows/base/hand_out.h"
#include "windows/base/module.h"
#include "windows/base/server.h"
#include "windows/base/text.h"

namespace htr60::com {
namespace {

ControlObject& Self(IDispatch& self) {
  return static_cast<ControlObject&>(static_cast<Scriptable<IDtmActiveXControl>&>(self));
}

void Check(HRESULT result) {
  if (FAILED(result)) throw ComFailure{.result = result};
}

void CallInit(IDispatch& self, const Arguments& arguments, VARIANT& result) {
  const Bstr invokeId(std::wstring_view(arguments.Text(0)));
  const Bstr functionCall(std::wstring_view(arguments.Text(1)));
  VARIANT_BOOL attached = VARIANT_FALSE;
  Check(Self(self).Init(invokeId.Get(), functionCall.Get(), arguments.Object(2).Get(), &attached));
  PutFlag(result, attached != VARIANT_FALSE);
}

void CallPrepareToRelease(IDispatch& self, const Arguments&, VARIANT& result) {
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(Self(self).PrepareToRelease(&done));
  PutFlag(result, done != VARIANT_FALSE);
}

void CallDocXml(IDispatch&, const Arguments& arguments, VARIANT& result) {
  std::array<std::string, kAttributeCount> texts;
  std::array<std::string_view, kAttributeCount> values;
  for (std::size_t i = 0; i < kAttributeCount; ++i) {
    texts[i] = Utf8WithMarks(arguments.Text(i));
    values[i] = texts[i];
  }
  PutText(result, Utf16WithMarks(UserCntrl::DocXML(values)));
}

template <void (UserCntrl::*Factor)(std::string_view)>
void CallFactor(IDispatch& self, const Arguments& arguments, VARIANT&) {
  (Self(self).Control().*Factor)(Utf8WithMarks(arguments.Text(0)));
}

constexpr Member kMembers[] = {
    {L"Init", kInit, DISPATCH_METHOD, 3, &CallInit},
    {L"PrepareToRelease", kPrepareToRelease, DISPATCH_METHOD, 0, &CallPrepareToRelease},
    {L"DocXML", kDocXml, DISPATCH_METHOD, kAttributeCount, &CallDocXml},
    {L"GetFactor1Unit", kGetFactor1Unit, DISPATCH_METHOD, 1, &CallFactor<&UserCntrl::GetFactor1Unit>},
    {L"GetFactor2Unit", kGetFactor2Unit, DISPATCH_METHOD, 1, &CallFactor<&UserCntrl::GetFactor2Unit>},
};

HRESULT TypeInfoOf(const GUID& id, ITypeInfo** info) {
  *info = nullptr;
  ComPtr<ITypeLib> library;
  const HRESULT loaded = LoadTypeLibEx(ModuleFile().c_str(), REGKIND_NONE, library.Out());
  return FAILED(loaded) ? loaded : library->GetTypeInfoOfGuid(id, info);
}

}  // namespace

const ServedClass kServedClass{
    .id = kControlClass,
    .progId = L"HTR60.UserCntrl",
    .progIdVersion = L"HTR60.UserCntrl.1",
    .title = L"HTR60 operator interface",
    .isControl = true,
    .create = &CreateControl,
};

ControlObject::ControlObject()
    : host_(*static_cast<IDtmActiveXControl*>(this),
            {.begin = [this] { return BeginBox(); }, .end = [this] { EndBox(); }, .turned = [this] { Turned(); }}) {}

// A frame that lets go without a word: the window goes while there is something to show.
ControlObject::~ControlObject() { InPlaceDeactivate(); }

std::shared_ptr<view::ControlView> ControlObject::MakeView(HWND parent) {
  view::IViewHolder& holder = *this;
  return std::make_shared<view::ControlView>(Object(), holder, host_.Control(), host_.Presented(), parent);
}

void ControlObject::Turned() {
  if (const std::shared_ptr<view::ControlView> view = View()) view->Take();
}

Members ControlObject::ScriptMembers() const { return kMembers; }

HRESULT ControlObject::QueryInterface(REFIID id, void** object) {
  auto* const control = static_cast<IDtmActiveXControl*>(this);
  auto* const place = static_cast<IOleInPlaceObject*>(this);
  auto* const view = static_cast<IViewObject2*>(this);
  auto* const persistent = static_cast<IPersistStreamInit*>(this);
  return HandOut({{IID_IUnknown, control},
                  {IID_IDispatch, control},
                  {kDtmActiveXControl, control},
                  {kScriptedControl, control},
                  {IID_IOleObject, static_cast<IOleObject*>(this)},
                  {IID_IOleInPlaceObject, place},
                  {IID_IOleWindow, place},
                  {IID_IOleInPlaceActiveObject, static_cast<IOleInPlaceActiveObject*>(this)},
                  {IID_IOleControl, static_cast<IOleControl*>(this)},
                  {IID_IViewObject, view},
                  {IID_IViewObject2, view},
                  {IID_IPersistStreamInit, persistent},
                  {IID_IPersist, persistent},
                  {IID_IProvideClassInfo, static_cast<IProvideClassInfo*>(this)}},
                 id, object);
}

HRESULT ControlObject::Init(BSTR invokeId, BSTR functionCall, IUnknown* dtm, VARIANT_BOOL* attached) {
  return Entry(static_cast<IDtmActiveXControl*>(this), [&] {
    const bool done = host_.Init(TextOf(invokeId), TextOf(functionCall), ComPtr<IUnknown>(dtm));
    if (attached != nullptr) *attached = done ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
  });
}

HRESULT ControlObject::PrepareToRelease(VARIANT_BOOL* done) {
  return Entry(static_cast<IDtmActiveXControl*>(this), [&] {
    const bool released = host_.Control().PrepareToRelease();
    if (done != nullptr) *done = released ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
  });
}

HRESULT ControlObject::GetTypeInfoCount(UINT* count) {
  if (count == nullptr) return E_POINTER;
  *count = 1;
  return S_OK;
}

HRESULT ControlObject::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
  if (info == nullptr) return E_POINTER;
  *info = nullptr;
  if (index != 0) return DISP_E_BADINDEX;
  return Entry(nullptr, [&] { return TypeInfoOf(kScriptedControl, info); });
}

HRESULT ControlObject::GetClassInfo(ITypeInfo** info) {
  if (info == nullptr) return E_POINTER;
  return Entry(nullptr, [&] { return TypeInfoOf(kControlClass, info); });
}

HRESULT ControlObject::GetSizeMax(ULARGE_INTEGER* size) {
  if (size == nullptr) return E_POINTER;
  size->QuadPart = 0;
  return S_OK;
}

HRESULT CreateControl(REFIID id, void** object) noexcept {
  return Entry(nullptr, [&] {
    const auto control = ComPtr<IDtmActiveXControl>::Attach(new ControlObject);
    return control->QueryInterface(id, object);
  });
}

}  // namespace htr60::com
