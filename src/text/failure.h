#pragma once

#include <exception>

namespace htr60 {

/// The one failure that codecs, look-ups and ports raise: it ends the handler that is running, silently.
/// What the handler had set before stays. `what()` names the cause for a debugger and is never shown.
class RuntimeFailure : public std::exception {
 public:
  explicit RuntimeFailure(const char* cause) noexcept : cause_(cause) {}
  const char* what() const noexcept override { return cause_; }

 private:
  const char* cause_;
};

}  // namespace htr60
