#include "desktop/data_line.h"

#include <QCoreApplication>
#include <QDateTime>

namespace htr60::desktop {
namespace {

constexpr std::int64_t kLateWithoutTimerMs = 10'000;
constexpr int kLateIntervals = 3;

QString Clock(std::int64_t time) { return QDateTime::fromMSecsSinceEpoch(time).toString(QStringLiteral("HH:mm:ss")); }

QString Tr(const char* text) { return QCoreApplication::translate("htr60::desktop::DataLine", text); }

}  // namespace

void DataLine::Opened(FrameId page) {
  page_ = page;
  returned_ = false;
  lastRead_.erase(page.ordinal);
  waitingSince_.reset();
}

void DataLine::Returned(FrameId page) {
  page_ = page;
  returned_ = true;
  waitingSince_.reset();
}

void DataLine::Look(std::int64_t now, bool reading, bool answered, int intervalMs) {
  intervalMs_ = intervalMs;
  if (answered) {
    lastRead_[page_.ordinal] = now;
    returned_ = false;
    waitingSince_.reset();
  }
  if (!reading) {
    waitingSince_.reset();
  } else if (!waitingSince_) {
    waitingSince_ = now;
  }
}

bool DataLine::Late(std::int64_t now) const {
  const std::int64_t limit = intervalMs_ > 0 ? std::int64_t{kLateIntervals} * intervalMs_ : kLateWithoutTimerMs;
  return waitingSince_ && now - *waitingSince_ >= limit;
}

QString DataLine::Text(std::int64_t now) const {
  if (!page_) return {};
  if (Late(now)) return Tr("No answer since %1").arg(Clock(*waitingSince_));
  const auto read = lastRead_.find(page_.ordinal);
  if (read == lastRead_.end()) return Tr("Not read since opened");
  if (returned_) return Tr("As read %1").arg(Clock(read->second));
  const QString text = Tr("Read %1").arg(Clock(read->second));
  if (intervalMs_ == 0) return text;
  return text + Tr(", every %1 s").arg(intervalMs_ / 1000);
}

}  // namespace htr60::desktop
