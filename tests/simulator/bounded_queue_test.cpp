#include "simulator/device/bounded_queue.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace htr60::sim {
namespace {

using Queue = BoundedQueue<std::string>;
using Texts = std::vector<std::string>;

void ExpectTaken(Queue& queue, const Texts& entries, std::size_t dropped) {
  const Queue::Taken taken = queue.Take();
  EXPECT_EQ(taken.entries, entries);
  EXPECT_EQ(taken.dropped, dropped);
}

TEST(BoundedQueue, KeepsTheNewestEntries) {
  Queue queue(3, 1000);
  ExpectTaken(queue, {}, 0);
  for (const char* entry : {"a", "b", "c"}) queue.Push(entry, 1);
  ExpectTaken(queue, {"a", "b", "c"}, 0);
  for (const char* entry : {"a", "b", "c", "d", "e"}) queue.Push(entry, 1);
  ExpectTaken(queue, {"c", "d", "e"}, 2);
  ExpectTaken(queue, {}, 0);
}

TEST(BoundedQueue, KeepsWhatFitsAndTheNewestWhateverItsLength) {
  Queue queue(100, 10);
  queue.Push("a", 5);
  queue.Push("b", 5);
  queue.Push("c", 1);
  ExpectTaken(queue, {"b", "c"}, 1);
  queue.Push("a", 1);
  queue.Push("b", 50);
  ExpectTaken(queue, {"b"}, 1);
  queue.Push("a", 50);
  queue.Push("b", 10);
  ExpectTaken(queue, {"b"}, 1);
}

TEST(BoundedQueue, AnEntryThatGrowsCountsForWhatItHasBecome) {
  Queue queue(100, 10);
  const auto adds = [](std::string& entry) { entry += '+'; };
  const auto a = queue.Push("a", 2);
  const auto b = queue.Push("b", 2);
  queue.Grow(a, 6, adds);
  queue.Grow(b, 1, adds);  // too much: the oldest goes, though it is another one
  queue.Grow(a, 1, adds);
  queue.Grow(b, 100, adds);
  ExpectTaken(queue, {"b++"}, 1);
  queue.Push("c", 1);
  queue.Grow(b, 1, adds);  // taken: its number is nobody's
  ExpectTaken(queue, {"c"}, 0);
}

}  // namespace
}  // namespace htr60::sim
