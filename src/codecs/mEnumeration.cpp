#include "codecs/mEnumeration.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "codecs/enumeration_tables.h"
#include "codecs/monit_tables.h"
#include "text/text_map.h"

namespace htr60 {
namespace {

/// The rows with a code stand in front, in ascending order.
template <class Rows>
constexpr std::size_t CodedRows(const Rows& rows) {
  std::size_t count = 0;
  while (count < rows.size() && rows[count].hasCode) ++count;
  return count;
}

template <class Rows>
constexpr bool Ascends(const Rows& rows, std::size_t count) {
  for (std::size_t i = 1; i < count; ++i) {
    if (rows[i - 1].code >= rows[i].code) return false;
  }
  return true;
}

template <class Rows>
constexpr const auto* FindCode(const Rows& rows, std::size_t count, std::int32_t code) {
  const auto* const end = rows.data() + count;
  const auto* const row = std::lower_bound(rows.data(), end, code,
                                           [](const auto& entry, std::int32_t sought) { return entry.code < sought; });
  return row != end && row->code == code ? row : nullptr;
}

template <const auto& kTable>
std::string_view Decode(std::int32_t code) {
  static constexpr std::size_t kCount = CodedRows(kTable.rows);
  static_assert(Ascends(kTable.rows, kCount));
  const EnumerationRow* const row = FindCode(kTable.rows, kCount, code);
  return row != nullptr ? row->text : std::string_view();
}

template <const auto& kTable>
std::string_view Encode(std::string_view text) {
  static constexpr TextMap kTexts(kTable.rows);
  const std::size_t row = kTexts.Find(text);
  if (row == kTable.rows.size() || kTable.rows[row].written.empty()) return kTable.fallback;
  return kTable.rows[row].written;
}

template <const auto& kPairs>
std::string_view ValueOf(std::string_view text, std::string_view otherwise) {
  static constexpr TextMap kTexts(kPairs);
  const std::size_t row = kTexts.Find(text);
  return row == kPairs.size() ? otherwise : kPairs[row].value;
}

static_assert(Ascends(kMonitIndexRows, kMonitIndexRows.size()));
static_assert(Ascends(kMonitIndexFullRows, kMonitIndexFullRows.size()));

constexpr std::string_view kUserIndex = "User Index";

}  // namespace

#define HTR60_DECODER(name) \
  std::string_view Decode##name(std::int32_t code) noexcept { return Decode<k##name>(code); }
#define HTR60_ENCODER(name) \
  std::string_view Encode##name(std::string_view text) noexcept { return Encode<k##name>(text); }
#include "codecs/enumerations.def"

std::string_view DecodeMonitIndex(std::int32_t index, std::string_view block) noexcept {
  const MonitIndexRow* const row = FindCode(kMonitIndexRows, kMonitIndexRows.size(), index);
  return row != nullptr && (!row->transducerOnly || block == "Transducer") ? row->text : kUserIndex;
}

std::string_view DecodeMonitIndexFull(std::int32_t index, std::string_view block) noexcept {
  const MonitIndexFullRow* const row = FindCode(kMonitIndexFullRows, kMonitIndexFullRows.size(), index);
  if (row == nullptr) return kUserIndex;
  if (block == "Transducer") return row->transducer;
  if (block == "Physical") return row->physical;
  const bool analogInput = block == "Analog Input 1" || block == "Analog Input 2" || block == "Analog Input 3";
  return analogInput ? row->analogInput : row->other;
}

std::string_view EncodeMonitIndex(std::string_view text) noexcept { return ValueOf<kMonitIndexCodes>(text, ""); }

std::string_view DecodeMonitDataType(std::string_view name) noexcept { return ValueOf<kMonitDataTypes>(name, "NONE"); }

}  // namespace htr60
