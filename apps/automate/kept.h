#pragma once

#include "automate/fields.h"
#include "simulator/device/bounded_queue.h"

namespace htr60::automation {

/// What is kept until a command asks for it; entries wait in a compact form.
template <typename Entry>
class Kept : public sim::BoundedQueue<Entry> {
 public:
  Kept() : sim::BoundedQueue<Entry>(100'000, 64'000'000) {}
};

/// Takes the entries as members of an answer: `name` with what `toJson` makes of each, and "dropped" where some have
/// gone.
template <typename Entry, typename ToJson>
Json TakeAs(const char* name, Kept<Entry>& kept, ToJson toJson) {
  auto taken = kept.Take();
  Json entries = Json::array();
  for (Entry& entry : taken.entries) {
    entries.push_back(toJson(entry));
    entry = {};  // what has become JSON is not held twice
  }
  Json members = {{name, std::move(entries)}};
  if (taken.dropped > 0) members["dropped"] = taken.dropped;
  return members;
}

}  // namespace htr60::automation
