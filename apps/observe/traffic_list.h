#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "observe/traffic_text.h"

namespace htr60::observe {

/// The traffic as a list that is looked at: filtered, held while the reader pauses. It decodes only what `Refresh` asks
/// for.
class TrafficList {
 public:
  using TimeOfDay = std::function<std::string(std::int64_t)>;

  TrafficList(const Observer& observer, char decimalSeparator, TimeOfDay timeOfDay);

  /// What a refresh has done to the rows: first some have gone from the front, then some have come at the end.
  struct Change {
    std::size_t gone = 0;
    std::size_t come = 0;
    bool heads = false;  ///< rows that stand may have another state
  };
  /// Takes what has passed since, unless the list is held.
  Change Refresh();
  /// While it is held nothing comes and nothing goes; the observer goes on.
  void Hold(bool held) { held_ = held; }
  bool Held() const { return held_; }
  void SetFilter(TrafficFilter filter);
  const TrafficFilter& Filter() const { return filter_; }
  /// Forgets the lines, and with them what the observer keeps stays.
  void Clear();

  std::size_t Rows() const { return rows_.size(); }
  std::size_t All() const { return lines_.size(); }
  const TrafficLine& Row(std::size_t row) const { return lines_[IndexOf(rows_[row])]; }
  /// The row of an entry, or of the nearest after it; `Rows` where there is none.
  std::size_t RowOf(std::uint64_t number) const;
  std::string Time(std::int64_t at) const { return timeOfDay_(at); }

  /// The rows as JSON Lines.
  std::string JsonLines() const;
  /// Some rows as text with tabs, and a line for each of their values.
  std::string AsText(const std::vector<std::size_t>& rows) const;

 private:
  void TakeLines(Change& change);
  bool RefreshHeads();
  std::size_t IndexOf(std::uint64_t number) const { return static_cast<std::size_t>(number - first_); }

  const Observer& observer_;
  TrafficReader reader_;
  TimeOfDay timeOfDay_;
  TrafficFilter filter_;
  bool held_ = false;
  std::deque<TrafficLine> lines_;    // without gaps in their numbers
  std::uint64_t first_ = 1;          // number of the first line
  std::deque<std::uint64_t> rows_;   // numbers of those that the filter takes
  std::vector<std::uint64_t> open_;  // reads whose state may still change
};

/// "HTR60-1 traffic 2026-01-31.jsonl": what of `tag` cannot stand in a file's name is left out.
std::string ProposedName(std::string_view tag, std::string_view what, std::string_view date, std::string_view ending);

}  // namespace htr60::observe
