#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace htr60::presentation {

/// A letter 'A' to 'Z' for each caption, 0 where none is free: never W, S, B, each once. The first free letter that
/// begins a word, else the first free one, in the order of the captions.
std::vector<char> ChooseMnemonics(const std::vector<std::string>& captions);

/// Where in the caption that letter stands: in bytes, or npos.
std::size_t PlaceOfMnemonic(std::string_view caption, char letter);

}  // namespace htr60::presentation
