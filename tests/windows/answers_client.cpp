// What the receiver does with answers, whoever brings them and when.

#include <array>
#include <string>
#include <vector>

#include "control_bench.h"
#include "windows/control/receiver.h"

namespace htr60::client {
namespace {

/// A control with its manager.
struct Attached {
  Attached() { CHECK(control.Init(manager) == VARIANT_TRUE && manager.receiver); }
  com::IUpdateUI& Receiver() const { return *manager.receiver.Get(); }

  TestManager manager;
  Control control;
};

void HandledInTheCall() {
  const Attached a;
  CHECK(Answer(a.Receiver(), Identification("A1")) == S_OK);
  CHECK(a.control.Tag() == "A1");
  CHECK(Answer(a.Receiver(), L"<DTMInfo state='Online' />", 9000) == S_OK);
  CHECK(a.control.Inside().ConnectionState == kConnected);
}

void InsideARequest() {
  Attached a;
  std::string seen;
  a.manager.inside = [&] {
    Answer(a.Receiver(), Identification("A1"));
    seen = a.control.Tag();
  };
  CHECK(a.control.Read());
  CHECK(seen.empty());
  CHECK(a.control.Tag().empty());
  HandleAll();
  CHECK(a.control.Tag() == "A1");
}

void InsideARequestThatPumps() {
  Attached a;
  std::string seen;
  a.manager.inside = [&] {
    Answer(a.Receiver(), Identification("A1"));
    HandleAll();
    seen = a.control.Tag();
  };
  CHECK(a.control.Read());
  CHECK(seen.empty());
  HandleAll();
  CHECK(a.control.Tag() == "A1");
}

void InsideARegistration() {
  Control control;
  TestManager manager;
  manager.inside = [&] { Answer(*manager.receiver.Get(), Identification("A1")); };
  CHECK(control.Init(manager) == VARIANT_TRUE);
  CHECK(control.Tag().empty());
  HandleAll();
  CHECK(control.Tag() == "A1");
}

/// The tags that come to be seen, message by message.
std::vector<std::string> Course(const Control& control) {
  std::vector<std::string> course;
  do {
    const std::string tag = control.Tag();
    if (!tag.empty() && (course.empty() || course.back() != tag)) course.push_back(tag);
  } while (HandleOne());
  return course;
}

void OrderIsKept() {
  Attached a;
  a.manager.inside = [&] {
    Answer(a.Receiver(), Identification("A1"));
    Answer(a.Receiver(), Identification("A2"));
    OnThread([&] { Answer(a.Receiver(), Identification("A3")); });
  };
  CHECK(a.control.Read());
  // One that comes after these, at a time when nothing is under way, waits behind them.
  Answer(a.Receiver(), Identification("A4"));
  CHECK(a.control.Tag().empty());
  CHECK((Course(a.control) == std::vector<std::string>{"A1", "A2", "A3", "A4"}));
  Answer(a.Receiver(), Identification("A5"));
  CHECK(a.control.Tag() == "A5");
}

void FromAnotherThread() {
  Attached a;
  HRESULT result = E_FAIL;
  OnThread([&] { result = Answer(a.Receiver(), Identification("A1")); });
  CHECK(result == S_OK);
  CHECK(a.control.Tag().empty());
  HandleAll();
  CHECK(a.control.Tag() == "A1");
  // Many at once, from several.
  OnThread([&] {
    for (int i = 0; i < 100; ++i) Answer(a.Receiver(), Identification("T" + std::to_string(i)));
  });
  const std::vector<std::string> course = Course(a.control);
  CHECK(course.size() == 101 && course.back() == "T99");
}

/// `tag` as a document by each kind of variant, handed to `give`; each has to be seen.
template <class Give>
void ByEachKind(const Control& control, Give&& give) {
  int number = 0;
  const auto next = [&] { return "K" + std::to_string(++number); };
  const auto seen = [&](const char* kind, HRESULT result) {
    CHECK_FOR(kind, result == S_OK);
    CHECK_FOR(kind, control.Tag() == "K" + std::to_string(number));
  };
  {
    const Bstr text{std::wstring_view(Identification(next()))};
    seen("a text", give(TextVariant(text)));
  }
  {
    const Bstr text{std::wstring_view(Identification(next()))};
    BSTR variable = text.Get();
    VARIANT reference;
    VariantInit(&reference);
    reference.vt = VT_BYREF | VT_BSTR;
    reference.pbstrVal = &variable;
    seen("a variable of text", give(reference));
    CHECK(variable == text.Get() && com::TextOf(variable) == Identification("K2"));
  }
  {
    const Bstr text{std::wstring_view(Identification(next()))};
    VARIANT variable = TextVariant(text);
    VARIANT reference;
    VariantInit(&reference);
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &variable;
    seen("a variable of any kind", give(reference));
    CHECK(variable.vt == VT_BSTR && variable.bstrVal == text.Get());
  }
}

void KindsByTable() {
  const Attached a;
  ByEachKind(a.control, [&](const VARIANT& answer) { return a.Receiver().UpdateUI(kIdentificationCode, answer); });
}

/// By name, with the code as any kind of number.
HRESULT ByName(IDispatch& receiver, const VARIANT& code, const VARIANT& answer) {
  auto* name = const_cast<wchar_t*>(L"UpdateUI");
  DISPID id = 0;
  if (FAILED(receiver.GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id))) return DISP_E_UNKNOWNNAME;
  VARIANT reversed[] = {answer, code};
  DISPPARAMS params{reversed, nullptr, 2, 0};
  return receiver.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, nullptr, nullptr, nullptr);
}

