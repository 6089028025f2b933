#pragma once

#include "windows/win.h"

namespace htr60::com {

// The interfaces between frame, control and DTM manager. All are dual: by the table of functions, and by name.
// Arguments' texts are UTF-16; a null text is empty.

/// What the frame calls of the control.
struct IDtmActiveXControl : IDispatch {
  virtual HRESULT WINAPI Init(BSTR invokeId, BSTR functionCall, IUnknown* dtm, VARIANT_BOOL* attached) = 0;
  virtual HRESULT WINAPI PrepareToRelease(VARIANT_BOOL* done) = 0;
};

/// What the DTM manager calls of the receiver that `RegisterUI` hands it. `answer` holds an XML text.
struct IUpdateUI : IDispatch {
  virtual HRESULT WINAPI UpdateUI(LONG responseCode, VARIANT answer) = 0;
};

/// The DTM manager's core.
struct IDtmCore : IDispatch {
  virtual HRESULT WINAPI RegisterUI(BSTR className, BSTR invokeId, IUnknown* receiver, LONG number,
                                    VARIANT_BOOL* flag) = 0;
  virtual HRESULT WINAPI UnregisterUI(BSTR invokeId, VARIANT_BOOL number, VARIANT_BOOL* flag) = 0;
};

/// The DTM manager's channel to the instrument.
struct IDtmParameterAccess : IDispatch {
  virtual HRESULT WINAPI WriteRequest(BSTR code, BSTR document, BSTR* result) = 0;
  virtual HRESULT WINAPI ReadRequest(BSTR code, BSTR document, BSTR* result) = 0;
};

/// Control and receiver share it: the control answers it as the former, the receiver as the latter.
inline constexpr IID kDtmActiveXControl{0x036D1486, 0x387B, 0x11D4, {0x86, 0xE1, 0x00, 0xE0, 0x98, 0x72, 0x70, 0xB9}};
inline constexpr IID kUpdateUI = kDtmActiveXControl;
inline constexpr IID kDtmCore{0x70EBB744, 0x50D3, 0x41DE, {0xA1, 0x32, 0x2E, 0x4A, 0x96, 0x7D, 0x6B, 0x4A}};
inline constexpr IID kDtmParameterAccess{0x7ADC007B, 0x5AAB, 0x4478, {0xA5, 0x1D, 0xCA, 0xED, 0x3B, 0x97, 0x3C, 0x29}};

// Our own, as the type library has them.
inline constexpr IID kScriptedControl{0xB41690C4, 0x4A31, 0x42F3, {0x89, 0x77, 0xFB, 0x59, 0x26, 0xEC, 0x79, 0x3C}};
inline constexpr CLSID kControlClass{0xD4B21F7A, 0x67D0, 0x49EA, {0xB8, 0x05, 0x78, 0x9D, 0x98, 0x6A, 0x7B, 0xCD}};
inline constexpr CLSID kManagerClass{0x4369DE05, 0xC3FE, 0x41D4, {0x90, 0x51, 0x45, 0xA8, 0xF2, 0x99, 0x0A, 0xB5}};

// Numbers of the members, for calls by name.
inline constexpr DISPID kInit = 1;
inline constexpr DISPID kPrepareToRelease = 2;
inline constexpr DISPID kDocXml = 3;
inline constexpr DISPID kGetFactor1Unit = 4;
inline constexpr DISPID kGetFactor2Unit = 5;
inline constexpr DISPID kUpdate = 1;
inline constexpr DISPID kRegisterUI = 1;
inline constexpr DISPID kUnregisterUI = 2;
inline constexpr DISPID kWriteRequest = 3;
inline constexpr DISPID kReadRequest = 4;

}  // namespace htr60::com
