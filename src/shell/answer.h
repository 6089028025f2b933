#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "text/xml_reader.h"

namespace htr60 {

/// One parsed answer: the values of its `tag` attributes. The first element with a tag counts, also when it has no
/// `value`; neither its name nor its depth matters.
class Answer {
 public:
  /// Text of the parameter's `value` as it stands; throws `RuntimeFailure` where tag or value is missing.
  std::string_view Text(std::string_view tag) const;
  /// The value as a hexadecimal 32-bit number; throws as `Text` does and for digits that are no such number.
  std::int32_t Number(std::string_view tag) const;
  /// The value's first two bytes as a number, as `HexToWord` reads them; 0 where it cannot.
  std::int32_t Word(std::string_view tag) const;

  /// How often a tag of this answer has been compared with another so far. No document makes it grow with the square
  /// of its tags.
  std::size_t Comparisons() const { return comparisons_; }

 private:
  friend class AnswerReader;
  struct Entry {
    std::uint32_t tagAt = 0;
    std::uint32_t tagSize = 0;
    std::uint32_t valueSize = 0;  // the value stands after the tag
    bool hasValue = false;
    bool first = false;  // certainly the first with its tag; not known of every one
  };
  /// An answer of the device has at most 24 tags. So few are passed through by their hashes; more are put in order.
  static constexpr std::size_t kFew = 64;

  void Clear();
  void Add(std::string_view tag, const char* value);
  void Complete();
  std::string_view TagOf(const Entry& entry) const { return {text_.data() + entry.tagAt, entry.tagSize}; }
  const Entry* Find(std::string_view tag) const;
  const Entry* FindAmongMany(std::string_view tag) const;

  std::string text_;                          // tags and values, one after the other
  std::vector<Entry> entries_;                // in the order of the document
  std::array<std::uint32_t, kFew> hashes_{};  // of the tags of the first entries
  std::vector<std::uint32_t> byTag_;          // numbers of many entries by tag, equal ones in the order of the document
  std::uint64_t seen_ = 0;                    // a bit for some bits of each hash
  mutable std::size_t next_ = 0;              // after the entry found last: handlers take tags mostly in their order
  mutable std::size_t comparisons_ = 0;
};

/// Reads answers one after the other with one parser and one set of buffers.
class AnswerReader final : private XmlElements {
 public:
  /// Reads `document` (UTF-8, an encoding that it declares is not applied). Null unless it is well-formed to its end
  /// and smaller than 4 GiB; a DOCTYPE counts as not well-formed, so nothing is expanded or fetched. The answer lives
  /// until the next `Read`.
  const Answer* Read(std::string_view document);

  /// Whether an answer has been so large that the reader, which keeps its memory, had better be let go.
  bool Outgrown() const { return outgrown_; }

 private:
  void OnStart(const char* name, const char* const* attributes) override;

  XmlReader reader_;
  bool outgrown_ = false;
  Answer answer_;
};

}  // namespace htr60