void KindsByName() {
  const Attached a;
  VARIANT number;
  VariantInit(&number);
  number.vt = VT_I4;
  number.lVal = kIdentificationCode;
  VARIANT small;
  VariantInit(&small);
  small.vt = VT_I2;
  small.iVal = kIdentificationCode;
  VARIANT real;
  VariantInit(&real);
  real.vt = VT_R8;
  real.dblVal = kIdentificationCode;
  const Bstr digits(std::wstring_view(L"100"));
  const VARIANT text = TextVariant(digits);
  VARIANT reference;
  VariantInit(&reference);
  reference.vt = VT_BYREF | VT_VARIANT;
  reference.pvarVal = &number;
  for (const VARIANT& code : {number, small, real, text, reference}) {
    ByEachKind(a.control, [&](const VARIANT& answer) { return ByName(a.Receiver(), code, answer); });
  }
}

void WhatIsNoText() {
  const Attached a;
  Answer(a.Receiver(), Identification("A1"));
  VARIANT variant;
  VariantInit(&variant);
  variant.vt = VT_NULL;
  CHECK(a.Receiver().UpdateUI(kIdentificationCode, variant) == DISP_E_TYPEMISMATCH);
  variant.vt = VT_UNKNOWN;
  variant.punkVal = &a.Receiver();
  CHECK(FAILED(a.Receiver().UpdateUI(kIdentificationCode, variant)));
  variant.vt = VT_ERROR;
  variant.scode = DISP_E_PARAMNOTFOUND;
  CHECK(FAILED(a.Receiver().UpdateUI(kIdentificationCode, variant)));
  variant.vt = 0x7FF;
  CHECK(FAILED(a.Receiver().UpdateUI(kIdentificationCode, variant)));
  VariantInit(&variant);
  CHECK(a.Receiver().UpdateUI(kIdentificationCode, variant) == S_OK);  // the empty text
  variant.vt = VT_BSTR;
  variant.bstrVal = nullptr;
  CHECK(a.Receiver().UpdateUI(kIdentificationCode, variant) == S_OK);
  CHECK(a.control.Tag() == "A1");
}

