#pragma once

#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "automate/host.h"

namespace htr60::automation {

/// One run of the automation protocol: commands come in as JSON objects, each is answered by one.
class Session {
 public:
  Session();
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  /// Carries out one command. The answer has "ok":true and what the command promises, or "ok":false and an "error";
  /// then nothing has changed.
  nlohmann::json Do(const nlohmann::json& command);
  /// The same for one line of text without its end (UTF-8 expected, any bytes accepted). The answer has no line end.
  std::string DoLine(std::string_view line);
  /// `quit` has been carried out.
  bool Ended() const { return ended_; }
  /// The control; null where there is none.
  UserCntrl* Control() { return host_ ? &host_->Control() : nullptr; }

 private:
  Action Prepare(const nlohmann::json& command);
  Action PrepareCreate(Fields& fields);

  std::shared_ptr<Host> host_;
  bool ended_ = false;
};

}  // namespace htr60::automation
