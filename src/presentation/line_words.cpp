#include "presentation/line_words.h"

#include <algorithm>
#include <vector>

namespace htr60::presentation {
namespace {

constexpr int kTellingCharacters = 20;  // of words that do not fit, to be worth their beginning

}  // namespace

LineWords WordsOf(std::span<const ScreenRow* const> fields) {
  LineWords line;
  std::vector<std::string> said;
  const auto say = [&said](const std::string& words) {
    if (std::find(said.begin(), said.end(), words) == said.end()) said.push_back(words);
  };
  int marked = 0;
  for (const ScreenRow* field : fields) {
    if (!field->words.empty()) {
      say(field->words);
      line.state = field->state ? std::string(NameOf(*field->state)) : std::string();
    }
    if (!field->hint.empty()) {
      say("? " + field->hint);
      line.least = "?";
    }
    if (!field->words.empty() || !field->hint.empty()) ++marked;
    line.alert = line.alert || field->state == FieldState::kDiffers || field->state == FieldState::kReplaced;
  }
  if (marked > 1) line.state.clear();
  for (const std::string& words : said) line.words += (line.words.empty() ? "" : "  ") + words;
  return line;
}

std::string_view FittingIn(const LineWords& line, int room, int character,
                           const std::function<int(std::string_view)>& widthOf) {
  if (widthOf(line.words) <= room || room >= kTellingCharacters * character) return line.words;
  return !line.state.empty() && widthOf(line.state) <= room ? line.state : line.least;
}

}  // namespace htr60::presentation
