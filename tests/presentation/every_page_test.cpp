#include <set>
#include <tuple>

#include "screen_driver.h"

// Every page that can be reached without a code, in each type and with both separators, on a device that answers: what
// is shown there is read, meant as it stands, and can be told from the rest.
namespace htr60::automation {
namespace {

/// Longer than a read with its answer, and than the slowest live interval.
constexpr int kRead = 16'000;

class EveryPage : public testing::TestWithParam<std::tuple<const char*, const char*>> {
 protected:
  EveryPage()
      : d_(Driver::Simulated({{"decimalSeparator", std::get<1>(GetParam())},
                              {"device", {{"primaryValueType", std::get<0>(GetParam())}}}})) {}

  char Other() const { return *std::get<1>(GetParam()) == '.' ? ',' : '.'; }

  void CheckRow(const Json& row) {
    const std::string where = row.at("control").get<std::string>() + " " + row.at("name").get<std::string>();
    const std::string kind = row.at("kind");
    ++rows_;
    const std::string state = row.at("state");
    EXPECT_EQ(row.at("hint"), "") << where << ": the device's own text";
    EXPECT_TRUE(state.empty() || state == "as read") << where << ": " << state;
    EXPECT_TRUE(kind == "msg" || kind == "fixed" || row.at("name") != "") << where;
    if (kind == "num" || kind == "value") {
      EXPECT_EQ(row.at("text").get<std::string>().find(Other()), std::string::npos) << where << ": " << row.at("text");
    }
  }

  void CheckLetters(const Json& screen) {
    std::set<std::string> letters;
    for (const char* list : {"groups", "buttons"}) {
      for (const Json& item : screen.at(list)) {
        const std::string letter = item.at("mnemonic");
        EXPECT_TRUE(letter.empty() || letters.insert(letter).second) << letter;
      }
    }
    for (const char* own : {"B", "S", "W"}) EXPECT_EQ(letters.count(own), 1U) << own;
  }

  Json Look() {
    d_.Advance(kRead);
    Json screen = d_.Screen();
    ++screens_;
    EXPECT_NE(screen.at("purpose"), "");
    EXPECT_EQ(screen.at("footer"), "");
    EXPECT_EQ(screen.at("message"), "");
    EXPECT_EQ(screen.at("revertable"), 0);
    const std::string line = screen.at("dataLine");
    EXPECT_TRUE(line.empty() || line.rfind("Read ", 0) == 0 || line.rfind("As read ", 0) == 0) << line;
    CheckLetters(screen);
    for (const Json& row : screen.at("rows")) CheckRow(row);
    return screen;
  }

  // What the open buttons of a tab lead to, and back.
  void OpenAll(const Json& screen) {
    for (const Json& row : screen.at("rows")) {
      if (row.at("kind") != "open" || row.at("enabled") == false || row.at("control") == "cmdFactory") continue;
      const testing::ScopedTrace trace(__FILE__, __LINE__, row.at("caption").get<std::string>());
      d_.Click(row.at("control").get<std::string>());
      if (!opened_.insert(d_.Title() + d_.Text("cmbPVType")).second) {
        d_.Click("cmdBack");
        continue;
      }
      LookAtTabs();
      d_.Click("cmdBack");
    }
  }

  void LookAtTabs() {
    const Json screen = Look();
    OpenAll(screen);
    for (const Json& strip : screen.at("tabs")) {
      for (std::size_t tab = 1; tab < strip.at("captions").size(); ++tab) {
        const std::string caption = strip.at("captions")[tab];
        const testing::ScopedTrace trace(__FILE__, __LINE__, caption);
        d_.Tab(strip.at("control").get<std::string>(), static_cast<int>(tab));
        OpenAll(Look());
      }
    }
  }

  ScreenDriver d_;
  std::set<std::string> opened_;
  int screens_ = 0;
  int rows_ = 0;
};

TEST_P(EveryPage, ShowsWhatTheDeviceSaysAndNothingElse) {
  d_.Advance(kRead);
  std::vector<std::string> nodes;
  const Json tree = d_.Ok({{"do", "tree"}});
  for (const Json& node : tree.at("nodes")) nodes.push_back(node.at("text"));
  for (const std::string& node : nodes) {
    SCOPED_TRACE(node);
    d_.Activate(node);
    if (d_.Screen().at("frame").is_null()) continue;  // a heading
    LookAtTabs();
  }
  EXPECT_GT(screens_, 50);
  EXPECT_GT(rows_, 250);
  EXPECT_EQ(d_.Shown().size(), 0U) << "nothing asked or warned";
}

INSTANTIATE_TEST_SUITE_P(TypesAndSeparators, EveryPage,
                         testing::Combine(testing::Values("Pressure", "Flow", "Level", "Density"),
                                          testing::Values(".", ",")),
                         [](const testing::TestParamInfo<std::tuple<const char*, const char*>>& one) {
                           return std::string(std::get<0>(one.param)) +
                                  (*std::get<1>(one.param) == '.' ? "Point" : "Comma");
                         });

}  // namespace
}  // namespace htr60::automation
