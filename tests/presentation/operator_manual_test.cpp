// The operator's manual tells the truth: each way through the pages that it names is gone in the program, and each text
// that it quotes is one of the program's.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <memory>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "form/tab_captions.h"
#include "pages/pages.h"
#include "presentation/frame_texts.h"
#include "screen_driver.h"
#include "shell/page_unit.h"

namespace htr60::automation {
namespace {

namespace fs = std::filesystem;

const fs::path kTop = HTR60_SOURCE_FOLDER;

std::string Read(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

/// The manual as one line, for what it names may stand across two.
std::string Manual() {
  std::string text = Read(kTop / "docs/operator.md");
  std::replace(text.begin(), text.end(), '\n', ' ');
  return std::regex_replace(text, std::regex(" +"), " ");
}

std::vector<std::string> AllIn(const std::string& text, const char* pattern) {
  const std::regex what(pattern);
  std::vector<std::string> found;
  for (std::sregex_iterator at(text.begin(), text.end(), what), end; at != end; ++at) found.push_back((*at)[1]);
  return found;
}

std::vector<std::string> Split(const std::string& text, const char* pattern) {
  const std::regex between(pattern);
  return {std::sregex_token_iterator(text.begin(), text.end(), between, -1), std::sregex_token_iterator()};
}

std::string Trim(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == ',')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == ':' || text.back() == '.')) text.remove_suffix(1);
  return std::string(text);
}

/// Goes a way from node to tab to button to field, as the operator does.
class Walker {
 public:
  explicit Walker(const char* type)
      : driver_(Driver::Simulated(Json{{"device", Json{{"primaryValueType", type}, {"measuredType", 12}}}})) {
    driver_.Advance(1000);
  }

  bool Goes(const std::vector<std::string>& way) {
    if (!HasNode(way.front())) return false;
    driver_.Activate(way.front());
    driver_.Advance(300);
    for (std::size_t i = 1; i < way.size(); ++i) {
      if (!Step(way[i], i + 1 == way.size())) return false;
    }
    return true;
  }

 private:
  bool HasNode(const std::string& text) {
    const Json tree = driver_.Ok({{"do", "tree"}});
    return std::any_of(tree["nodes"].begin(), tree["nodes"].end(),
                       [&](const Json& node) { return node["text"] == text; });
  }

  bool Step(const std::string& caption, bool last) {
    const Json screen = driver_.Screen();
    for (const Json& strip : screen["tabs"]) {
      for (std::size_t i = 0; i < strip["captions"].size(); ++i) {
        if (Trim(strip["captions"][i].get<std::string>()) != caption) continue;
        driver_.Tab(strip["control"].get<std::string>(), static_cast<int>(i));
        driver_.Advance(300);
        return true;
      }
    }
    for (const char* list : {"rows", "buttons"}) {
      for (const Json& row : screen[list]) {
        if (Trim(row["caption"].get<std::string>()) != caption) continue;
        if (last) return true;
        if (row["enabled"] == false) return false;
        driver_.Click(row["control"].get<std::string>());
        driver_.Advance(300);
        return true;
      }
    }
    return false;
  }

  ScreenDriver driver_;
};

TEST(OperatorManual, EveryWayThroughThePagesCanBeGone) {
  int ways = 0;
  std::vector<std::unique_ptr<Walker>> walkers;
  for (const char* type : {"Pressure", "Flow", "Level", "Density"}) walkers.push_back(std::make_unique<Walker>(type));
  for (const std::string& way : AllIn(Manual(), R"(\*\*([^*]+ > [^*]+)\*\*)")) {
    ++ways;
    const std::vector<std::string> steps = Split(way, " > ");
    EXPECT_TRUE(std::any_of(walkers.begin(), walkers.end(), [&](auto& walker) { return walker->Goes(steps); })) << way;
  }
  EXPECT_GT(ways, 30);
}

