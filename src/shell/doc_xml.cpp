#include <array>
#include <string_view>

#include "shell/user_cntrl.h"
#include "text/xml_escape.h"

namespace htr60 {
namespace {

constexpr std::string_view kOpen = "<ViewData><ControlData";
constexpr std::string_view kClose = "/></ViewData>";
constexpr std::string_view kName = " Attribute";

}  // namespace

std::string UserCntrl::DocXML(std::span<const std::string_view, kAttributeCount> values) {
  std::size_t size = kOpen.size() + kClose.size();
  for (std::size_t i = 0; i < values.size(); ++i) {
    size += kName.size() + (i < 9 ? 1 : 2) + 3 + XmlEscapedSize(values[i]);
  }
  std::string document;
  document.reserve(size);
  document += kOpen;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const std::size_t number = i + 1;
    document += kName;
    if (number > 9) document += static_cast<char>('0' + number / 10);
    document += static_cast<char>('0' + number % 10);
    document += "=\"";
    AppendXmlEscaped(document, values[i]);
    document += '"';
  }
  document += kClose;
  return document;
}

}  // namespace htr60
