#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "form/layout.h"

namespace htr60::presentation {

/// Says how old the values of a page are. Times are milliseconds of any clock that does not run backwards.
class DataLine {
 public:
  /// The time of day as "hh:mm:ss".
  using TimeOfDay = std::function<std::string(std::int64_t)>;

  explicit DataLine(TimeOfDay timeOfDay) : timeOfDay_(std::move(timeOfDay)) {}

  /// A node or an open button has opened `page`, or none: what was read before does not count.
  void Opened(const PageLayout* page);
  /// Back leads to `page`, which reads nothing and shows what it showed.
  void Returned(const PageLayout* page);
  /// A read went out, or an answer was handled; by the read's code.
  void Sent(int code, std::int64_t now);
  void Answered(int code, std::int64_t now);
  /// Interval in ms of the polling timer that runs; 0 where none does. Gives whether it is another one.
  bool SetInterval(int intervalMs) { return std::exchange(intervalMs_, intervalMs) != intervalMs; }

  /// Empty on a page that reads nothing.
  std::string Text(std::int64_t now) const;
  /// A read has waited too long for its answer.
  bool Late(std::int64_t now) const;
  /// The same, of values that a timer should renew.
  bool Stale(std::int64_t now) const { return intervalMs_ > 0 && Late(now); }
  /// When the text changes by time alone; none where it does not.
  std::optional<std::int64_t> NextDeadline(std::int64_t now) const;
  /// When an answer to one of these reads was handled last, whatever page was open; none where there was none.
  std::optional<std::int64_t> LastAnswer(std::span<const int> codes) const;
  /// The page was read since it was opened.
  bool HasRead() const;
  /// A read of the page has no answer yet, whatever others have.
  bool Waits() const { return !unanswered_.empty(); }

 private:
  std::int64_t LateAt() const;

  TimeOfDay timeOfDay_;
  const PageLayout* page_ = nullptr;
  bool returned_ = false;
  std::map<const PageLayout*, std::optional<std::int64_t>> lastRead_;  // of the pages opened so far
  std::map<int, std::int64_t> answered_;                               // by code
  std::optional<std::int64_t> waitingSince_;                           // the first read of this page without an answer
  std::vector<int> unanswered_;                                        // codes of those reads, each once
  int intervalMs_ = 0;
};

}  // namespace htr60::presentation
