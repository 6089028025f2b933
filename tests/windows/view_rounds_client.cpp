// Round after round of a control's window, and what is left of them: view_rounds_client MANAGER ROUNDS [LEAK]
// LEAK is left behind in each round, for to see that it is found: font, brush, window or heap. Needs a display.

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <string>
#include <string_view>

#include "measures.h"
#include "view_bench.h"

namespace htr60::client {
namespace {

constexpr int kSettled = 2;
constexpr int kSpans = 3;
constexpr int kLongestAfter = 24;  // of the spans after the first

/// Opened, activated, every page of the tree looked at, closed.
void Round() {
  const Shown shown;
  Start(shown);  // while it is not connected, a node asks by a box
  CHECK(shown.Verb(OLEIVERB_UIACTIVATE) == S_OK);
  std::vector<std::string> names;
  for (const TreeNode& node : shown.control.Inside().form.treeView.Nodes()) names.emplace_back(node.text);
  for (std::size_t i = 0; i < names.size(); ++i) {
    shown.Presented().Activate(names[i], static_cast<int>(i) + 1);
    shown.Presented().Turn();
    Pump(0);
  }
  RedrawWindow(shown.Root(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
  VARIANT_BOOL done = VARIANT_FALSE;
  CHECK(shown.control.object->PrepareToRelease(&done) == S_OK);
}

void Leave(std::string_view what) {
  if (what == "font") CreateFontW(12, 0, 0, 0, FW_BOLD, 0, 0, 0, 0, 0, 0, 0, 0, L"Tahoma");
  if (what == "brush") CreateSolidBrush(RGB(1, 2, 3));
  if (what == "window") {
    CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
  }
  if (what == "heap") *static_cast<char*>(HeapAlloc(GetProcessHeap(), 0, 1)) = 1;
}

struct Measured {
  const char* name;
  std::size_t (*measure)();
  std::size_t before = 0;
  std::size_t after = 0;
};

std::size_t LiveObjects() { return static_cast<std::size_t>(com::LiveObjects()); }

/// What leaks grows in each span of rounds; what the system makes once, at whatever round it first needs it, in one.
int Run(int rounds, std::string_view leak) {
  Measured all[] = {
      {"GDI objects", &GdiObjects}, {"windows", &Windows}, {"message windows", [] { return MessageWindows().size(); }},
      {"objects", &LiveObjects},    {"handles", &Handles}, {"heap bytes", &HeapBytes}};
  int number = 0;
  const auto pass = [&](int count) {
    for (int i = 0; i < count; ++i) {
      Round();
      Pump(0);
      if (++number > kSettled) Leave(leak);
    }
  };
  pass(kSettled);
  int first = 0;
  for (int span = 0; span < kSpans; ++span) {
    first = number;
    for (Measured& m : all) m.before = m.measure();
    const int left = rounds - kSettled;
    pass(span == 0 ? left : std::min(left, kLongestAfter));
    for (Measured& m : all) m.after = m.measure();  // before anything is written, which takes memory too
    if (std::none_of(std::begin(all), std::end(all), [](const Measured& m) { return m.after > m.before; })) break;
  }
  int grown = 0;
  std::printf("ok %d rounds\n", rounds);
  for (const Measured& m : all) {
    if (m.after > m.before) ++grown;
    std::printf("%s %s\n", m.after > m.before ? "GROWN" : "ok", m.name);
    std::fprintf(stderr, "%s: %zu after round %d, %zu after round %d\n", m.name, m.before, first, m.after, number);
  }
  return grown;
}

}  // namespace
}  // namespace htr60::client

int main(int count, char** arguments) {
  using namespace htr60::client;
  if (count < 3) return 2;
  const Apartment apartment;
  const std::string_view leak = count > 3 ? arguments[3] : "";
  try {
    const Library library(arguments[1]);
    theManager = &library;
    const int grown = Run(std::atoi(arguments[2]), leak);
    return (grown != 0) == !leak.empty() ? 0 : 1;
  } catch (const Failure& failure) {
    std::printf("FAILED %s\n", failure.what.c_str());
    return 1;
  }
}
