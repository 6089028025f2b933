#include "presentation/data_line.h"

#include <algorithm>

namespace htr60::presentation {
namespace {

constexpr std::int64_t kLateWithoutTimerMs = 10'000;
constexpr std::int64_t kLateIntervals = 3;

bool Reads(const PageLayout* page, int code) {
  return page != nullptr && std::find(page->reads.begin(), page->reads.end(), code) != page->reads.end();
}

}  // namespace

void DataLine::Opened(const PageLayout* page) {
  page_ = page;
  returned_ = false;
  if (page != nullptr) lastRead_[page].reset();
  waitingSince_.reset();
  unanswered_.clear();
}

void DataLine::Returned(const PageLayout* page) {
  page_ = page;
  returned_ = true;
  waitingSince_.reset();
  unanswered_.clear();
}

bool DataLine::HasRead() const {
  const auto read = lastRead_.find(page_);
  return read != lastRead_.end() && read->second.has_value();
}

void DataLine::Sent(int code, std::int64_t now) {
  if (!Reads(page_, code)) return;
  if (!waitingSince_) waitingSince_ = now;
  if (std::find(unanswered_.begin(), unanswered_.end(), code) == unanswered_.end()) unanswered_.push_back(code);
}

// An answer may come after its page was left.
void DataLine::Answered(int code, std::int64_t now) {
  answered_[code] = now;
  for (auto& [page, time] : lastRead_) {
    if (Reads(page, code)) time = now;
  }
  if (!Reads(page_, code)) return;
  returned_ = false;
  waitingSince_.reset();
  std::erase(unanswered_, code);
}

std::optional<std::int64_t> DataLine::LastAnswer(std::span<const int> codes) const {
  std::optional<std::int64_t> last;
  for (const int code : codes) {
    const auto answer = answered_.find(code);
    if (answer != answered_.end() && (!last || answer->second > *last)) last = answer->second;
  }
  return last;
}

std::int64_t DataLine::LateAt() const {
  return *waitingSince_ + (intervalMs_ > 0 ? kLateIntervals * intervalMs_ : kLateWithoutTimerMs);
}

bool DataLine::Late(std::int64_t now) const { return waitingSince_ && now >= LateAt(); }

std::optional<std::int64_t> DataLine::NextDeadline(std::int64_t now) const {
  if (!waitingSince_ || Late(now)) return std::nullopt;
  return LateAt();
}

std::string DataLine::Text(std::int64_t now) const {
  if (page_ == nullptr || page_->reads.empty()) return {};
  if (Late(now)) return "No answer since " + timeOfDay_(*waitingSince_);
  if (!HasRead()) return "Not read since opened";
  const std::int64_t read = *lastRead_.at(page_);
  if (returned_) return "As read " + timeOfDay_(read);
  std::string text = "Read " + timeOfDay_(read);
  if (intervalMs_ > 0) text += ", every " + std::to_string(intervalMs_ / 1000) + " s";
  return text;
}

}  // namespace htr60::presentation
