#include "desktop/edge.h"

#include <exception>
#include <iostream>

namespace htr60::desktop {

void FailureLog::Report(const std::string& what) {
  if (reported_.size() == kMostLines || !reported_.insert(what).second) return;
  out_ << "htr60: failure: " << what << std::endl;
  if (reported_.size() == kMostLines) out_ << "htr60: further failures are not told" << std::endl;
}

void ReportFailure() noexcept {
  static FailureLog log(std::cerr);
  try {
    try {
      throw;
    } catch (const std::exception& failure) {
      log.Report(failure.what());
    } catch (...) {
      log.Report("of an unknown kind");
    }
  } catch (...) {  // NOLINT(bugprone-empty-catch): not even the line can be made
  }
}

}  // namespace htr60::desktop
