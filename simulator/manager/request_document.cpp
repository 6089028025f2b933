#include "simulator/manager/request_document.h"

#include <charconv>
#include <limits>

#include "text/xml_reader.h"

namespace htr60::sim {
namespace {

class Reader final : public XmlElements {
 public:
  void OnStart(const char* name, const char* const* attributes) override;
  void OnEnd() override { --depth_; }

  RequestAttributes attributes;
  bool found = false;

 private:
  int depth_ = 0;
  bool viewData_ = false;
};

void Reader::OnStart(const char* name, const char* const* at) {
  constexpr std::string_view kPrefix = "Attribute";
  const std::string_view element = name;
  ++depth_;
  if (depth_ == 1) viewData_ = element == "ViewData";
  if (depth_ != 2 || !viewData_ || element != "ControlData" || found) return;
  found = true;
  for (; *at != nullptr; at += 2) {
    std::string_view key = at[0];
    if (!key.starts_with(kPrefix)) continue;
    key.remove_prefix(kPrefix.size());
    std::size_t number = 0;
    const auto end = std::from_chars(key.data(), key.data() + key.size(), number);
    const bool whole = end.ec == std::errc() && end.ptr == key.data() + key.size() && key.front() != '0';
    if (whole && number >= 1 && number <= kAttributes) attributes[number - 1] = at[1];
  }
}

}  // namespace

std::optional<RequestAttributes> ParseRequest(std::string_view document) {
  if (document.empty() || document.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
    return std::nullopt;
  }
  Reader reader;
  if (!XmlReader().Read(document, reader) || !reader.found) return std::nullopt;
  return reader.attributes;
}

}  // namespace htr60::sim