TEST(OperatorManual, AWayThatIsNoneIsFound) {
  Walker walker("Level");
  EXPECT_TRUE(walker.Goes({"Level", "Settings", "Height"}));
  EXPECT_FALSE(walker.Goes({"Level", "Simulate", "Height"}));
  EXPECT_FALSE(walker.Goes({"Level", "Settings", "Depth"}));
  EXPECT_FALSE(walker.Goes({"Density/Concentration"}));
}

/// Captions of pages, tabs, groups, rows and of what stands around the pages.
std::set<std::string> Captions() {
  std::set<std::string> captions{"Back", "Save", "Write", std::string(presentation::kRevertName), "Simulator", "Open"};
  const auto take = [&](std::string_view text) { captions.insert(Trim(text)); };
  for (const TabCaptions& strip : kTabCaptions) {
    for (const std::string_view tab : strip.captions) take(tab);
  }
  for (const PageUnit* unit : PagesOfHtr60().units) {
    for (const NodeRow& node : unit->nodes) {
      for (const NodeText& text : node.texts) take(text.text);
    }
    for (const PageLayout& page : unit->layouts) {
      for (const LayoutTitle& title : page.titles) take(title.title);
      for (const LayoutGroup& group : page.groups) {
        take(group.caption);
        for (const LayoutRow& row : group.rows) {
          take(row.caption);
          take(row.secondCaption);
        }
      }
    }
  }
  return captions;
}

TEST(OperatorManual, EveryCaptionIsThereAsItStands) {
  const std::set<std::string> captions = Captions();
  int looked = 0;
  for (const std::string& bold : AllIn(Manual(), R"(\*\*([^*]+)\*\*)")) {
    if (bold.find(" > ") != std::string::npos || bold == "bold") continue;  // the other test takes care of ways
    ++looked;
    EXPECT_EQ(captions.count(Trim(bold)), 1U) << bold;
  }
  EXPECT_GT(looked, 20);
}

/// All texts in quotes of the sources that a text of the screen can come from.
std::string Literals() {
  std::string literals;
  for (const char* folder : {"src", "apps/desktop", "apps/observe"}) {
    for (const auto& entry : fs::recursive_directory_iterator(kTop / folder)) {
      if (!entry.is_regular_file()) continue;
      for (const std::string& text : AllIn(Read(entry.path()), R"re("((?:[^"\\\n]|\\.)*)")re")) literals += text + '\n';
    }
  }
  return literals;
}

TEST(OperatorManual, EveryTextInQuotesIsOneOfTheProgram) {
  const std::string literals = Literals();
  int looked = 0;
  for (const std::string& quoted : AllIn(Manual(), R"re("([^"]+)")re")) {
    // Numbers, times, names and what is left out come in between.
    for (const std::string& part : Split(quoted, R"([0-9][0-9.:]*|\.\.\.|: |, )")) {
      const std::string text = Trim(part);
      if (std::none_of(text.begin(), text.end(), [](unsigned char c) { return std::isalpha(c) != 0; })) continue;
      ++looked;
      EXPECT_NE(literals.find(text), std::string::npos) << text << " in \"" << quoted << '"';
    }
  }
  EXPECT_GT(looked, 90);
}

TEST(OperatorManual, ItsPicturesAndItsOwnHeadingsAreThere) {
  const std::string manual = Read(kTop / "docs/operator.md");
  std::set<std::string> anchors;
  for (const std::string& heading : AllIn(manual, "\n#+ ([^\n]+)")) {
    std::string anchor;
    for (const char c : heading) {
      if (std::isalnum(static_cast<unsigned char>(c)) != 0) {
        anchor += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
      } else if (c == ' ') {
        anchor += '-';
      }
    }
    anchors.insert(anchor);
  }
  int links = 0;
  for (const std::string& link : AllIn(manual, R"(\]\(([^)]+)\))")) {
    ++links;
    if (link.front() == '#') {
      EXPECT_EQ(anchors.count(link.substr(1)), 1U) << link;
    } else {
      EXPECT_TRUE(fs::exists(kTop / "docs" / link)) << link;
    }
  }
  EXPECT_GT(links, 20);
}

}  // namespace
}  // namespace htr60::automation
