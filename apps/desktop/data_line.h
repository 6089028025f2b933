#pragma once

#include <QString>
#include <cstdint>
#include <map>
#include <optional>

#include "desktop/core.h"

namespace htr60::desktop {

/// Says how old the values of a page are. It knows no widget and no clock: times are milliseconds since 1970.
class DataLine {
 public:
  /// A node or an open button has opened `page`: what was read before does not count.
  void Opened(FrameId page);
  /// Back leads to `page`, which reads nothing and shows what it showed.
  void Returned(FrameId page);
  /// Looks once a turn. `reading`: a read is under way; `answered`: one of the page's own answers has been handled
  /// since the last look; `intervalMs`: of the polling timer that runs, 0 where none does.
  void Look(std::int64_t now, bool reading, bool answered, int intervalMs);

  QString Text(std::int64_t now) const;
  /// A read has waited too long for its answer.
  bool Late(std::int64_t now) const;
  /// The text can change by time alone.
  bool Waits() const { return waitingSince_.has_value(); }
  /// The page was read since it was opened.
  bool HasRead() const { return lastRead_.count(page_.ordinal) != 0; }
  FrameId Page() const { return page_; }

 private:
  FrameId page_;
  bool returned_ = false;
  std::map<std::uint16_t, std::int64_t> lastRead_;  // by the page's frame
  std::optional<std::int64_t> waitingSince_;
  int intervalMs_ = 0;
};

}  // namespace htr60::desktop