void NoCharacters() {
  const Attached a;
  Answer(a.Receiver(), Identification("A1"));
  const std::wstring good = Identification("A2");
  const std::size_t end = good.find(L"</A>");
  for (const std::wstring_view piece :
       {std::wstring_view(L"\xD800", 1), std::wstring_view(L"\xDC00", 1), std::wstring_view(L"\xDC00\xD800", 2),
        std::wstring_view(L"\xD800<B/>", 5), std::wstring_view(L"\0", 1), std::wstring_view(L"\0</A>", 5)}) {
    std::wstring document = good;
    document.insert(end, piece);
    CHECK(Answer(a.Receiver(), document) == S_OK);
    CHECK(Answer(a.Receiver(), good + std::wstring(piece)) == S_OK);
    CHECK(a.control.Tag() == "A1");
  }
  std::wstring pair = good;
  pair.insert(end, L"\xD834\xDD1E");
  Answer(a.Receiver(), pair);
  CHECK(a.control.Tag() == "A2");
}

void WaitingIsBounded() {
  Attached a;
  int taken = 0;
  HRESULT last = S_OK;
  a.manager.inside = [&] {
    while (SUCCEEDED(last = Answer(a.Receiver(), Identification("W" + std::to_string(taken))))) ++taken;
  };
  CHECK(a.control.Read());
  CHECK(taken == 1024);
  CHECK(last == E_OUTOFMEMORY);
  // One more when one has gone.
  CHECK(Answer(a.Receiver(), Identification("X")) == E_OUTOFMEMORY);
  while (FAILED(Answer(a.Receiver(), Identification("X")))) CHECK(HandleOne());
  CHECK(Answer(a.Receiver(), Identification("Y")) == E_OUTOFMEMORY);
  HandleAll();
  CHECK(a.control.Tag() == "X");
  // Large ones count by their size.
  taken = 0;
  last = S_OK;
  const std::wstring large(std::size_t{12} << 20U, L'x');
  a.manager.inside = [&] {
    while (SUCCEEDED(last = Answer(a.Receiver(), large))) ++taken;
  };
  CHECK(a.control.Read());
  CHECK(taken == 2);
  CHECK(last == E_OUTOFMEMORY);
  HandleAll();
  CHECK(a.control.Tag() == "X");
}

void AfterTheControl() {
  ComPtr<com::IUpdateUI> receiver;
  TestManager manager;
  {
    const Control control;
    CHECK(control.Init(manager) == VARIANT_TRUE);
    receiver = manager.receiver;
    // These never come to be handled.
    OnThread([&] { Answer(*receiver.Get(), Identification("A1")); });
  }
  HandleAll();
  CHECK(Answer(*receiver.Get(), Identification("A2")) == CO_E_OBJNOTCONNECTED);
  HRESULT result = S_OK;
  OnThread([&] { result = Answer(*receiver.Get(), Identification("A3")); });
  CHECK(result == CO_E_OBJNOTCONNECTED);
  HandleAll();
  const LONG before = com::LiveObjects();
  manager.receiver.Reset();
  CHECK(com::LiveObjects() == before);
  receiver.Reset();
  CHECK(com::LiveObjects() == before - 1);
}

void TwoSideBySide() {
  const Attached a;
  const Attached b;
  CHECK(&a.Receiver() != &b.Receiver());
  Answer(a.Receiver(), Identification("A1"));
  CHECK(a.control.Tag() == "A1");
  CHECK(b.control.Tag().empty());
  OnThread([&] {
    Answer(b.Receiver(), Identification("B1"));
    Answer(a.Receiver(), Identification("A2"));
  });
  HandleAll();
  CHECK(a.control.Tag() == "A2");
  CHECK(b.control.Tag() == "B1");
}

void OneInACallOfTheOther() {
  Attached a;
  const Attached b;
  a.manager.inside = [&] { Answer(b.Receiver(), Identification("B1")); };
  CHECK(a.control.Read());
  CHECK(b.control.Tag() == "B1");  // at once: nothing of its own is under way
  CHECK(a.control.Tag().empty());
}

