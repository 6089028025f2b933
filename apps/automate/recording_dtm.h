#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automate/fields.h"
#include "automate/kept.h"
#include "shell/ports.h"
#include "simulator/manager/manager.h"

namespace htr60::automation {

/// The DTM manager that a control of the automation program sees: writes down what goes out and what comes in. It hands
/// everything on to the simulated transmitter where there is one; otherwise nothing is ever answered.
class RecordingDtm final : public IDtm,
                           public IDtmCore,
                           public IDtmParameterAccess,
                           public std::enable_shared_from_this<RecordingDtm> {
 public:
  /// Calls that are to fail. Without `codes` those of every code.
  struct Failures {
    bool reads = false;
    bool writes = false;
    std::optional<std::vector<std::string>> codes;
  };

  /// `simulator` may be null.
  explicit RecordingDtm(std::shared_ptr<sim::Manager> simulator) : simulator_(std::move(simulator)) {}

  std::shared_ptr<IDtmCore> Core() override { return shared_from_this(); }
  std::shared_ptr<IDtmParameterAccess> ParameterAccess() override { return shared_from_this(); }
  void RegisterUI(std::string_view className, std::string_view invokeId, std::shared_ptr<IUpdateUI> receiver,
                  std::int32_t number, bool& flag) override;
  void UnregisterUI(std::string_view invokeId, std::int32_t number, bool& flag) override;
  void WriteRequest(std::string_view code, std::string_view document, std::string& result) override;
  void ReadRequest(std::string_view code, std::string_view document, std::string& result) override;

  sim::Manager* Simulator() const { return simulator_.get(); }
  void SetFailures(Failures failures) { failures_ = std::move(failures); }
  void RecordAnswer(std::int32_t code, std::string_view document);

  // What was recorded since the last such call, as members of an answer.
  Json TakeRequests();
  Json TakeRegistrations();
  Json TakeAnswers();

 private:
  struct Request {
    std::string_view kind;
    std::string code;
    std::string document;
  };
  struct Registration {
    std::string_view operation;
    std::optional<std::string> className;
    std::string invokeId;
    std::int32_t number = 0;
  };
  struct Answer {
    std::int32_t code = 0;
    std::string document;
  };

  bool Fails(bool kind, std::string_view code) const;
  void RecordRequest(std::string_view kind, std::string_view code, std::string_view document);

  std::shared_ptr<sim::Manager> simulator_;
  Failures failures_;
  Kept<Request> requests_;
  Kept<Registration> registrations_;
  Kept<Answer> answers_;
};

/// The values of the attributes of a request document, in their order; none for an empty text.
Json AttributesOf(std::string_view document);

}  // namespace htr60::automation
