#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "automate/fields.h"
#include "automate/kept.h"
#include "automate/recording_dtm.h"
#include "form/widgets.h"
#include "observe/observer.h"
#include "observe/record.h"
#include "observe/traffic_text.h"
#include "observe/trend.h"
#include "presentation/presentation.h"
#include "shell/ports.h"
#include "shell/user_cntrl.h"
#include "simulator/manager/settings.h"

namespace htr60::automation {

/// A command made ready: it does its work and gives the members of the answer. Throws where the command is refused;
/// then it has changed nothing.
using Action = std::function<Json()>;

/// What a command answers: the members of `action`, or the reason for which it is refused.
Json Carried(const Action& action);
Json Refused(std::string_view why);
/// The line of an answer; bytes that are no UTF-8 are replaced.
std::string TextOf(const Json& answer);

/// The operator's answer to a coming message box, and what happens while the box is open.
struct BoxAnswer {
  std::string answer;
  std::vector<Action> during;
};

/// One control with its surroundings: the ports, the virtual clock, the DTM manager.
class VirtualHost final : private IMessageBoxes, private ITimers, private IIcons {
 public:
  struct Options {
    char decimalSeparator = '.';
    std::filesystem::path iconFolder;
    std::optional<sim::Settings> simulator;  ///< none: requests are captured
    std::string preset{};                    ///< name of ready-made settings, or none
  };
  explicit VirtualHost(Options options);
  ~VirtualHost() override;
  VirtualHost(const VirtualHost&) = delete;
  VirtualHost& operator=(const VirtualHost&) = delete;

  UserCntrl& Control() { return *control_; }
  /// What a view of the control would show.
  presentation::Presentation& Presented() { return *presentation_; }
  const std::shared_ptr<RecordingDtm>& Dtm() { return dtm_; }
  /// The same as the control sees it: what passes is watched.
  const std::shared_ptr<observe::ObservingDtm>& WatchedDtm() { return watchedDtm_; }
  observe::Observer& Watched() { return *observer_; }
  /// The traffic in words since it was asked for last.
  observe::TrafficReader& Traffic() { return *traffic_; }
  observe::Trend& Followed() { return *trend_; }
  observe::Record& Calibrated() { return *record_; }
  /// An answer that comes from no transmitter.
  void Answer(std::int32_t code, const std::string& document);
  std::string TimeOf(std::int64_t milliseconds) const;
  char DecimalSeparator() const { return options_.decimalSeparator; }

  /// Milliseconds since the creation of the control.
  std::int64_t Now() const { return now_; }
  /// Handles what falls due up to and at the new time, each at its own due time.
  void Advance(std::int64_t milliseconds);

  void QueueBoxAnswer(BoxAnswer answer) { boxAnswers_.push_back(std::move(answer)); }
  /// Throws while so many message boxes are open that nothing may be handed to the control: its handler could open one
  /// more, and their number would have no end.
  void RequireRoomForBox() const;
  /// The message boxes shown since the last such call, as members of an answer.
  Json TakeShown();

 private:
  struct Alarm {
    bool armed = false;
    std::int64_t due = 0;
    std::uint64_t order = 0;  // of the arming: decides at one instant
  };

  struct ShownBox {
    std::string text;
    std::string caption;
    BoxIcon icon = BoxIcon::kNone;
    std::vector<BoxButton> buttons;
    BoxButton answer = BoxButton::kOk;
    std::vector<std::string> during;  // JSON texts
  };

  BoxButton Show(const ModalBox& box) override;
  void Arm(int timer, std::int32_t milliseconds) override;
  void Disarm(int timer) override;
  bool Load(std::string_view fileName) override;

  /// The armed timer that is due first, or -1.
  int FirstTimer() const;

  const Options options_;
  std::int64_t now_ = 0;
  std::array<Alarm, kTimerCount> alarms_;
  std::uint64_t armings_ = 0;
  std::deque<BoxAnswer> boxAnswers_;
  int openBoxes_ = 0;
  Kept<ShownBox> shown_;
  std::set<std::string, std::less<>> loadedIcons_;
  std::shared_ptr<RecordingDtm> dtm_;
  std::shared_ptr<observe::Observer> observer_;
  std::shared_ptr<observe::ObservingDtm> watchedDtm_;
  std::optional<observe::TrafficReader> traffic_;
  std::shared_ptr<UserCntrl> control_;
  std::optional<presentation::Presentation> presentation_;
  std::optional<observe::Trend> trend_;
  std::optional<observe::Record> record_;
};

}  // namespace htr60::automation
