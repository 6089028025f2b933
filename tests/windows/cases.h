#pragma once

#include <cstdio>
#include <exception>
#include <span>
#include <string>

namespace htr60::client {

/// What ends a case that failed.
struct Failure {
  std::string what;
};

inline void Check(bool holds, const char* what, const char* file, int line) {
  if (holds) return;
  std::string place = file;
  place.erase(0, place.find_last_of("/\\") + 1);
  throw Failure{place + ":" + std::to_string(line) + ": " + what};
}

/// The case fails where the condition does not hold.
#define CHECK(condition) ::htr60::client::Check(static_cast<bool>(condition), #condition, __FILE__, __LINE__)
/// The same, with a word about which of many it was.
#define CHECK_FOR(which, condition)                                                                           \
  ::htr60::client::Check(static_cast<bool>(condition), (std::string(#condition) + " for " + (which)).c_str(), \
                         __FILE__, __LINE__)

struct Case {
  const char* name;
  void (*run)();
};

/// Runs all cases; a line each, written at once, so that whoever reads along knows how far it came.
inline int RunCases(std::span<const Case> cases) {
  int failed = 0;
  for (const Case& c : cases) {
    std::string failure;
    try {
      c.run();
    } catch (const Failure& f) {
      failure = f.what;
    } catch (const std::exception& e) {
      failure = e.what();
    }
    if (failure.empty()) {
      std::printf("ok %s\n", c.name);
    } else {
      std::printf("FAILED %s: %s\n", c.name, failure.c_str());
      ++failed;
    }
    std::fflush(stdout);
  }
  return failed == 0 ? 0 : 1;
}

}  // namespace htr60::client
