// Live fields followed over time, through the door of scripts.
#include "observe/trend.h"

#include <gtest/gtest.h>

#include <sstream>

#include "automate/driver.h"
#include "automate/virtual_host.h"
#include "form/control_names.h"

namespace htr60::automation {
namespace {

constexpr const char* kAiOut = "lbDeviceView(36)";
constexpr const char* kAiIn = "lbDeviceView(40)";

class TrendDriver : public Driver {
 public:
  explicit TrendDriver(Json settings = Json::object()) : Driver(Simulated(std::move(settings))) {
    Init();
    Advance(3000);
  }
  Json Trend(Json command = Json::object()) {
    command["do"] = "trend";
    return Ok(command);
  }
  void OpenView(const char* node = "AI 1 View") {
    Activate(node);
    Advance(100);
  }
  /// Numbers of the points of each curve, "3+2".
  std::string Curves(const Json& trend) {
    std::string counts;
    for (const Json& plot : trend.at("plots")) {
      for (const Json& curve : plot.at("curves")) {
        counts += (counts.empty() ? "" : "+") + std::to_string(curve.at("points").size());
      }
    }
    return counts;
  }
};

TEST(TrendTest, AValueSimulatedInABlockAppears) {
  TrendDriver driver;
  driver.OpenView();
  driver.Trend({{"add", {kAiOut}}, {"window", 5}});
  driver.Advance(40'000);
  driver.Activate("Analog Input 1");
  driver.Advance(200);
  driver.Tab("SSTabAI", 4);
  driver.Advance(200);
  // 12.5, "Good", simulation on: as the page writes it.
  driver.Ok({{"do", "simulator"}, {"set", {{"device", {{"parameters", {{"ai1.sim", "804148000001"}}}}}}}});
  driver.OpenView();
  driver.Advance(40'000);
  const Json trend = driver.Trend();
  const Json& field = trend.at("fields").at(0);
  EXPECT_EQ(field.at("name"), "AI 1 View, Output, Value");
  EXPECT_EQ(field.at("state"), "live");
  EXPECT_EQ(field.at("reading").at("value"), "12.5");
  EXPECT_EQ(field.at("reading").at("unit"), "kPa");
  double low = 1e9;
  double high = -1e9;
  for (const Json& curve : trend.at("plots").at(0).at("curves")) {
    for (const Json& point : curve.at("points")) {
      low = std::min(low, point.at(1).get<double>());
      high = std::max(high, point.at(1).get<double>());
    }
  }
  EXPECT_EQ(low, 10);
  EXPECT_EQ(high, 12.5);
}

TEST(TrendTest, BeginsWithTheValueThatStandsAtTheTimeOfItsAnswer) {
  TrendDriver driver;
  driver.Activate("AI 1 View");
  driver.Advance(40);
  driver.Refused({{"do", "trend"}, {"add", {kAiOut}}});  // nothing has answered
  driver.Advance(7'000);
  const Json trend = driver.Trend({{"add", {kAiOut}}});
  const Json& field = trend.at("fields").at(0);
  EXPECT_EQ(field.at("state"), "live");
  EXPECT_EQ(field.at("samples"), 1);
  EXPECT_EQ(field.at("reading").at("atMs"), 3'050) << "50 ms behind the read, however long ago";
  EXPECT_EQ(field.at("reading").at("value"), "10");
  EXPECT_EQ(field.at("reading").at("status").get<std::string>().substr(0, 4), "Good");
  // The view of another block shows its own value in the same field.
  driver.Activate("AI 2 View");
  driver.Advance(10);
  driver.Trend({{"clear", true}});
  EXPECT_EQ(driver.Trend({{"add", {kAiOut}}}).at("fields").at(0).at("samples"), 0) << "it still shows the other's";
  driver.Advance(100);
  EXPECT_EQ(driver.Trend().at("fields").at(0).at("reading").at("value"), "20") << "the pressure at sensor 1";
}

TEST(TrendTest, ANumberThatMayHaveBeenTypedIsNoValueOfTheInstrument) {
  TrendDriver driver;
  driver.Activate("Analog Input 1");
  driver.Advance(100);
  driver.Ok({{"do", "tab"}, {"control", "SSTabAI"}, {"index", 5}});
  driver.Advance(1'000);
  driver.Type("txtParameter(125)", "99");
  EXPECT_EQ(driver.Trend({{"add", {"txtParameter(125)"}}}).at("fields").at(0).at("samples"), 0);
}

TEST(TrendTest, ABadValueIsAGapAndAGoodOneGoesOnBehindIt) {
  TrendDriver driver;
  driver.OpenView();
  driver.Trend({{"add", {kAiIn}}, {"window", 5}});
  driver.Advance(46'000);
  driver.Ok({{"do", "simulator"}, {"fault", {{"kind", "boardFailure"}, {"forMs", 30'000}}}});
  driver.Advance(30'000);
  driver.Advance(46'000);
  const Json trend = driver.Trend({{"csv", true}});
  EXPECT_EQ(driver.Curves(trend), "4+3");
  EXPECT_EQ(trend.at("fields").at(0).at("samples"), 9);
  const std::string csv = trend.at("csv");
  EXPECT_NE(csv.find(",Bad"), std::string::npos) << "the file tells of them: " << csv;
}

TEST(TrendTest, AMissingAnswerIsAGap) {
  TrendDriver driver;
  driver.OpenView();
  driver.Trend({{"add", {kAiIn}}, {"window", 5}});
  driver.Advance(46'000);
  driver.Ok({{"do", "simulator"}, {"fault", {{"kind", "noAnswer"}, {"codes", {27}}, {"count", 2}}}});
  driver.Advance(90'000);
  EXPECT_EQ(driver.Curves(driver.Trend()), "8") << "three intervals are none yet";
  driver.Ok({{"do", "simulator"}, {"fault", {{"kind", "noAnswer"}, {"codes", {27}}, {"count", 3}}}});
  driver.Advance(75'000);
  EXPECT_EQ(driver.Curves(driver.Trend()), "8+2");
}

TEST(TrendTest, WhatNoPagePollsAnyMoreHasEndedAndIsNotFlat) {
  TrendDriver driver;
  driver.OpenView();
  driver.Trend({{"add", {kAiOut}}, {"window", 5}});
  driver.Advance(46'000);
  EXPECT_EQ(driver.Trend().at("fields").at(0).at("state"), "live");
  // The views of the blocks share their fields: what they show of another block is none of it.
  driver.OpenView("AI 2 View");
  driver.Advance(60'000);
  const Json trend = driver.Trend();
  EXPECT_EQ(trend.at("fields").at(0).at("state"), "ended");
  EXPECT_EQ(trend.at("fields").at(0).at("samples"), 4);
  EXPECT_EQ(trend.at("plots").at(0).at("texts"), Json::array({"ended 00:00:48"}));
  const Json& points = trend.at("plots").at(0).at("curves").at(0).at("points");
  EXPECT_LT(points.back().at(0).get<double>(), trend.at("toMs").get<double>() - 50'000);
  driver.OpenView();
  driver.Advance(20'000);
  EXPECT_EQ(driver.Trend().at("fields").at(0).at("state"), "live");
  EXPECT_EQ(driver.Curves(driver.Trend()), "4+2") << "with a gap for the time in between";
}

TEST(TrendTest, AnAxisForEachUnit) {
  TrendDriver driver;
  driver.Activate("Observe");
  driver.Advance(100);
  driver.Trend({{"add", {"lbDeviceView(21)", "lbDeviceView(3)", "lbDeviceView(14)"}}});
  driver.Advance(16'000);
  const Json trend = driver.Trend();
  ASSERT_EQ(trend.at("plots").size(), 2U);
  EXPECT_EQ(trend.at("plots").at(0).at("unit"), "°C");
  EXPECT_EQ(trend.at("plots").at(0).at("fields"), Json::array({0}));
  EXPECT_EQ(trend.at("plots").at(1).at("unit"), "");
  EXPECT_EQ(trend.at("plots").at(1).at("fields"), Json::array({1, 2}));
  EXPECT_EQ(trend.at("fields").at(2).at("reading").at("value"), "10") << "the number in \"PV: 10.000\"";
}

TEST(TrendTest, ShowsTheLimitsOfTheBlockOnceTheyWereRead) {
  TrendDriver driver;
  driver.OpenView("AI 2 View");
  driver.Trend({{"add", {kAiOut}}});
  driver.Advance(16'000);
  EXPECT_EQ(driver.Trend().at("plots").at(0).at("limits").size(), 0U) << "nobody has read them";
  driver.Ok({{"do", "operation"}, {"name", "SensorTab"}, {"index", 0}});  // any other read changes nothing
  driver.Activate("Analog Input 1");
  driver.Advance(100);
  driver.Tab("SSTabAI", 2);
  driver.Advance(200);
  driver.OpenView("AI 2 View");
  driver.Advance(16'000);
  EXPECT_EQ(driver.Trend().at("plots").at(0).at("limits").size(), 0U) << "those of another block are none of it";
  driver.Activate("Analog Input 2");
  driver.Advance(100);
  driver.Tab("SSTabAI", 2);
  driver.Advance(200);
  driver.OpenView("AI 2 View");
  driver.Advance(16'000);
  const Json limits = driver.Trend().at("plots").at(0).at("limits");
  ASSERT_EQ(limits.size(), 4U);
  // 110, 105, -5 and -10 % of 37.4 kPa.
  const double kExpected[] = {41.14, 39.27, -1.87, -3.74};
  for (std::size_t i = 0; i < 4; ++i) EXPECT_NEAR(limits.at(i).get<double>(), kExpected[i], 1e-5);
}

TEST(TrendTest, CursorWindowAndPause) {
  TrendDriver driver(Json{{"process", {{"noise", 50}}}});
  driver.OpenView();
  driver.Trend({{"add", {kAiOut}}, {"window", 1}});
  driver.Advance(200'000);
  const Json now = driver.Trend();
  EXPECT_EQ(driver.Curves(now), "4") << "of one minute";
  const Json point = now.at("plots").at(0).at("curves").at(0).at("points").at(1);
  const auto at = point.at(0).get<std::int64_t>();
  Json reading = driver.Trend({{"cursor", at + 3000}}).at("fields").at(0).at("reading");
  EXPECT_EQ(reading.at("atMs"), at);
  EXPECT_EQ(std::stod(reading.at("value").get<std::string>()), point.at(1).get<double>());
  EXPECT_EQ(driver.Trend({{"cursor", 0}}).at("fields").at(0).at("reading"), nullptr);
  driver.Trend({{"cursor", nullptr}, {"pause", true}});
  driver.Advance(100'000);
  const Json held = driver.Trend();
  EXPECT_EQ(held.at("toMs"), now.at("toMs"));
  EXPECT_EQ(held.at("plots"), now.at("plots"));
  EXPECT_GT(driver.Trend({{"pause", false}, {"window", 60}}).at("fields").at(0).at("samples").get<int>(), 15);
  driver.Refused({{"do", "trend"}, {"window", 2}});
}

/// The fields of a line of a table with quotes.
std::vector<std::string> Split(const std::string& line, char separator) {
  std::vector<std::string> fields(1);
  bool quoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '"') {
      if (quoted && i + 1 < line.size() && line[i + 1] == '"')
        fields.back() += line[i++];
      else
        quoted = !quoted;
    } else if (line[i] == separator && !quoted) {
      fields.emplace_back();
    } else if (line[i] != '\r') {
      fields.back() += line[i];
    }
  }
  return fields;
}

TEST(TrendTest, TheTableReadsBackAsWhatIsSeen) {
  for (const char separator : {'.', ','}) {
    TrendDriver driver(Json{{"decimalSeparator", std::string(1, separator)}, {"process", {{"noise", 50}}}});
    driver.OpenView();
    driver.Trend({{"add", {kAiOut, kAiIn}}, {"window", 1}});
    driver.Advance(120'000);
    const Json trend = driver.Trend({{"csv", true}});
    std::istringstream lines(trend.at("csv").get<std::string>());
    std::string line;
    ASSERT_TRUE(std::getline(lines, line));
    const char between = separator == ',' ? ';' : ',';
    EXPECT_EQ(Split(line, between), (std::vector<std::string>{"Time", "Field", "Value", "Unit", "Status"}));
    std::array<std::size_t, 2> counts{};
    while (std::getline(lines, line)) {
      const auto fields = Split(line, between);
      ASSERT_EQ(fields.size(), 5U) << line;
      const std::size_t which = fields[1] == "AI 1 View, Output, Value" ? 0 : 1;
      const Json& point = trend.at("plots").at(0).at("curves").at(which).at("points").at(counts[which]++);
      std::string number = fields[2];
      std::replace(number.begin(), number.end(), separator, '.');
      EXPECT_EQ(std::stod(number), point.at(1).get<double>());
      EXPECT_NEAR(std::stod(fields[0]) * 1000, point.at(0).get<double>(), 0.5);
      EXPECT_EQ(fields[3], "kPa");
      EXPECT_EQ(fields[4].substr(0, 4), "Good");
    }
    EXPECT_EQ(counts[0], 4U);
    EXPECT_EQ(counts[1], 4U);
  }
}

TEST(TrendTest, TakesFourLiveNumbersAndNothingElse) {
  TrendDriver driver;
  driver.Activate("Observe");
  driver.Advance(100);
  for (const char* control : {"txtParameter(0)", "lbDeviceView(4)", "cmdBack", "txtPassword"}) {
    driver.Refused({{"do", "trend"}, {"add", {control}}});
  }
  const Json five = {"lbDeviceView(0)", "lbDeviceView(1)", "lbDeviceView(2)", "lbDeviceView(3)", "lbDeviceView(12)"};
  driver.Refused({{"do", "trend"}, {"add", five}});
  EXPECT_EQ(driver.Trend().at("fields").size(), 0U) << "what is refused has changed nothing";
  driver.Trend({{"add", {five[0], five[1], five[2], five[3]}}});
  driver.Refused({{"do", "trend"}, {"add", {five[4]}}});
  driver.Refused({{"do", "trend"}, {"add", {five[0]}}});
  driver.Refused({{"do", "trend"}, {"remove", {five[4]}}});
  EXPECT_EQ(driver.Trend({{"remove", {five[0]}}, {"add", {five[4]}}}).at("fields").size(), 4U);
  EXPECT_EQ(driver.Trend({{"clear", true}}).at("fields").size(), 0U);
}

TEST(TrendTest, ADayTakesNoMoreMemoryThanTwoHours) {
  const auto host = std::make_shared<VirtualHost>(VirtualHost::Options{
      .iconFolder = {}, .simulator = sim::Parse(Json{{"process", {{"noise", 20}}}}), .preset = ""});
  host->Control().Init("7", "", host->WatchedDtm());
  host->Advance(3000);
  host->Presented().Activate("Observe", 0);
  host->Advance(100);
  observe::Trend& trend = host->Followed();
  for (const auto control : {id::lbDeviceView(0), id::lbDeviceView(1), id::lbDeviceView(2), id::lbDeviceView(21)}) {
    EXPECT_TRUE(trend.Add(control));
  }
  constexpr std::int64_t kHour = 3'600'000;
  host->Advance(2 * kHour);
  const std::size_t footprint = trend.Footprint();
  const std::size_t samples = trend.Fields().front().samples.size();
  EXPECT_NEAR(static_cast<double>(samples), 61 * 4, 2);
  for (int hour = 0; hour < 22; ++hour) {
    host->Advance(kHour);
    EXPECT_LE(trend.Footprint(), footprint + 4 * sizeof(observe::TrendSample));
  }
  EXPECT_NEAR(static_cast<double>(trend.Fields().front().samples.size()), static_cast<double>(samples), 1);
  trend.SetWindow(60);
  EXPECT_NEAR(static_cast<double>(trend.Plots().at(0).figure.lines.at(0).points.size()), 240, 2);
}

}  // namespace
}  // namespace htr60::automation
