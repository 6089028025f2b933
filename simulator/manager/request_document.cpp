#include "simulator/manager/request_document.h"

#include <expat.h>

#include <charconv>
#include <limits>
#include <memory>

namespace htr60::sim {
namespace {

struct Reader {
  XML_Parser parser = nullptr;
  RequestAttributes attributes;
  int depth = 0;
  bool viewData = false;
  bool found = false;
};

void Start(void* user, const XML_Char* name, const XML_Char** attributes) {
  constexpr std::string_view kPrefix = "Attribute";
  auto& reader = *static_cast<Reader*>(user);
  const std::string_view element = name;
  ++reader.depth;
  if (reader.depth == 1) reader.viewData = element == "ViewData";
  if (reader.depth != 2 || !reader.viewData || element != "ControlData" || reader.found) return;
  reader.found = true;
  for (const XML_Char** at = attributes; *at != nullptr; at += 2) {
    std::string_view key = at[0];
    if (!key.starts_with(kPrefix)) continue;
    key.remove_prefix(kPrefix.size());
    std::size_t number = 0;
    const auto end = std::from_chars(key.data(), key.data() + key.size(), number);
    const bool whole = end.ec == std::errc() && end.ptr == key.data() + key.size() && key.front() != '0';
    if (whole && number >= 1 && number <= kAttributes) reader.attributes[number - 1] = at[1];
  }
}

void End(void* user, const XML_Char* /*name*/) { --static_cast<Reader*>(user)->depth; }

// A document type could bring entities with it; no request has one.
void Doctype(void* user, const XML_Char* /*name*/, const XML_Char* /*system*/, const XML_Char* /*publicId*/,
             int /*internal*/) {
  XML_StopParser(static_cast<Reader*>(user)->parser, XML_FALSE);
}

}  // namespace

std::optional<RequestAttributes> ParseRequest(std::string_view document) {
  if (document.empty() || document.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
    return std::nullopt;
  }
  const std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> parser(XML_ParserCreate("UTF-8"),
                                                                                             &XML_ParserFree);
  if (parser == nullptr) return std::nullopt;
  Reader reader;
  reader.parser = parser.get();
  XML_SetUserData(parser.get(), &reader);
  XML_SetElementHandler(parser.get(), &Start, &End);
  XML_SetStartDoctypeDeclHandler(parser.get(), &Doctype);
  const auto status = XML_Parse(parser.get(), document.data(), static_cast<int>(document.size()), XML_TRUE);
  if (status != XML_STATUS_OK || !reader.found) return std::nullopt;
  return reader.attributes;
}

}  // namespace htr60::sim