void Identity() {
  const Attached a;
  const auto unknown = ComPtr<IUnknown>::Of(&a.Receiver(), IID_IUnknown);
  const auto dispatch = ComPtr<IDispatch>::Of(&a.Receiver(), IID_IDispatch);
  CHECK(unknown && dispatch);
  CHECK(ComPtr<IUnknown>::Of(dispatch.Get(), IID_IUnknown).Get() == unknown.Get());
  CHECK(unknown.Get() != ComPtr<IUnknown>::Of(a.control.object.Get(), IID_IUnknown).Get());
  CHECK(!ComPtr<IUnknown>::Of(&a.Receiver(), com::kDtmCore));
  CHECK(!ComPtr<IUnknown>::Of(&a.Receiver(), IID_IOleObject));
  auto* name = const_cast<wchar_t*>(L"Init");
  DISPID id = 7;
  CHECK(dispatch->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id) == DISP_E_UNKNOWNNAME);
  CHECK(id == DISPID_UNKNOWN);
  DISPPARAMS none{nullptr, nullptr, 0, 0};
  CHECK(dispatch->Invoke(com::kUpdate, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr) ==
        DISP_E_BADPARAMCOUNT);
  CHECK(dispatch->Invoke(2, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr) == DISP_E_MEMBERNOTFOUND);
}

void BetweenThreads() {
  const Attached a;
  IStream* stream = nullptr;
  CHECK(CoMarshalInterThreadInterfaceInStream(com::kUpdateUI, &a.Receiver(), &stream) == S_OK);
  void* found = nullptr;
  HRESULT answered = E_FAIL;
  OnThread([&] {
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    if (SUCCEEDED(CoGetInterfaceAndReleaseStream(stream, com::kUpdateUI, &found)) && found != nullptr) {
      auto* const receiver = static_cast<com::IUpdateUI*>(found);
      answered = Answer(*receiver, Identification("A1"));
      receiver->Release();
    }
    CoUninitialize();
  });
  CHECK(found == &a.Receiver());
  CHECK(answered == S_OK);
  HandleAll();
  CHECK(a.control.Tag() == "A1");
}

void BetweenProcesses() {
  const Attached a;
  for (const DWORD context : {MSHCTX_LOCAL, MSHCTX_NOSHAREDMEM, MSHCTX_DIFFERENTMACHINE}) {
    ComPtr<IStream> stream;
    CHECK(CreateStreamOnHGlobal(nullptr, TRUE, stream.Out()) == S_OK);
    CHECK(FAILED(CoMarshalInterface(stream.Get(), com::kUpdateUI, &a.Receiver(), context, nullptr, MSHLFLAGS_NORMAL)));
  }
}

constexpr Case kCases[] = {
    {"an answer is handled in its call", &HandledInTheCall},
    {"an answer inside a request waits", &InsideARequest},
    {"an answer inside a request that pumps messages waits", &InsideARequestThatPumps},
    {"an answer inside the registration waits", &InsideARegistration},
    {"answers keep their order", &OrderIsKept},
    {"answers from another thread wait", &FromAnotherThread},
    {"texts by value and by reference, by table", &KindsByTable},
    {"texts by value and by reference, by name", &KindsByName},
    {"what is no text", &WhatIsNoText},
    {"halves of pairs and NUL fill nothing", &NoCharacters},
    {"only so many wait", &WaitingIsBounded},
    {"answers after the control", &AfterTheControl},
    {"two controls never meet", &TwoSideBySide},
    {"an answer to one inside a call of the other", &OneInACallOfTheOther},
    {"the receiver is an object of its own", &Identity},
    {"between threads it is itself", &BetweenThreads},
    {"to another process it does not go", &BetweenProcesses},
};

}  // namespace
}  // namespace htr60::client

int main() {
  const htr60::client::Apartment apartment;
  return htr60::client::RunCases(htr60::client::kCases);
}
