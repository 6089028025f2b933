#include "presentation/line_words.h"

#include <algorithm>
#include <vector>

namespace htr60::presentation {

LineWords WordsOf(std::span<const ScreenRow* const> fields) {
  LineWords line;
  std::vector<std::string> said;
  const auto say = [&said](const std::string& words) {
    if (std::find(said.begin(), said.end(), words) == said.end()) said.push_back(words);
  };
  for (const ScreenRow* field : fields) {
    if (!field->words.empty()) say(field->words);
    if (!field->hint.empty()) {
      say("? " + field->hint);
      line.brief = "?";
    }
    line.alert = line.alert || field->state == FieldState::kDiffers || field->state == FieldState::kReplaced;
  }
  for (const std::string& words : said) line.words += (line.words.empty() ? "" : "  ") + words;
  return line;
}

}  // namespace htr60::presentation
