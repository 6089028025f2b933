#pragma once

#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "automate/virtual_host.h"

namespace htr60::automation {

/// One run of the automation protocol: commands come in as JSON objects, each is answered by one.
class Interpreter {
 public:
  Interpreter();
  ~Interpreter();
  Interpreter(const Interpreter&) = delete;
  Interpreter& operator=(const Interpreter&) = delete;

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

  std::shared_ptr<VirtualHost> host_;
  bool ended_ = false;
};

}  // namespace htr60::automation
