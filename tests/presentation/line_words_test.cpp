#include "presentation/line_words.h"

#include <gtest/gtest.h>

#include <vector>

namespace htr60::presentation {
namespace {

ScreenRow Field(FieldState state, std::string words, std::string hint = {}) {
  ScreenRow row;
  row.state = state;
  row.words = std::move(words);
  row.hint = std::move(hint);
  return row;
}

LineWords Of(const std::vector<ScreenRow>& rows) {
  std::vector<const ScreenRow*> fields;
  for (const ScreenRow& row : rows) fields.push_back(&row);
  return WordsOf(fields);
}

TEST(LineWords, SaysEachThingOnce) {
  struct Case {
    std::vector<ScreenRow> fields;
    LineWords line;
  };
  const Case kCases[] = {
      {{}, {}},
      {{Field(FieldState::kAsRead, "")}, {}},
      {{Field(FieldState::kNotWritten, "not written")}, {.words = "not written", .state = "not written"}},
      {{Field(FieldState::kNotWritten, "not written"), Field(FieldState::kNotWritten, "not written")},
       {.words = "not written"}},
      {{Field(FieldState::kConfirmed, "confirmed"), Field(FieldState::kSent, "sent")}, {.words = "confirmed  sent"}},
      {{Field(FieldState::kDiffers, "device: 1, sent: 2")},
       {.words = "device: 1, sent: 2", .state = "differs", .alert = true}},
      {{Field(FieldState::kNotWritten, "not written", "No number")},
       {.words = "not written  ? No number", .state = "not written", .least = "?"}},
      {{Field(FieldState::kAsRead, "", "No number")}, {.words = "? No number", .least = "?"}},
  };
  for (const Case& c : kCases) {
    const LineWords line = Of(c.fields);
    EXPECT_EQ(line.words, c.line.words);
    EXPECT_EQ(line.state, c.line.state) << c.line.words;
    EXPECT_EQ(line.least, c.line.least) << c.line.words;
    EXPECT_EQ(line.alert, c.line.alert) << c.line.words;
  }
}

TEST(LineWords, TheBeginningIsWorthMoreThanTheNameWhereThereIsRoomForIt) {
  const LineWords line{.words = "the device replaced it, was: 12345", .state = "replaced", .least = "?"};
  const auto width = [](std::string_view text) { return static_cast<int>(text.size()); };
  EXPECT_EQ(FittingIn(line, 34, 1, width), line.words);
  EXPECT_EQ(FittingIn(line, 33, 1, width), line.words);
  EXPECT_EQ(FittingIn(line, 20, 1, width), line.words);
  EXPECT_EQ(FittingIn(line, 19, 1, width), line.state);
  EXPECT_EQ(FittingIn(line, 8, 1, width), line.state);
  EXPECT_EQ(FittingIn(line, 7, 1, width), line.least);
  const LineWords several{.words = "confirmed  sent, not read back", .least = ""};
  EXPECT_EQ(FittingIn(several, 10, 1, width), "");
}

}  // namespace
}  // namespace htr60::presentation
