// The traffic between a control and its DTM manager, through the door of scripts.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include <unistd.h>

#include "automate/driver.h"
#include "observe/observer.h"
#include "observe/save_file.h"

namespace htr60::automation {
namespace {

namespace fs = std::filesystem;

/// A folder of this test's own.
class Folder {
 public:
  Folder() : path_(fs::temp_directory_path() / ("htr60-observe-" + std::to_string(::getpid()))) {
    fs::remove_all(path_);
    fs::create_directories(path_);
  }
  ~Folder() { fs::remove_all(path_); }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  fs::path operator/(const char* name) const { return path_ / name; }
  std::size_t Count() const {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(path_), fs::directory_iterator()));
  }

 private:
  fs::path path_;
};

std::string Read(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

class Traffic : public Driver {
 public:
  explicit Traffic(Json settings = Json::object()) : Driver(Simulated(std::move(settings))) {
    Init();
    Advance(3000);
  }
  Json Since(Json command = Json::object()) {
    command["do"] = "traffic";
    return Ok(command);
  }
  Json Entries(Json command = Json::object()) { return Since(std::move(command))["entries"]; }
  /// "read 7 answered", "answer 700: Output unit: kPa; ..."
  std::vector<std::string> Lines(const Json& entries) {
    std::vector<std::string> lines;
    for (const Json& entry : entries) {
      std::string line = entry.at("kind").get<std::string>() + " " + std::to_string(entry.at("code").get<int>()) + " " +
                         entry.at("state").get<std::string>();
      for (const Json& value : entry.at("values")) {
        line += "; " + value.at("name").get<std::string>() + ": " + value.at("value").get<std::string>();
        if (value.contains("unit")) line += " " + value.at("unit").get<std::string>();
      }
      if (entry.contains("fault")) line += " !" + entry.at("fault").get<std::string>();
      lines.push_back(line);
    }
    return lines;
  }
};

TEST(TrafficTest, TellsEveryStepOfAChangeOfUnitInWords) {
  Traffic driver;
  driver.Activate("Calibration");
  driver.Advance(200);
  driver.Since();
  driver.Choose("cmbCalibUnit", "bar");
  driver.Click("cmdWriteParameter");
  driver.Advance(3000);
  const Json entries = driver.Entries();
  EXPECT_EQ(driver.Lines(entries),
            (std::vector<std::string>{"write 12 taken; Sensor unit: bar", "read 15 answered",
                                      "answer 1500 answer; Sensor unit: bar; Primary value type: Pressure"}));
  EXPECT_EQ(entries[0]["page"], "Calibration, Diff. Pressure");
  EXPECT_EQ(entries[0]["values"][0]["digits"], "0471");
  EXPECT_EQ(entries[1]["tookMs"], 50);
  EXPECT_EQ(entries[1]["answer"], entries[2]["number"]);
  EXPECT_EQ(entries[2]["request"], entries[1]["number"]);
  EXPECT_EQ(entries[2]["time"], "00:00:05");
}

TEST(TrafficTest, FiltersByTextKindAndMark) {
  Traffic driver;
  driver.Activate("Level");
  driver.Activate("Pressure/Flow");
  driver.Advance(100);
  const auto count = [&](const Json& command) { return driver.Entries(command).size(); };
  const std::size_t all = count({{"from", 1}});
  EXPECT_EQ(count({{"from", 1}, {"kind", "read"}}) + count({{"from", 1}, {"kind", "answer"}}), all);
  EXPECT_EQ(count({{"from", 1}, {"text", "SQUARE root"}}), 1U);
  EXPECT_EQ(count({{"from", 1}, {"text", "41200000"}}), 1U) << "digits";
  EXPECT_EQ(count({{"from", 1}, {"text", "TRDFlowLinSqrt"}}), 1U);
  EXPECT_EQ(count({{"from", 1}, {"text", "nowhere"}}), 0U);
  EXPECT_EQ(count({{"from", 1}, {"marked", true}}), 0U);
  EXPECT_EQ(count({{"from", all}}), 1U);
  driver.Refused({{"do", "traffic"}, {"kind", "state"}});
  driver.Refused({{"do", "traffic"}, {"from", -1}});
}

TEST(TrafficTest, GivesEachEntryOnceAndAnyAgainByItsNumber) {
  Traffic driver;
  const Json first = driver.Since();
  EXPECT_EQ(first["entries"].size(), 4U);
  EXPECT_EQ(first["next"], 5);
  EXPECT_EQ(driver.Entries().size(), 0U);
  EXPECT_EQ(driver.Since({{"from", 2}})["entries"].size(), 3U);
  driver.Activate("Observe");
  driver.Advance(60);
  EXPECT_EQ(driver.Entries().size(), 2U);
}

TEST(TrafficTest, MarksWhatFailsAndWhatIsNotAnswered) {
  const std::pair<Json, std::string> kCases[] = {
      {{{"kind", "noAnswer"}, {"count", 1}}, "read 5 no answer"},
      {{{"kind", "readFails"}, {"count", 1}}, "read 5 failed !the read fails"},
      {{{"kind", "malformedXml"}, {"count", 1}}, "answer 500 answer !not well-formed"},
      {{{"kind", "emptyDocument"}, {"count", 1}}, "answer 500 answer !empty"},
      {{{"kind", "unaskedAnswer"}, {"codes", {8}}}, "answer 800 unasked; Temperature unit: °C"},
  };
  for (const auto& [fault, line] : kCases) {
    SCOPED_TRACE(fault.dump());
    Traffic driver;
    driver.Since();
    driver.Ok({{"do", "simulator"}, {"fault", fault}});
    driver.Activate("Pressure/Flow");
    driver.Advance(12'000);
    const auto marked = driver.Lines(driver.Entries({{"marked", true}}));
    ASSERT_EQ(marked.size(), 1U);
    EXPECT_EQ(marked[0], line);
  }
}

TEST(TrafficTest, ALostAnswerLeavesItsOwnReadWithoutOne) {
  Traffic driver;
  driver.Activate("Pressure/Flow");
  driver.Advance(100);
  driver.Tab("SSTabTRDSettings", 3);  // reads 45 again and again
  driver.Advance(20'300);
  driver.Since();
  driver.Ok({{"do", "simulator"}, {"fault", {{"kind", "noAnswer"}, {"codes", {45}}, {"count", 1}}}});
  driver.Advance(60'000);
  int lost = 0;
  int answered = 0;
  for (const Json& entry : driver.Entries({{"kind", "read"}})) {
    if (entry.at("state") == "no answer") ++lost;
    if (entry.at("state") != "answered") continue;
    ++answered;
    EXPECT_EQ(entry.at("tookMs"), 50) << entry;
  }
  EXPECT_EQ(lost, 1);
  EXPECT_GT(answered, 5);
}

TEST(TrafficTest, TellsHowLongASlowAnswerTook) {
  Traffic driver;
  driver.Since();
  driver.Ok({{"do", "simulator"}, {"fault", {{"kind", "slowAnswer"}, {"ms", 3000}}}});
  driver.Activate("Pressure/Flow");
  driver.Advance(4000);
  const Json entries = driver.Entries();
  ASSERT_EQ(entries.size(), 2U);
  EXPECT_EQ(entries[0]["tookMs"], 3050);
  EXPECT_EQ(entries[1]["tookMs"], 3050);
}

TEST(TrafficTest, KeepsOfAHugeDocumentItsBeginningAlone) {
  Traffic driver;
  driver.Since();
  driver.Ok({{"do", "simulator"}, {"fault", {{"kind", "hugeDocument"}, {"count", 1}}}});
  driver.Activate("Pressure/Flow");
  driver.Advance(100);
  const Json entries = driver.Entries({{"marked", true}});
  ASSERT_EQ(entries.size(), 1U);
  EXPECT_NE(entries[0]["fault"].get<std::string>().find("bytes, of which the first 8192 are kept"), std::string::npos);
}

TEST(TrafficTest, IsBoundedAndKeepsTheUnitsOfWhatHasGone) {
  Traffic driver;
  driver.Activate("Calibration");
  driver.Advance(100);
  driver.Click("cmdCalibLower");  // reads 16 once, with the unit, then 35 every 5 s, without
  driver.Advance(100);
  const std::int64_t enough = static_cast<std::int64_t>(observe::Observer::kMostEntries / 2 + 100) * 5000;
  driver.Ok({{"do", "advance"}, {"ms", enough}});
  const Json answer = driver.Since({{"from", 1}});
  EXPECT_EQ(answer["entries"].size(), observe::Observer::kMostEntries);
  EXPECT_GE(answer["entries"].size(), 10'000U);
  EXPECT_GT(answer["dropped"].get<int>(), 100);
  EXPECT_EQ(answer["entries"][0]["number"], answer["dropped"].get<int>() + 1);
  for (const Json& entry : answer["entries"]) {
    if (entry.at("kind") != "answer") continue;
    ASSERT_EQ(entry["values"][0]["unit"], "kPa") << entry;
  }
}

// The code is compared in the control: it travels nowhere, whatever is typed.
TEST(TrafficTest, HoldsNeitherTheAccessCodeNorWhatIsTypedForIt) {
  Traffic driver;
  driver.Activate("Factory");
  driver.Advance(200);
  driver.Tab("SSTabFactory", 5);
  for (const char* typed : {"WRONG", "QK475"}) {
    driver.Type("txtPassword", typed);
    driver.Click("cmdFactory");
    driver.Advance(500);
  }
  driver.Click("cmdSensorChar");
  driver.Advance(10'000);
  const Json entries = driver.Entries({{"from", 1}});
  ASSERT_GT(entries.size(), 6U);
  const std::string all = entries.dump();
  for (const char* secret : {"QK475", "514B343735", "WRONG", "57524F4E47"}) {
    EXPECT_EQ(all.find(secret), std::string::npos) << secret;
  }
  EXPECT_NE(all.find("Characterization"), std::string::npos) << "the code has opened the menu";
}

TEST(TrafficTest, IsSavedAsJsonLinesThatReadBack) {
  const Folder folder;
  Traffic driver;
  const Json entries = driver.Entries({{"from", 1}});
  const fs::path file = folder / "traffic.jsonl";
  const Json saved = driver.Since({{"from", 1}, {"save", file.string()}});
  EXPECT_EQ(saved["saved"], entries.size());
  std::istringstream lines(Read(file));
  std::size_t count = 0;
  for (std::string line; std::getline(lines, line); ++count) EXPECT_EQ(Json::parse(line), entries.at(count));
  EXPECT_EQ(count, entries.size());
  EXPECT_EQ(folder.Count(), 1U) << "nothing is left beside it";
}

TEST(TrafficTest, AnswersOfAScriptAreWatchedToo) {
  Driver driver(Driver::Captured());
  driver.Init();
  driver.Connect();
  driver.AnswerTags(800, {{"TRDTempUnit", "03EA"}});
  const Json entries = driver.Ok({{"do", "traffic"}})["entries"];
  ASSERT_EQ(entries.size(), 2U);
  EXPECT_EQ(entries[0]["values"][0]["value"], "Online");
  EXPECT_EQ(entries[1]["state"], "unasked");
  EXPECT_EQ(entries[1]["values"][0]["value"], "°F");
}

}  // namespace
}  // namespace htr60::automation
