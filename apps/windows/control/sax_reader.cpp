#include <msxml2.h>

#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "text/failure.h"
#include "text/xml_reader.h"
#include "windows/base/com_ptr.h"
#include "windows/base/hand_out.h"
#include "windows/base/text.h"
#include "windows/control/xml_prolog.h"
#include "windows/win.h"

namespace htr60 {
namespace {

using com::ComPtr;

// The libraries of the cross compiler do not know them all.
constexpr IID kSaxReader{0xA4F96ED0, 0xF829, 0x476E, {0x81, 0xC0, 0xCD, 0xC7, 0xBD, 0x2A, 0x08, 0x02}};
constexpr IID kContentHandler{0x1545CDFA, 0x9E4E, 0x4497, {0xA8, 0xA4, 0x2B, 0xF7, 0xD0, 0x11, 0x2C, 0x44}};
constexpr CLSID kReader60{0x88D96A0C, 0xF192, 0x11D4, {0xA6, 0x5F, 0x00, 0x40, 0x96, 0x32, 0x51, 0xE5}};
constexpr CLSID kReader30{0x3124C396, 0xFB13, 0x4836, {0xA6, 0xAD, 0x13, 0x17, 0xF1, 0x71, 0x36, 0x88}};

/// COM for as long as the reader lives, whatever the thread has made of it before.
class Apartment {
 public:
  Apartment() : entered_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
  ~Apartment() {
    if (entered_) CoUninitialize();
  }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;

 private:
  bool entered_;
};

/// Tells the elements on, in UTF-8. Lives as long as the reader, which counts it in vain.
class Handler final : public ISAXContentHandler {
 public:
  void Begin(XmlElements& elements) {
    elements_ = &elements;
    depth_ = 0;
  }

  HRESULT WINAPI QueryInterface(REFIID id, void** object) override {
    return com::HandOut({{IID_IUnknown, this}, {kContentHandler, this}}, id, object);
  }
  ULONG WINAPI AddRef() override { return 2; }
  ULONG WINAPI Release() override { return 1; }

  HRESULT WINAPI startElement(const wchar_t*, int, const wchar_t*, int, const wchar_t* name, int nameLength,
                              ISAXAttributes* attributes) override;
  HRESULT WINAPI endElement(const wchar_t*, int, const wchar_t*, int, const wchar_t*, int) override;

  HRESULT WINAPI putDocumentLocator(ISAXLocator*) override { return S_OK; }
  HRESULT WINAPI startDocument() override { return S_OK; }
  HRESULT WINAPI endDocument() override { return S_OK; }
  HRESULT WINAPI startPrefixMapping(const wchar_t*, int, const wchar_t*, int) override { return S_OK; }
  HRESULT WINAPI endPrefixMapping(const wchar_t*, int) override { return S_OK; }
  HRESULT WINAPI characters(const wchar_t*, int) override { return S_OK; }
  HRESULT WINAPI ignorableWhitespace(const wchar_t*, int) override { return S_OK; }
  HRESULT WINAPI processingInstruction(const wchar_t*, int, const wchar_t*, int) override { return S_OK; }
  HRESULT WINAPI skippedEntity(const wchar_t*, int) override { return S_OK; }

 private:
  // That of the reader in its newest version; older ones and the emulation have others or none.
  static constexpr int kMostLevels = 256;

  bool Put(const wchar_t* text, int length);

  XmlElements* elements_ = nullptr;
  int depth_ = 0;
  std::string texts_;                  // each with a NUL behind it
  std::vector<std::size_t> starts_;    // of each text
  std::vector<const char*> pointers_;  // made when all texts stand
};

bool Handler::Put(const wchar_t* text, int length) {
  if (length < 0) return false;
  const std::optional<std::string> utf8 = com::Utf8({text, static_cast<std::size_t>(length)});
  if (!utf8) return false;
  starts_.push_back(texts_.size());
  texts_.append(*utf8).push_back('\0');
  return true;
}

HRESULT Handler::startElement(const wchar_t*, int, const wchar_t*, int, const wchar_t* name, int nameLength,
                              ISAXAttributes* attributes) {
  try {
    if (++depth_ > kMostLevels) return E_FAIL;
    texts_.clear();
    starts_.clear();
    pointers_.clear();
    int count = 0;
    if (!Put(name, nameLength) || FAILED(attributes->getLength(&count))) return E_FAIL;
    for (int i = 0; i < count; ++i) {
      const wchar_t* text = nullptr;
      int length = 0;
      if (FAILED(attributes->getQName(i, &text, &length)) || !Put(text, length)) return E_FAIL;
      if (FAILED(attributes->getValue(i, &text, &length)) || !Put(text, length)) return E_FAIL;
    }
    for (const std::size_t start : starts_) pointers_.push_back(texts_.data() + start);
    pointers_.push_back(nullptr);
    elements_->OnStart(pointers_.front(), pointers_.data() + 1);
    return S_OK;
  } catch (...) {
    return E_ABORT;
  }
}

HRESULT Handler::endElement(const wchar_t*, int, const wchar_t*, int, const wchar_t*, int) {
  try {
    --depth_;
    elements_->OnEnd();
    return S_OK;
  } catch (...) {
    return E_ABORT;
  }
}

}  // namespace

struct XmlReader::Parser {
  Parser();
  ~Parser() {
    if (reader) reader->putContentHandler(nullptr);
  }
  Parser(const Parser&) = delete;
  Parser& operator=(const Parser&) = delete;

  Apartment apartment;  // left last
  Handler handler;
  ComPtr<ISAXXMLReader> reader;
};

XmlReader::Parser::Parser() {
  for (const CLSID& id : {kReader60, kReader30}) {
    if (SUCCEEDED(
            CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, kSaxReader, reinterpret_cast<void**>(reader.Out())))) {
      break;
    }
  }
  if (!reader || FAILED(reader->putContentHandler(&handler))) throw RuntimeFailure("no XML parser");
  // Where the reader does not know of it, the look at the prolog is all there is.
  reader->putFeature(L"prohibit-dtd", VARIANT_TRUE);
}

XmlReader::XmlReader() : parser_(std::make_unique<Parser>()) {}
XmlReader::~XmlReader() = default;

bool XmlReader::Read(std::string_view document, XmlElements& elements) {
  // The reader stops at a NUL and would take what stands before it for the whole.
  if (document.empty() || document.find('\0') != std::string_view::npos) return false;
  if (document.size() > static_cast<std::size_t>(std::numeric_limits<int>::max() / 4)) return false;
  std::optional<std::wstring> text = com::Utf16(document);
  if (!text || !com::PrepareProlog(*text)) return false;

  const com::Bstr input{std::wstring_view(*text)};
  VARIANT variant;
  VariantInit(&variant);
  variant.vt = VT_BSTR;
  variant.bstrVal = input.Get();
  parser_->handler.Begin(elements);
  return SUCCEEDED(parser_->reader->parse(variant));
}

}  // namespace htr60
