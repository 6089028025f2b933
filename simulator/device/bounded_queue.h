#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <utility>
#include <vector>

namespace htr60::sim {

/// Keeps entries until they are taken. Beyond its bounds the oldest go; the newest always stays.
template <typename Entry>
class BoundedQueue {
 public:
  struct Taken {
    std::vector<Entry> entries;  ///< the oldest first
    std::size_t dropped = 0;     ///< entries that have gone since the last time
  };

  BoundedQueue(std::size_t mostEntries, std::size_t mostBytes) : mostEntries_(mostEntries), mostBytes_(mostBytes) {}

  /// Answers the number of the entry; no other entry gets the same one. `bytes` is what it counts for.
  std::uint64_t Push(Entry entry, std::size_t bytes) {
    slots_.push_back({std::move(entry), bytes});
    bytes_ += bytes;
    DropOldest();
    return first_ + slots_.size() - 1;
  }

  /// Lets `change` add `bytes` to the entry of that number; does nothing where it has gone.
  template <typename Change>
  void Grow(std::uint64_t number, std::size_t bytes, Change change) {
    if (number < first_ || number - first_ >= slots_.size()) return;
    Slot& slot = slots_[static_cast<std::size_t>(number - first_)];
    change(slot.entry);
    slot.bytes += bytes;
    bytes_ += bytes;
    DropOldest();
  }

  Taken Take() {
    Taken taken{.entries = {}, .dropped = std::exchange(dropped_, 0)};
    taken.entries.reserve(slots_.size());
    for (Slot& slot : slots_) taken.entries.push_back(std::move(slot.entry));
    first_ += slots_.size();
    slots_ = {};
    bytes_ = 0;
    return taken;
  }

 private:
  struct Slot {
    Entry entry;
    std::size_t bytes = 0;
  };

  void DropOldest() {
    while (slots_.size() > 1 && (slots_.size() > mostEntries_ || bytes_ > mostBytes_)) {
      bytes_ -= slots_.front().bytes;
      slots_.pop_front();
      ++first_;
      ++dropped_;
    }
  }

  std::size_t mostEntries_;
  std::size_t mostBytes_;
  std::deque<Slot> slots_;
  std::size_t bytes_ = 0;
  std::uint64_t first_ = 0;  // number of the first slot
  std::size_t dropped_ = 0;
};

}  // namespace htr60::sim
