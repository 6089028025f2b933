#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct XML_ParserStruct;

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

 private:
  friend class AnswerReader;
  struct Entry {
    std::uint32_t hash = 0;
    std::uint32_t tagAt = 0;
    std::uint32_t tagSize = 0;
    std::uint32_t valueAt = 0;
    std::uint32_t valueSize = 0;
    bool hasValue = false;
  };
  const Entry* Find(std::string_view tag) const;
  bool Is(const Entry& entry, std::string_view tag) const;
  void Clear();
  void Add(const char* tag, const char* value);
  void Grow();
  std::uint32_t& SlotFor(std::uint32_t hash, std::string_view tag);

  std::string text_;                  // tags and values, one after the other
  std::vector<Entry> entries_;        // in the order of the document, each tag once
  std::vector<std::uint32_t> table_;  // entry numbers from 1 by hash, open addressing, a power of two
  mutable std::size_t next_ = 0;      // after the entry found last: handlers take tags mostly in their order
};

/// Reads answers one after the other with one parser and one set of buffers.
class AnswerReader {
 public:
  AnswerReader();
  ~AnswerReader();
  AnswerReader(const AnswerReader&) = delete;
  AnswerReader& operator=(const AnswerReader&) = delete;

  /// Reads `document` (UTF-8, an encoding that it declares is not applied). Null unless it is well-formed to its end;
  /// a DOCTYPE counts as not well-formed, so nothing is expanded or fetched. The answer lives until the next `Read`.
  const Answer* Read(std::string_view document);

 private:
  static void OnElement(void* self, const char* name, const char** attributes);
  static void OnDoctype(void* self, const char*, const char*, const char*, int);

  XML_ParserStruct* parser_;
  Answer answer_;
};

}  // namespace htr60
