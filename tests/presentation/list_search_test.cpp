#include "presentation/list_search.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace htr60::presentation {
namespace {

using Texts = std::vector<std::string>;

std::vector<std::string_view> Many(std::initializer_list<std::string_view> first, std::size_t count) {
  std::vector<std::string_view> rows(first);
  rows.resize(count, "Pa");
  return rows;
}

Texts LinesOf(const ListSearch& list) {
  Texts lines;
  for (int i = 0; i < list.Lines(); ++i) lines.emplace_back(list.Line(i));
  return lines;
}

std::string CurrentOf(const ListSearch& list) {
  return list.Current() == ListSearch::kNone ? "-" : std::string(list.Line(list.Current()));
}

constexpr std::string_view kFew[] = {"bar g", "mbar", "Bar", "", "Bar", "µm", "Å"};

TEST(ListSearch, FindsWhatContainsTheTextEqualOnesFirst) {
  const struct {
    const char* text;
    Texts found;
  } kCases[] = {
      {"bar", {"Bar", "Bar", "bar g", "mbar"}},  // doubled rows stay, the others keep their order
      {"BAR G", {"bar g"}},
      {"g", {"bar g"}},
      {"\u03bcM", {"µm"}},  // a mu for the micro sign
      {"å", {"Å"}},
      {"none", {}},
      {"", {"bar g", "mbar", "Bar", "", "Bar", "µm", "Å"}},
  };
  for (const auto& one : kCases) {
    ListSearch list(kFew, "mbar");
    list.Search(one.text);
    EXPECT_EQ(LinesOf(list), one.found) << one.text;
    const int row = *one.text == '\0' ? 1 : 0;  // without a search the row shown, else the first found
    EXPECT_EQ(list.Current(), one.found.empty() ? ListSearch::kNone : row) << one.text;
  }
}

TEST(ListSearch, ATextThatIsNoRowStandsAboveAndIsNotTaken) {
  ListSearch list(kFew, "Mpa");
  EXPECT_EQ(list.Line(0), "Now: Mpa (not in this list)");
  EXPECT_EQ(list.RowAt(0), ListSearch::kNone);
  EXPECT_EQ(list.Current(), ListSearch::kNone) << "Enter takes nothing that nobody has chosen";
  list.MoveTo(0);
  EXPECT_EQ(list.Current(), ListSearch::kNone);
  list.Move(ListMove::kDown);
  EXPECT_EQ(list.RowAt(list.Current()), 0);
  list.Move(ListMove::kUp);
  EXPECT_EQ(list.RowAt(list.Current()), 0) << "not onto the line that is no row";
  list.Search("mbar");
  EXPECT_EQ(LinesOf(list), (Texts{"Now: Mpa (not in this list)", "mbar"}));
  EXPECT_EQ(list.RowAt(list.Current()), 1) << "the number of the row in the whole list";
  EXPECT_EQ(ListSearch(kFew, "").Line(0), "bar g") << "nothing shown, nothing to tell";
  EXPECT_EQ(ListSearch(kFew, "mpa").Line(0), "Now: mpa (not in this list)") << "case is ignored for the search alone";
}

TEST(ListSearch, ALineToSearchInFromThirtyFourRowsOn) {
  EXPECT_FALSE(ListSearch(Many({}, 33), "Pa").HasSearchLine());
  EXPECT_TRUE(ListSearch(Many({}, 34), "Pa").HasSearchLine());
}

TEST(ListSearch, KeysMoveByLinesPagesAndToTheEnds) {
  std::vector<std::string> texts;
  for (int i = 0; i < 40; ++i) texts.push_back(std::to_string(i));
  ListSearch list(std::vector<std::string_view>(texts.begin(), texts.end()), "5");
  const struct {
    ListMove move;
    const char* to;
  } kSteps[] = {{ListMove::kDown, "6"},      {ListMove::kUp, "5"},      {ListMove::kPageDown, "16"},
                {ListMove::kPageDown, "27"}, {ListMove::kPageUp, "16"}, {ListMove::kEnd, "39"},
                {ListMove::kDown, "39"},     {ListMove::kHome, "0"},    {ListMove::kUp, "0"},
                {ListMove::kPageUp, "0"}};
  EXPECT_EQ(CurrentOf(list), "5");
  for (const auto& step : kSteps) {
    list.Move(step.move);
    EXPECT_EQ(CurrentOf(list), step.to);
  }
  list.Search("nowhere");
  list.Move(ListMove::kDown);
  EXPECT_EQ(CurrentOf(list), "-");
}

TEST(ListSearch, ALetterLeadsRoundTheRowsThatBeginWithIt) {
  ListSearch list(kFew, "mbar");
  for (const int row : {2, 4, 0, 2}) {
    list.Find("b");
    EXPECT_EQ(list.RowAt(list.Current()), row);
  }
  list.Find("z");
  EXPECT_EQ(list.RowAt(list.Current()), 2);
}

TEST(ListSearch, AllUnitsAreThereAtOnce) {
  std::vector<std::string> texts;
  for (int i = 0; i < 577; ++i) texts.push_back("unit " + std::to_string(i));
  const std::vector<std::string_view> rows(texts.begin(), texts.end());
  const auto begin = std::chrono::steady_clock::now();
  for (int i = 0; i < 100; ++i) {
    ListSearch list(rows, "unit 500");
    list.Search("7");
    ASSERT_GT(list.Lines(), 100);
  }
  const auto each = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count() / 100;
  EXPECT_LT(each, 50);
}

}  // namespace
}  // namespace htr60::presentation
