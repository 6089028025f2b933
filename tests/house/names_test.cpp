// Who may know a page or a control by name: the units. The shell, the navigation, the views and the programs take what
// they need from the units' tables.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "form/control_names.h"
#include "pages/pages.h"

namespace htr60 {
namespace {

namespace fs = std::filesystem;

const fs::path kTop = HTR60_SOURCE_FOLDER;

std::string Read(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

std::vector<fs::path> SourcesOf(std::string_view folder) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(kTop / folder)) {
    const std::string end = entry.path().extension().string();
    if (end == ".h" || end == ".cpp") files.push_back(fs::relative(entry.path(), kTop));
  }
  return files;
}

std::string WithoutComment(const std::string& line) { return line.substr(0, line.find("//")); }

/// The words of a line, and its texts with their quotes.
std::vector<std::string> TokensOf(const std::string& line) {
  std::vector<std::string> tokens;
  for (std::size_t i = 0; i < line.size();) {
    const std::size_t from = i;
    if (line[i] == '"') {
      i = line.find('"', i + 1);
      i = i == std::string::npos ? line.size() : i + 1;
    } else if (std::isalpha(static_cast<unsigned char>(line[i])) != 0) {
      while (i < line.size() && (std::isalnum(static_cast<unsigned char>(line[i])) != 0 || line[i] == '_')) ++i;
    } else {
      ++i;
      continue;
    }
    tokens.push_back(line.substr(from, i - from));
  }
  return tokens;
}

/// Controls without their index, timers, and names of pages and sub-pages in quotes; but what belongs to the frame
/// itself.
std::set<std::string> NamesOfPages() {
  std::set<std::string> names;
  for (std::uint16_t ordinal = 0; ordinal < kControlCount; ++ordinal) {
    const std::string name = NameOf(ControlId{ordinal});
    names.insert(name.substr(0, name.find('(')));
  }
  for (std::size_t i = 0; i < kTimerCount; ++i) names.emplace(NameOf(static_cast<TimerId>(i)));
  for (const char* own :
       {"cmdBack", "cmdSave", "cmdWriteParameter", "frmTreeView", "PictTreeView", "TimerInit", "TimerReadAfterWrite"}) {
    EXPECT_EQ(names.erase(own), 1U) << own;
  }
  const auto quote = [&](std::string_view name) {
    if (!name.empty()) names.insert('"' + std::string(name) + '"');
  };
  const auto quoteAll = [&](const NameSet& set) {
    for (std::size_t i = 0; i < set.Count(); ++i) quote(set[i]);
  };
  for (const PageUnit* unit : PagesOfHtr60().units) {
    for (const WriteRow& row : unit->writes) quoteAll(row.pages), quoteAll(row.subPages.Set());
    for (const RereadRow& row : unit->rereads) quoteAll(row.pages), quoteAll(row.subPages.Set());
    for (const BackRow& row : unit->backs) quoteAll(row.pages), quote(row.to.page);
    for (const NodeRow& row : unit->nodes) {
      quote(row.page);
      for (const NodeText& node : row.texts) quote(node.text);
    }
  }
  return names;
}

struct Exception {
  const char* file;
  const char* name;
  const char* why;
};
constexpr Exception kExceptions[] = {
    {"src/shell/unit_factors.cpp", "txtParameter", "public members that scripts know, and the fields that they fill"},
    {"apps/automate/codec_operations.cpp", "txtParameter", "the same fields, for a script that asks for the texts"},
};

void ExpectNoNames(const fs::path& file, const std::set<std::string>& names) {
  std::istringstream lines(Read(kTop / file));
  int number = 0;
  for (std::string line; std::getline(lines, line);) {
    ++number;
    for (const std::string& token : TokensOf(WithoutComment(line))) {
      if (names.count(token) == 0) continue;
      const bool excepted = std::any_of(std::begin(kExceptions), std::end(kExceptions),
                                        [&](const Exception& e) { return file == e.file && token == e.name; });
      EXPECT_TRUE(excepted) << file.string() << ":" << number << " names " << token;
    }
  }
}

TEST(Names, OfPagesStandInTheirUnitsAlone) {
  const std::set<std::string> names = NamesOfPages();
  ASSERT_TRUE(names.count("cmbPVType") == 1 && names.count("\"TRD Table\"") == 1 && names.count("TimerMonit1") == 1);
  int files = 0;
  for (const char* folder : {"src/shell", "src/navigation", "src/presentation", "apps/automate", "apps/desktop"}) {
    for (const fs::path& file : SourcesOf(folder)) {
      // A tour is a script: it presses what an operator presses, by name.
      if (file.string().find("tour_") != std::string::npos) continue;
      ExpectNoNames(file, names);
      ++files;
    }
  }
  EXPECT_GT(files, 50);
}

// The form has its lists: controls, indexes, timers, captions and start texts.
TEST(Names, OfControlsStandInTheFormsListsAlone) {
  const std::set<std::string> names = NamesOfPages();
  for (const fs::path& file : SourcesOf("src/form")) {
    const std::string name = file.filename().string();
    if (name == "control_indexes.h" || name == "start_state.cpp" || name == "tab_captions.h") continue;
    ExpectNoNames(file, names);
  }
}

// The handler that the manual shows is one of the sources.
TEST(Manual, QuotesARealHandler) {
  const std::string manual = Read(kTop / "docs/architecture.md");
  const std::size_t fence = manual.find("```cpp\nvoid On");
  ASSERT_NE(fence, std::string::npos);
  const std::size_t from = fence + 7;
  const std::string handler = manual.substr(from, manual.find("```", from) - from);
  ASSERT_GT(std::count(handler.begin(), handler.end(), '\n'), 3);
  bool found = false;
  for (const fs::path& file : SourcesOf("src/pages"))
    found = found || Read(kTop / file).find(handler) != std::string::npos;
  EXPECT_TRUE(found) << handler;
}

}  // namespace
}  // namespace htr60
