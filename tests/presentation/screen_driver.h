#pragma once

#include <string>
#include <string_view>

#include "pages/page_driver.h"

namespace htr60::automation {

/// Looks at what every view shows.
class ScreenDriver : public PageDriver {
 public:
  using PageDriver::PageDriver;

  Json Screen() { return Ok({{"do", "screen"}}); }
  std::string Of(const char* member) { return Screen().at(member); }
  std::string Title() { return Of("title"); }
  std::string DataLine() { return Of("dataLine"); }
  std::string Footer() { return Of("footer"); }
  std::string Message() { return Of("message"); }
  std::string Health() { return Screen().at("health").at("text"); }

  /// The row of a control; null where it is not to be seen.
  Json Row(std::string_view control) { return Find("rows", control); }
  Json Button(std::string_view control) { return Find("buttons", control); }
  std::string State(std::string_view control) { return Row(control).at("state"); }
  std::string Words(std::string_view control) { return Row(control).at("words"); }
  std::string Hint(std::string_view control) { return Row(control).at("hint"); }

  void Write() { Click("cmdWriteParameter"); }

 private:
  Json Find(const char* list, std::string_view control) {
    const Json screen = Screen();
    for (const Json& item : screen.at(list)) {
      if (item.at("control") == control) return item;
    }
    return nullptr;
  }
};

}  // namespace htr60::automation
