#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "automate/driver.h"

namespace htr60::automation {

using Strings = std::vector<std::string>;

/// A tag of an answer and the texts that stand in controls once it is taken.
struct Filled {
  std::string tag;
  std::string value;
  std::vector<std::pair<std::string, std::string>> fields;
};
using Fills = std::vector<Filled>;

/// Drives the pages of one control: attached and connected, with its start-up over.
class PageDriver : public Driver {
 public:
  explicit PageDriver(const Json& create = Captured()) : Driver(create) {
    Init();
    Advance(2100);
    if (!create.contains("dtm")) Connect();
    Requests();
  }

  void AnswerFills(int code, const Fills& rows, const std::string& without = "") {
    Json pairs = Json::array();
    for (const Filled& row : rows) {
      if (row.tag != without) pairs.push_back(Json::array({row.tag, row.value}));
    }
    Ok({{"do", "answer"}, {"code", code}, {"tags", pairs}});
  }

  bool Visible(std::string_view control) { return Get(control).at("visible"); }
  bool Enabled(std::string_view control) { return Get(control).at("enabled"); }
  std::string Items(std::string_view list) { return Get(list).at("items").dump(); }
  void Force(std::string_view control) { Ok({{"do", "click"}, {"control", control}, {"force", true}}); }
  void SetList(std::string_view list, std::string_view text) {
    Ok({{"do", "choose"}, {"control", list}, {"text", text}, {"force", true}});
  }
  std::string Page() {
    const Json members = Ok({{"do", "members"}})["members"];
    return members.at("CurrentPage").get<std::string>() + " / " + members.at("SubPage").get<std::string>();
  }
  std::string Panel() { return Ok({{"do", "status"}})["panels"][3]["text"]; }

  /// What went out since the last look, each as "write 3: attribute, attribute", without the unused ones at the end.
  Strings Traffic() {
    Strings lines;
    for (const Json& request : Requests()) {
      std::string line = request.at("kind").get<std::string>() + " " + request.at("code").get<std::string>();
      Json attributes = request.at("attributes");
      while (!attributes.empty() && attributes.back() == "None") attributes.erase(attributes.size() - 1);
      const char* before = ": ";
      for (const Json& attribute : attributes) line += std::exchange(before, ", ") + attribute.get<std::string>();
      lines.push_back(line);
    }
    return lines;
  }
};

/// The answer fills all its fields; with one of its tags left out it fills those of the tags before, and no others.
inline void ExpectFillsInOrder(int code, const Fills& rows, const std::function<void(PageDriver&)>& prepare = nullptr) {
  const auto expect = [&](std::size_t missing) {
    SCOPED_TRACE(missing < rows.size() ? "without " + rows[missing].tag : "complete");
    PageDriver driver;
    if (prepare) prepare(driver);
    Fills expected = rows;
    for (std::size_t row = missing; row < rows.size(); ++row) {
      for (auto& [control, text] : expected[row].fields) text = driver.Text(control);
    }
    driver.AnswerFills(code, rows, missing < rows.size() ? rows[missing].tag : "");
    for (const Filled& row : expected) {
      for (const auto& [control, text] : row.fields) EXPECT_EQ(driver.Text(control), text) << control;
    }
  };
  for (std::size_t missing = 0; missing <= rows.size(); ++missing) expect(missing);
}

}  // namespace htr60::automation
