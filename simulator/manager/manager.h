#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "shell/ports.h"
#include "simulator/device/device.h"
#include "simulator/device/writes.h"
#include "simulator/manager/faults.h"
#include "simulator/manager/settings.h"

namespace htr60::sim {

/// The simulated transmitter with the interfaces of a DTM manager: takes requests, delivers answers when the host
/// lets it, keeps the link. It has no timer and no thread of its own. Times are milliseconds on the host's clock.
class Manager final : public IDtm,
                      public IDtmCore,
                      public IDtmParameterAccess,
                      public std::enable_shared_from_this<Manager> {
 public:
  /// `now` is the host's clock; it is asked at every request and command and has to outlive the manager's use. Throws
  /// `SettingsError`.
  static std::shared_ptr<Manager> Create(const Settings& settings, std::function<std::int64_t()> now);
  ~Manager() override;
  Manager(const Manager&) = delete;
  Manager& operator=(const Manager&) = delete;

  std::shared_ptr<IDtmCore> Core() override { return shared_from_this(); }
  std::shared_ptr<IDtmParameterAccess> ParameterAccess() override { return shared_from_this(); }
  void RegisterUI(std::string_view className, std::string_view invokeId, std::shared_ptr<IUpdateUI> receiver,
                  std::int32_t number, bool& flag) override;
  void UnregisterUI(std::string_view invokeId, std::int32_t number, bool& flag) override;
  /// `result` becomes "0". Throws `RuntimeFailure` for a code that is no number, for a write whose document lacks an
  /// attribute, and where a fault says so.
  void WriteRequest(std::string_view code, std::string_view document, std::string& result) override;
  void ReadRequest(std::string_view code, std::string_view document, std::string& result) override;

  /// When the next item is due; none while nothing waits.
  std::optional<std::int64_t> NextDue() const;
  /// Handles the earliest item that is due up to and including `now`: at most one `UpdateUI`. False if there is none.
  /// May be called again from inside an `UpdateUI`.
  bool RunOne(std::int64_t now);
  /// Handles everything that is due up to and including `now`, in order.
  void Run(std::int64_t now);
  /// Called whenever `NextDue` may have changed outside `RunOne`.
  std::function<void()> onScheduleChanged;

  // Changes at the present instant. They throw `SettingsError` and then have changed nothing.

  /// Merges `device`, `process` and `timing` into the settings; begins the faults of `faults`.
  void Set(const nlohmann::json& settings);
  /// Answers the number of the fault.
  int BeginFault(const nlohmann::json& fault);
  /// A fault that has ended already stays as it is; a number that no fault has had is an error.
  void ClearFault(int id);
  void ClearAllFaults();
  bool HasBegunFault(int id) const { return id > 0 && id <= lastFault_; }
  /// Whether the fault of that number still waits or acts.
  bool HasFault(int id) const;
  /// Values by the asked names (an array of texts): parameters as their digits, live quantities as `value`, `unit`,
  /// `status`, "lcd" and "link" as texts.
  nlohmann::json Get(const nlohmann::json& names);
  /// What acts on the instrument at this moment, ramps included.
  double ProcessValue(Quantity quantity);
  /// A vessel gives the two pressures.
  bool HasVessel() const { return device_.GetProcess().HasVessel(); }
  /// Ramps run, or steps of the profile are to come.
  bool RunsProfile() const { return device_.GetProcess().RunsProfile(); }
  std::int64_t SinceCreation() const { return Elapsed(); }
  /// Upper range limit of the fitted sensor 0 or 1.
  double SensorLimitKilopascal(std::size_t sensor) const;
  /// The faults that act, and those that wait for their time, in the order in which they began.
  std::span<const Fault> Faults() const { return faults_; }
  /// The lines of the device log since the last such call.
  BoundedQueue<std::string>::Taken TakeLog() { return device_.TakeLog(); }

  bool Online() const { return online_; }
  /// Takes the link down and up again, whatever faults do to it.
  void SetOffline(bool offline);
  bool IsSetOffline() const { return offline_; }

 private:
  using Action = std::function<void(std::int64_t)>;  ///< takes its time since creation
  struct Item {
    Action action;
    int fault = 0;  ///< whose beginning or end this is; 0: no fault's
  };

  Manager(const Settings& settings, std::function<std::int64_t()> now);

  std::int64_t Elapsed() const { return now_() - zero_; }
  void Schedule(std::int64_t at, Action action, int fault = 0);
  void Enqueue(std::int64_t delay, Action action);
  void ScheduleRequest(std::int64_t at, Action action);
  bool HasRoom(std::string_view kind, int code);
  void Changed() const;

  std::int64_t Jitter();
  std::int64_t Slowness(int code);
  void AnswerDue(int code, const ReadOperands& operands, std::int64_t at);
  void Send(int code, const ReadOperands& operands, std::int64_t at);
  void SendState(int code);
  bool Hold(int code, const ReadOperands& operands, std::int64_t at);
  void Release(int fault);
  void WriteDue(int code, const Attributes& attributes, std::int64_t at);
  void Deliver(int code, const std::string& document);
  bool Uses(FaultKind kind, int code);

  void UpdateLink(std::int64_t at);
  void LeaveLink(std::int64_t at, std::int64_t length);
  int AddFault(const FaultSettings& settings, std::int64_t at);
  void StartFault(int id, std::int64_t at);
  void EndFault(int id, std::int64_t at);
  Fault* FindFault(int id);
  void ForgetEndedFaults();
  void ForgetFault(int id);
  void UpdateSensors(std::int64_t at);

  struct Held {
    int fault = 0;
    int code = 0;
    ReadOperands operands;
  };

  std::function<std::int64_t()> now_;
  std::int64_t zero_ = 0;
  Settings settings_;
  Device device_;
  std::multimap<std::int64_t, Item> items_;  ///< by time since creation; equal times keep their order
  std::int64_t lastDue_ = 0;
  std::size_t waiting_ = 0;  ///< reads and writes among the items
  std::uint64_t requests_ = 0;
  std::vector<std::pair<std::string, std::shared_ptr<IUpdateUI>>> receivers_;
  std::vector<Fault> faults_;
  std::vector<Held> held_;
  int lastFault_ = 0;
  int absences_ = 0;
  bool offline_ = false;
  bool online_ = true;
};

}  // namespace htr60::sim
