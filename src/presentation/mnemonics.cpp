#include "presentation/mnemonics.h"

#include <array>

namespace htr60::presentation {
namespace {

constexpr bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
constexpr char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

// Bytes above 7F are parts of letters of other alphabets.
constexpr bool BeginsWord(std::string_view caption, std::size_t at) {
  if (at == 0) return true;
  const char before = caption[at - 1];
  return !IsLetter(before) && !IsDigit(before) && static_cast<unsigned char>(before) < 0x80;
}

/// The first letter that `wanted` takes: those that begin a word first, for the eye finds them sooner.
template <class Wanted>
std::size_t FirstLetter(std::string_view caption, Wanted wanted) {
  for (const bool initial : {true, false}) {
    for (std::size_t i = 0; i < caption.size(); ++i) {
      if (IsLetter(caption[i]) && (!initial || BeginsWord(caption, i)) && wanted(Upper(caption[i]))) return i;
    }
  }
  return std::string_view::npos;
}

}  // namespace

std::vector<char> ChooseMnemonics(const std::vector<std::string>& captions) {
  std::array<bool, 128> taken{};
  for (const char c : {'W', 'S', 'B'}) taken[static_cast<std::size_t>(c)] = true;
  std::vector<char> chosen;
  for (const std::string& caption : captions) {
    const std::size_t at = FirstLetter(caption, [&](char c) { return !taken[static_cast<std::size_t>(c)]; });
    chosen.push_back(at == std::string::npos ? '\0' : Upper(caption[at]));
    if (chosen.back() != '\0') taken[static_cast<std::size_t>(chosen.back())] = true;
  }
  return chosen;
}

std::size_t PlaceOfMnemonic(std::string_view caption, char letter) {
  return FirstLetter(caption, [letter](char c) { return c == letter; });
}

}  // namespace htr60::presentation
