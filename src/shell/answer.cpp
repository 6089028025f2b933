#include "shell/answer.h"

#include <algorithm>
#include <limits>
#include <numeric>

#include "codecs/mFunctions.h"
#include "text/failure.h"
#include "text/numbers.h"
#include "text/text_hash.h"

namespace htr60 {
namespace {

std::uint32_t ShortHash(std::string_view tag) { return static_cast<std::uint32_t>(HashOfText(tag) >> 32U); }

/// Whether `name` is the text of `literal`; ends at the first character that differs.
template <std::size_t N>
bool Is(const char* name, const char (&literal)[N]) {
  for (std::size_t i = 0; i < N; ++i) {
    if (name[i] != literal[i]) return false;
  }
  return true;
}

}  // namespace

const Answer::Entry* Answer::Find(std::string_view tag) const {
  if (entries_.size() > kFew) return FindAmongMany(tag);
  if (next_ < entries_.size() && entries_[next_].first) {
    ++comparisons_;
    if (TagOf(entries_[next_]) == tag) return &entries_[next_++];
  }
  const std::uint32_t hash = ShortHash(tag);
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    if (hashes_[i] != hash) continue;
    ++comparisons_;
    if (TagOf(entries_[i]) != tag) continue;
    next_ = i + 1;
    return &entries_[i];
  }
  return nullptr;
}

const Answer::Entry* Answer::FindAmongMany(std::string_view tag) const {
  const auto found = std::lower_bound(byTag_.begin(), byTag_.end(), tag, [&](std::uint32_t number, std::string_view t) {
    ++comparisons_;
    return TagOf(entries_[number]) < t;
  });
  return found != byTag_.end() && TagOf(entries_[*found]) == tag ? &entries_[*found] : nullptr;
}

std::string_view Answer::Text(std::string_view tag) const {
  const Entry* entry = Find(tag);
  if (entry == nullptr || !entry->hasValue) throw RuntimeFailure("tag or value missing");
  return {text_.data() + entry->tagAt + entry->tagSize, entry->valueSize};
}

std::int32_t Answer::Number(std::string_view tag) const { return HexNumber32(Text(tag)); }

std::int32_t Answer::Word(std::string_view tag) const {
  std::int32_t word = 0;
  HexToWord(Text(tag), word);
  return word;
}

void Answer::Clear() {
  text_.clear();
  entries_.clear();
  byTag_.clear();
  seen_ = 0;
  next_ = 0;
  comparisons_ = 0;
}

void Answer::Add(std::string_view tag, const char* value) {
  Entry entry{.tagAt = static_cast<std::uint32_t>(text_.size()), .tagSize = static_cast<std::uint32_t>(tag.size())};
  if (entries_.size() < kFew) {
    const std::uint32_t hash = ShortHash(tag);
    const std::uint64_t bit = std::uint64_t{1} << (hash % 64);
    hashes_[entries_.size()] = hash;
    entry.first = (seen_ & bit) == 0;
    seen_ |= bit;
  }
  text_.append(tag);
  if (value != nullptr) {
    const std::string_view digits(value);
    text_.append(digits);
    entry.valueSize = static_cast<std::uint32_t>(digits.size());
    entry.hasValue = true;
  }
  entries_.push_back(entry);
}

void Answer::Complete() {
  if (entries_.size() <= kFew) return;
  byTag_.resize(entries_.size());
  std::iota(byTag_.begin(), byTag_.end(), 0U);
  std::sort(byTag_.begin(), byTag_.end(), [&](std::uint32_t a, std::uint32_t b) {
    ++comparisons_;
    const int order = TagOf(entries_[a]).compare(TagOf(entries_[b]));
    return order != 0 ? order < 0 : a < b;
  });
}

void AnswerReader::OnStart(const char*, const char* const* attributes) {
  const char* tag = nullptr;
  const char* value = nullptr;
  for (; *attributes != nullptr; attributes += 2) {
    if (Is(attributes[0], "tag")) {
      tag = attributes[1];
    } else if (Is(attributes[0], "value")) {
      value = attributes[1];
    }
  }
  if (tag != nullptr) answer_.Add(tag, value);
}

const Answer* AnswerReader::Read(std::string_view document) {
  constexpr std::size_t kLarge = std::size_t{64} << 10U;  // an answer of the device has about two
  outgrown_ = outgrown_ || document.size() > kLarge;
  answer_.Clear();
  if (document.size() > std::numeric_limits<std::uint32_t>::max()) return nullptr;
  if (!reader_.Read(document, *this)) return nullptr;
  answer_.Complete();
  return &answer_;
}

}  // namespace htr60
