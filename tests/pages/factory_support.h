#pragma once

#include <bit>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "page_driver.h"

/// The way to the factory pages, and what a view shows there.
namespace htr60::automation {

inline constexpr const char* kAccessCode = "QK475";
inline constexpr int kDoorTab = 5;
/// Longer than a write, its re-read and the answer.
inline constexpr int kSettled = 5000;

inline void OpenDoor(PageDriver& driver) {
  driver.Activate("Factory");
  driver.Tab("SSTabFactory", kDoorTab);
}

inline void OpenMenu(PageDriver& driver) {
  OpenDoor(driver);
  driver.Type("txtPassword", kAccessCode);
  driver.Click("cmdFactory");
  driver.Requests();
}

inline void OpenFromMenu(PageDriver& driver, std::string_view button) {
  OpenMenu(driver);
  driver.Click(button);
  driver.Requests();
}

inline void WriteAndWait(PageDriver& driver, std::string_view button = "cmdWriteParameter") {
  driver.Click(button);
  driver.Advance(kSettled);
}

inline Json Screen(PageDriver& driver) { return driver.Ok({{"do", "screen"}}); }

/// The fields of the visible tab.
inline Json Rows(PageDriver& driver) { return Screen(driver).at("rows"); }

/// State and words of a field on the visible tab: "differs: device: 1, sent: 2"; empty where it is not to be seen.
inline std::string StateOf(PageDriver& driver, std::string_view control) {
  const Json rows = Rows(driver);
  for (const Json& row : rows) {
    if (row.at("control") != control) continue;
    const std::string words = row.at("words");
    return row.at("state").get<std::string>() + (words.empty() ? "" : ": " + words);
  }
  return {};
}

inline Json Simulated(PageDriver& driver, std::string_view name) {
  return driver.Ok({{"do", "simulator"}, {"get", Json::array({name})}})["values"][std::string(name)];
}

inline void Set(PageDriver& driver, const Json& settings) { driver.Ok({{"do", "simulator"}, {"set", settings}}); }

/// The nearest single in eight digits.
inline std::string Single(double value) {
  char text[16];
  std::snprintf(text, sizeof text, "%08X", std::bit_cast<std::uint32_t>(static_cast<float>(value)));
  return text;
}

inline std::string Parameter(int index) { return "txtParameter(" + std::to_string(index) + ")"; }

}  // namespace htr60::automation
