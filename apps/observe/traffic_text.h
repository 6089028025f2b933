#pragma once

#include <cstdint>
#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "observe/observer.h"
#include "observe/wire_words.h"

namespace htr60::observe {

/// An entry in words.
struct TrafficLine {
  std::uint64_t number = 0;
  std::int64_t at = 0;
  EntryKind kind = EntryKind::kRead;
  EntryState state = EntryState::kWaiting;
  int code = 0;
  std::uint64_t pair = 0;
  std::int64_t took = -1;
  std::string page;
  std::string fault;  ///< why it failed, or what is wrong with its document
  std::vector<WireValue> values;

  /// It is failed, unanswered, unasked or cannot be read, or one of its values cannot.
  bool IsMarked() const;
  /// "Output unit: kPa; Output scale: upper 37.4, lower 0 kPa"
  std::string Words() const;
};

/// Which lines are wanted.
struct TrafficFilter {
  std::string text;               ///< contained in page, code, name, tag, value, unit, status or fault; case ignored
  std::optional<EntryKind> kind;  ///< none: all
  bool markedOnly = false;

  bool Takes(const TrafficLine& line) const;
};

/// Turns the entries of an observer into lines, the oldest first, each once. What it has passed it does not decode
/// again.
class TrafficReader {
 public:
  explicit TrafficReader(const Observer& observer, char decimalSeparator = '.');

  /// Lines of the entries after the last one given, up to the newest.
  std::vector<TrafficLine> Next();
  /// The state of an entry changes after it was given: the line as it stands now, without its values.
  TrafficLine Head(const Entry& entry) const;
  std::uint64_t NextNumber() const { return next_; }

 private:
  const Observer* observer_;
  WireWords words_;
  std::uint64_t next_ = 1;
};

/// One line of JSON Lines. `timeOfDay` gives the time of an entry as a text; may be none.
nlohmann::json ToJson(const TrafficLine& line, const std::function<std::string(std::int64_t)>& timeOfDay);

}  // namespace htr60::observe
