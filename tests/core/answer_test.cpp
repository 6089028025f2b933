#include "shell/answer.h"

#include <gtest/gtest.h>
#include <malloc.h>

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <random>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/bare_control.h"
#include "core/xml_documents.h"
#include "text/failure.h"
#include "text/text_hash.h"

namespace {
std::atomic<std::int64_t> liveBytes{0};
}

// Not inlined: the compiler would take the pair of malloc and delete for a mismatch.
[[gnu::noinline]] void* operator new(std::size_t size) {
  void* const place = std::malloc(size);
  if (place == nullptr) throw std::bad_alloc();
  liveBytes += static_cast<std::int64_t>(malloc_usable_size(place));
  return place;
}
[[gnu::noinline]] void operator delete(void* place) noexcept {
  liveBytes -= static_cast<std::int64_t>(malloc_usable_size(place));
  std::free(place);
}
[[gnu::noinline]] void operator delete(void* place, std::size_t) noexcept { operator delete(place); }

namespace htr60 {
namespace {

TEST(AnswerReader, TakesWellFormedDocumentsAlone) {
  AnswerReader reader;  // one for all: a failed document must leave no trace
  for (const XmlDocument& d : XmlDocuments("A", R"(<P tag="T" value="1F"/>)")) {
    const Answer* answer = reader.Read(d.text);
    ASSERT_EQ(answer != nullptr, TakenElsewhere(d.verdict)) << d.name;
    if (answer != nullptr) {
      EXPECT_EQ(answer->Number("T"), 31) << d.name;
      EXPECT_THROW((void)answer->Text("U"), RuntimeFailure) << d.name;
    }
  }
}

TEST(AnswerReader, TakesElementsOfAnyDepthAndReferencesInValues) {
  AnswerReader reader;
  for (const char* document : {R"(<A><B><C/><P tag="T" value="1F"/></B></A>)", "<A><P tag='T' value='&#49;F'/></A>",
                               "<P tag='T' value='1F'/>"}) {
    const Answer* answer = reader.Read(document);
    ASSERT_NE(answer, nullptr) << document;
    EXPECT_EQ(answer->Number("T"), 31) << document;
  }
}

TEST(AnswerReader, TheFirstOfATagCounts) {
  AnswerReader reader;
  const Answer* answer =
      reader.Read(R"(<A><P tag="T"/><P tag="T" value="1"/><P tag="V" value=""/><P tag="V" value="2"/>)"
                  R"(<P value="9" tag="W"/><P TAG="w" value="3"/></A>)");
  ASSERT_NE(answer, nullptr);
  EXPECT_THROW((void)answer->Text("T"), RuntimeFailure);
  EXPECT_EQ(answer->Text("V"), "");
  EXPECT_THROW((void)answer->Number("V"), RuntimeFailure);
  EXPECT_EQ(answer->Text("W"), "9");
  EXPECT_THROW((void)answer->Text("w"), RuntimeFailure);
}

TEST(AnswerReader, StandsLargeAndDeepDocuments) {
  AnswerReader reader;
  std::string many = "<A>";
  for (int i = 0; i < 20000; ++i)
    many += "<P tag=\"X" + std::to_string(i) + "\" value=\"" + std::to_string(i % 10) + "\"/>";
  const Answer* answer = reader.Read(many + "</A>");
  ASSERT_NE(answer, nullptr);
  EXPECT_EQ(answer->Text("X19999"), "9");
  EXPECT_EQ(answer->Text("X0"), "0");

  const std::string text = "<A>" + std::string(10'000'000, 'x') + "<P tag='T' value='1'/></A>";
  answer = reader.Read(text);
  ASSERT_NE(answer, nullptr);
  EXPECT_EQ(answer->Text("T"), "1");

  std::string deep;
  for (int i = 0; i < 100000; ++i) deep += "<A>";
  EXPECT_EQ(reader.Read(deep), nullptr);
  for (int i = 0; i < 100000; ++i) deep += "</A>";
  EXPECT_NE(reader.Read(deep), nullptr);
  EXPECT_NE(reader.Read("<A/>"), nullptr);
}

using Tags = std::vector<std::string>;

/// Each tag with its number as the value; of equal tags the first number is the right one.
std::string DocumentOf(const Tags& tags) {
  std::string document = "<A>";
  for (std::size_t i = 0; i < tags.size(); ++i) {
    document += "<P tag='" + tags[i] + "' value='" + std::to_string(i) + "'/>";
  }
  return document + "</A>";
}

void ExpectTheFirstOfEach(const Answer& answer, const Tags& tags) {
  std::unordered_map<std::string_view, std::size_t> first;
  for (std::size_t i = 0; i < tags.size(); ++i) first.emplace(tags[i], i);
  for (const std::string& tag : tags) ASSERT_EQ(answer.Text(tag), std::to_string(first.at(tag))) << tag.substr(0, 40);
}

TEST(AnswerReader, FindsTheFirstOfATagInAnyOrder) {
  std::mt19937 random(7);
  const auto below = [&](std::size_t limit) { return random() % limit; };
  AnswerReader reader;
  for (std::size_t round = 0; round < 400; ++round) {
    Tags tags;
    const std::size_t size = round < 140 ? round : below(300);  // on both sides of what counts as few
    const std::size_t kinds = 1 + below(2 * size + 1);
    for (std::size_t i = 0; i < size; ++i) tags.push_back("TRD" + std::to_string(below(kinds)));
    const Answer* answer = reader.Read(DocumentOf(tags));
    ASSERT_NE(answer, nullptr);
    ExpectTheFirstOfEach(*answer, tags);
    EXPECT_THROW((void)answer->Text("TRD"), RuntimeFailure);
    EXPECT_THROW((void)answer->Text("TRD999"), RuntimeFailure);
    EXPECT_THROW((void)answer->Text(""), RuntimeFailure);
  }
}

std::uint32_t Fnv1a(std::string_view text, std::uint32_t hash = 2166136261U) {
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
  return hash;
}

/// Two texts of six letters that lead from one state of the hash to one other.
std::pair<std::string, std::string> Twins(std::uint32_t state) {
  std::unordered_map<std::uint32_t, std::string> seen;
  for (std::uint32_t number = 0;; ++number) {
    std::string text;
    for (std::uint32_t rest = number * 2654435761U, i = 0; i < 6; ++i, rest /= 26) {
      text += static_cast<char>('A' + rest % 26);
    }
    const auto [twin, fresh] = seen.emplace(Fnv1a(text, state), text);
    if (!fresh && twin->second != text) return {twin->second, text};
  }
}

/// 2 to the power of `stages` tags of one length and one FNV-1a hash.
Tags TagsOfOneHash(int stages) {
  Tags tags{""};
  for (int stage = 0; stage < stages; ++stage) {
    const auto [one, other] = Twins(Fnv1a(tags.front()));
    Tags longer;
    for (const std::string& tag : tags) {
      longer.push_back(tag + one);
      longer.push_back(tag + other);
    }
    tags = std::move(longer);
  }
  for (const std::string& tag : tags) EXPECT_EQ(Fnv1a(tag), Fnv1a(tags.front()));
  return tags;
}

/// Tags that `HashOfText` cannot tell apart: it takes in the ends and the middle of a long text.
Tags TagsAlikeWhereTheHashLooks(std::size_t count) {
  Tags tags;
  for (std::size_t i = 0; i < count; ++i) {
    const std::string number = std::to_string(1000000 + i);
    tags.push_back("TRDTRDTR" + number + "MIDDLEMIDDLEMIDDL" + number + "TRDTRDTR");
  }
  for (const std::string& tag : tags) EXPECT_EQ(HashOfText(tag), HashOfText(tags.front()));
  return tags;
}

TEST(AnswerReader, NoDocumentMakesALookUpSlow) {
  Tags prefixes;
  for (std::size_t size = 1; size <= 1500; ++size) prefixes.emplace_back(size, 'P');
  Tags rising;
  for (int i = 0; i < 4096; ++i) rising.push_back("X" + std::to_string(i));
  const std::string million(1'000'000, 'L');
  const std::pair<const char*, Tags> kFamilies[] = {
      {"one hash", TagsOfOneHash(10)},
      {"few alike where the hash looks", TagsAlikeWhereTheHashLooks(64)},
      {"many alike where the hash looks", TagsAlikeWhereTheHashLooks(4096)},
      {"equal", Tags(4096, "TRDPVType")},
      {"prefixes", prefixes},
      {"rising", rising},
      {"falling", Tags(rising.rbegin(), rising.rend())},
      {"very long", {million + "1", million + "2", million, million + "1"}},
  };
  AnswerReader reader;
  for (const auto& [name, tags] : kFamilies) {
    SCOPED_TRACE(name);
    const Answer* answer = reader.Read(DocumentOf(tags));
    ASSERT_NE(answer, nullptr);
    ExpectTheFirstOfEach(*answer, tags);
    EXPECT_THROW((void)answer->Text("TRDPVTyp"), RuntimeFailure);
    EXPECT_GT(answer->Comparisons(), 0U);
    EXPECT_LT(answer->Comparisons(), 100 * tags.size());
  }
}

TEST(AnswerReader, ALargeAnswerLeavesNothingBehind) {
  const BareControl control;
  const std::string usual = "<A><P tag='TRDPVType' value='0001'/></A>";
  Tags tags;
  for (int i = 0; i < 100'000; ++i) tags.push_back("Tag" + std::to_string(i));
  const std::string large = DocumentOf(tags);
  control->UpdateUI(100, usual);
  control->form.TakeChanges();
  const std::int64_t before = liveBytes;
  // What is cut short is no answer at all, and its memory is given back too.
  for (const std::size_t cut : {0U, 1U}) {
    control->UpdateUI(100, std::string_view(large).substr(0, large.size() - cut));
    control->form.TakeChanges();
    EXPECT_LT(liveBytes - before, 4096);
  }
  control->UpdateUI(7900, usual);
  EXPECT_EQ(control->form.cmbPVType.Text(), "Flow");
}

}  // namespace
}  // namespace htr60
