#include <expat.h>

#include <random>

#include "text/failure.h"
#include "text/xml_reader.h"

namespace htr60 {

struct XmlReader::Parser {
  Parser() : parser(XML_ParserCreate("UTF-8")), salt(std::random_device()() | 1U) {
    if (parser == nullptr) throw RuntimeFailure("no XML parser");
  }
  ~Parser() { XML_ParserFree(parser); }
  Parser(const Parser&) = delete;
  Parser& operator=(const Parser&) = delete;

  static void OnStart(void* self, const char* name, const char** attributes);
  static void OnEnd(void* self, const char*);
  static void OnDoctype(void* self, const char*, const char*, const char*, int);
  bool Parse(std::string_view document) const;

  XML_Parser parser;
  unsigned long salt;  // of the parser's own tables: a fresh one for each document is a system call for each
  XmlElements* elements = nullptr;
};

// Nothing may be thrown through the parser.
void XmlReader::Parser::OnStart(void* self, const char* name, const char** attributes) {
  const auto& reader = *static_cast<Parser*>(self);
  try {
    reader.elements->OnStart(name, attributes);
  } catch (...) {
    XML_StopParser(reader.parser, XML_FALSE);
  }
}

void XmlReader::Parser::OnEnd(void* self, const char*) {
  const auto& reader = *static_cast<Parser*>(self);
  try {
    reader.elements->OnEnd();
  } catch (...) {
    XML_StopParser(reader.parser, XML_FALSE);
  }
}

void XmlReader::Parser::OnDoctype(void* self, const char*, const char*, const char*, int) {
  XML_StopParser(static_cast<Parser*>(self)->parser, XML_FALSE);
}

bool XmlReader::Parser::Parse(std::string_view document) const {
  // As large as they may be: the parser begins a long text anew with each piece.
  constexpr std::size_t kPiece = std::size_t{1} << 30U;
  while (document.size() > kPiece) {
    if (XML_Parse(parser, document.data(), static_cast<int>(kPiece), XML_FALSE) != XML_STATUS_OK) return false;
    document.remove_prefix(kPiece);
  }
  return XML_Parse(parser, document.data(), static_cast<int>(document.size()), XML_TRUE) == XML_STATUS_OK;
}

XmlReader::XmlReader() : parser_(std::make_unique<Parser>()) {}
XmlReader::~XmlReader() = default;

bool XmlReader::Read(std::string_view document, XmlElements& elements) {
  const XML_Parser parser = parser_->parser;
  parser_->elements = &elements;
  // A reset keeps the parser's memory and drops its handlers; the encoding given here overrides a declared one.
  XML_ParserReset(parser, "UTF-8");
  XML_SetHashSalt(parser, parser_->salt);
  XML_SetUserData(parser, parser_.get());
  XML_SetElementHandler(parser, &Parser::OnStart, &Parser::OnEnd);
  XML_SetStartDoctypeDeclHandler(parser, &Parser::OnDoctype);
  return parser_->Parse(document);
}

}  // namespace htr60
