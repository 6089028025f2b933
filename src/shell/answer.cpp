#include "shell/answer.h"

#include <expat.h>

#include <cstring>

#include "codecs/mFunctions.h"
#include "text/failure.h"
#include "text/numbers.h"

namespace htr60 {
namespace {

constexpr std::uint32_t HashOf(std::string_view text) {
  std::uint32_t hash = 2166136261U;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
  return hash;
}

constexpr std::size_t kFirstTableSize = 128;

}  // namespace

bool Answer::Is(const Entry& entry, std::string_view tag) const {
  return std::string_view(text_).substr(entry.tagAt, entry.tagSize) == tag;
}

const Answer::Entry* Answer::Find(std::string_view tag) const {
  if (next_ < entries_.size() && Is(entries_[next_], tag)) return &entries_[next_++];
  const std::uint32_t hash = HashOf(tag);
  const std::size_t mask = table_.size() - 1;
  for (std::size_t i = hash & mask; table_[i] != 0; i = (i + 1) & mask) {
    const std::size_t number = table_[i] - 1;
    if (entries_[number].hash != hash || !Is(entries_[number], tag)) continue;
    next_ = number + 1;
    return &entries_[number];
  }
  return nullptr;
}

std::string_view Answer::Text(std::string_view tag) const {
  const Entry* entry = Find(tag);
  if (entry == nullptr || !entry->hasValue) throw RuntimeFailure("tag or value missing");
  return std::string_view(text_).substr(entry->valueAt, entry->valueSize);
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
  table_.assign(table_.empty() ? kFirstTableSize : table_.size(), 0);
  next_ = 0;
}

std::uint32_t& Answer::SlotFor(std::uint32_t hash, std::string_view tag) {
  const std::size_t mask = table_.size() - 1;
  std::size_t i = hash & mask;
  while (table_[i] != 0) {
    const Entry& entry = entries_[table_[i] - 1];
    if (entry.hash == hash && Is(entry, tag)) break;
    i = (i + 1) & mask;
  }
  return table_[i];
}

void Answer::Grow() {
  table_.assign(table_.size() * 2, 0);
  const std::size_t mask = table_.size() - 1;
  std::uint32_t number = 0;
  for (const Entry& entry : entries_) {
    std::size_t i = entry.hash & mask;
    while (table_[i] != 0) i = (i + 1) & mask;
    table_[i] = ++number;
  }
}

void Answer::Add(const char* tag, const char* value) {
  const std::string_view name(tag);
  const std::uint32_t hash = HashOf(name);
  std::uint32_t& slot = SlotFor(hash, name);
  if (slot != 0) return;  // the first of a tag counts
  Entry entry;
  entry.hash = hash;
  entry.tagAt = static_cast<std::uint32_t>(text_.size());
  entry.tagSize = static_cast<std::uint32_t>(name.size());
  text_.append(name);
  if (value != nullptr) {
    entry.hasValue = true;
    entry.valueAt = static_cast<std::uint32_t>(text_.size());
    text_.append(value);
    entry.valueSize = static_cast<std::uint32_t>(text_.size()) - entry.valueAt;
  }
  entries_.push_back(entry);
  slot = static_cast<std::uint32_t>(entries_.size());
  if (entries_.size() * 2 > table_.size()) Grow();
}

AnswerReader::AnswerReader() : parser_(XML_ParserCreate("UTF-8")) {
  if (parser_ == nullptr) throw RuntimeFailure("no XML parser");
}

AnswerReader::~AnswerReader() { XML_ParserFree(parser_); }

void AnswerReader::OnElement(void* self, const char*, const char** attributes) {
  const char* tag = nullptr;
  const char* value = nullptr;
  for (; *attributes != nullptr; attributes += 2) {
    if (std::strcmp(attributes[0], "tag") == 0) {
      tag = attributes[1];
    } else if (std::strcmp(attributes[0], "value") == 0) {
      value = attributes[1];
    }
  }
  if (tag != nullptr) static_cast<AnswerReader*>(self)->answer_.Add(tag, value);
}

void AnswerReader::OnDoctype(void* self, const char*, const char*, const char*, int) {
  XML_StopParser(static_cast<AnswerReader*>(self)->parser_, XML_FALSE);
}

const Answer* AnswerReader::Read(std::string_view document) {
  // A reset keeps the parser's memory and drops its handlers; the encoding given here overrides a declared one.
  XML_ParserReset(parser_, "UTF-8");
  XML_SetUserData(parser_, this);
  XML_SetStartElementHandler(parser_, &AnswerReader::OnElement);
  XML_SetStartDoctypeDeclHandler(parser_, &AnswerReader::OnDoctype);
  answer_.Clear();
  constexpr std::size_t kPiece = std::size_t{1} << 20U;
  while (document.size() > kPiece) {
    if (XML_Parse(parser_, document.data(), static_cast<int>(kPiece), XML_FALSE) != XML_STATUS_OK) return nullptr;
    document.remove_prefix(kPiece);
  }
  const bool whole = XML_Parse(parser_, document.data(), static_cast<int>(document.size()), XML_TRUE) == XML_STATUS_OK;
  return whole ? &answer_ : nullptr;
}

}  // namespace htr60
