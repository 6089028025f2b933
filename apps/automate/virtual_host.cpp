#include "automate/virtual_host.h"

#include <algorithm>
#include <fstream>
#include <limits>
#include <system_error>
#include <utility>

#include "observe/simulator_panel.h"
#include "pages/pages.h"
#include "presentation/page_in_words.h"

namespace htr60::automation {
namespace {

constexpr int kMostOpenBoxes = 8;
constexpr std::int64_t kNever = std::numeric_limits<std::int64_t>::max();

std::string_view NameOf(BoxButton button) {
  switch (button) {
    case BoxButton::kYes:
      return "Yes";
    case BoxButton::kNo:
      return "No";
    case BoxButton::kOk:
      break;
  }
  return "OK";
}

std::string_view NameOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::kInformation:
      return "information";
    case BoxIcon::kStop:
      return "stop";
    case BoxIcon::kNone:
      break;
  }
  return "none";
}

// Times of day count from the creation of the control and begin anew after 24 hours.
std::string TimeSinceStart(std::int64_t milliseconds) {
  const std::int64_t seconds = milliseconds / 1000 % 86400;
  std::string text = "hh:mm:ss";
  const auto put = [&](std::size_t at, std::int64_t number) {
    text[at] = static_cast<char>('0' + number / 10);
    text[at + 1] = static_cast<char>('0' + number % 10);
  };
  put(0, seconds / 3600);
  put(3, seconds / 60 % 60);
  put(6, seconds % 60);
  return text;
}

/// Seconds with three decimals: for a file, which may hold more than a day.
std::string SecondsSinceStart(std::int64_t milliseconds) {
  std::string thousandths = std::to_string(milliseconds % 1000);
  thousandths.insert(0, 3 - thousandths.size(), '0');
  return std::to_string(milliseconds / 1000) + "." + thousandths;
}

BoxButton Chosen(const ModalBox& box, std::string_view answer) {
  const auto has = [&](BoxButton button) {
    return std::find(box.buttons.begin(), box.buttons.end(), button) != box.buttons.end();
  };
  if (answer == "Close" && has(BoxButton::kNo)) return BoxButton::kNo;
  for (const BoxButton button : box.buttons) {
    if (NameOf(button) == answer) return button;
  }
  return box.buttons.empty() ? BoxButton::kOk : box.buttons.front();
}

}  // namespace

VirtualHost::VirtualHost(Options options) : options_(std::move(options)) {
  std::shared_ptr<sim::Manager> simulator;
  if (options_.simulator) simulator = sim::Manager::Create(*options_.simulator, [this] { return now_; });
  dtm_ = std::make_shared<RecordingDtm>(std::move(simulator));
  observer_ = std::make_shared<observe::Observer>([this] { return now_; });
  watchedDtm_ = std::make_shared<observe::ObservingDtm>(dtm_, observer_);
  traffic_.emplace(*observer_);
  const Ports ports{.boxes = *this, .timers = *this, .icons = *this, .decimalSeparator = options_.decimalSeparator};
  control_ = UserCntrl::Create(ports, PagesOfHtr60());
  observer_->page = [this] { return presentation::PageInWords(*control_); };
  std::string simulated;
  if (options_.simulator) simulated = options_.preset.empty() ? "SIMULATED" : "SIMULATED: " + options_.preset;
  presentation_.emplace(
      *control_,
      presentation::Surroundings{
          .now = [this] { return now_; },
          .timeOfDay = TimeSinceStart,
          .simulated = std::move(simulated),
          .active = [this] { return dtm_->Simulator() ? observe::ActiveWords(*dtm_->Simulator()) : std::string(); }});
  record_.emplace(*observer_, options_.decimalSeparator, TimeSinceStart);
  trend_.emplace(*control_, *observer_,
                 observe::Trend::Surroundings{.timeOfDay = TimeSinceStart, .timeStamp = SecondsSinceStart});
}

// The control goes first: it still disarms its timers here.
VirtualHost::~VirtualHost() {
  observer_->page = nullptr;
  record_.reset();
  trend_.reset();
  presentation_.reset();
  control_.reset();
}

void VirtualHost::Answer(std::int32_t code, const std::string& document) {
  dtm_->RecordAnswer(code, document);
  observer_->Answered(code, document);
  control_->UpdateUI(code, document);
  observer_->Handled(code);
}

std::string VirtualHost::TimeOf(std::int64_t milliseconds) const { return TimeSinceStart(milliseconds); }

void VirtualHost::Advance(std::int64_t milliseconds) {
  const std::int64_t target = now_ + milliseconds;
  for (;;) {
    sim::Manager* simulator = dtm_->Simulator();
    const std::int64_t answerDue = simulator != nullptr ? simulator->NextDue().value_or(kNever) : kNever;
    const int timer = FirstTimer();
    const bool timerDue = timer >= 0 && alarms_[static_cast<std::size_t>(timer)].due <= target;
    if (answerDue <= target && (!timerDue || answerDue <= alarms_[static_cast<std::size_t>(timer)].due)) {
      now_ = std::max(now_, answerDue);
      simulator->RunOne(now_);
      presentation_->Turn();
    } else if (timerDue) {
      Alarm& alarm = alarms_[static_cast<std::size_t>(timer)];
      now_ = std::max(now_, alarm.due);
      alarm.armed = false;
      control_->TimerDue(timer);
      presentation_->Turn();
    } else {
      break;
    }
  }
  // An open message box may have let the time go on further already.
  now_ = std::max(now_, target);
}

BoxButton VirtualHost::Show(const ModalBox& box) {
  BoxAnswer next;
  if (!boxAnswers_.empty()) {
    next = std::move(boxAnswers_.front());
    boxAnswers_.pop_front();
  }
  const BoxButton chosen = Chosen(box, next.answer);
  const auto number = shown_.Push(
      {std::string(box.text), std::string(box.caption), box.icon, {box.buttons.begin(), box.buttons.end()}, chosen, {}},
      sizeof(ShownBox) + box.text.size() + box.caption.size());
  ++openBoxes_;
  for (const Action& action : next.during) {
    std::string answer = TextOf(Carried(action));
    const std::size_t bytes = sizeof(answer) + answer.size();
    shown_.Grow(number, bytes, [&](ShownBox& shown) { shown.during.push_back(std::move(answer)); });
  }
  --openBoxes_;
  return chosen;
}

void VirtualHost::RequireRoomForBox() const {
  if (openBoxes_ >= kMostOpenBoxes) throw CommandError("eight message boxes are open");
}

Json VirtualHost::TakeShown() {
  return TakeAs("boxes", shown_, [](const ShownBox& box) {
    Json json = {{"text", box.text},
                 {"caption", box.caption},
                 {"icon", NameOf(box.icon)},
                 {"buttons", Json::array()},
                 {"answer", NameOf(box.answer)}};
    for (const BoxButton button : box.buttons) json["buttons"].push_back(NameOf(button));
    for (const std::string& answer : box.during) json["during"].push_back(Json::parse(answer));
    return json;
  });
}

void VirtualHost::Arm(int timer, std::int32_t milliseconds) {
  alarms_.at(static_cast<std::size_t>(timer)) = {.armed = true, .due = now_ + milliseconds, .order = ++armings_};
}

void VirtualHost::Disarm(int timer) { alarms_.at(static_cast<std::size_t>(timer)).armed = false; }

bool VirtualHost::Load(std::string_view fileName) {
  if (loadedIcons_.contains(fileName)) return true;
  const std::filesystem::path file = options_.iconFolder / fileName;
  std::error_code error;
  if (!std::filesystem::is_regular_file(file, error) || !std::ifstream(file, std::ios::binary).good()) return false;
  loadedIcons_.emplace(fileName);
  return true;
}

int VirtualHost::FirstTimer() const {
  int first = -1;
  for (std::size_t i = 0; i < alarms_.size(); ++i) {
    if (!alarms_[i].armed) continue;
    const Alarm* best = first < 0 ? nullptr : &alarms_[static_cast<std::size_t>(first)];
    if (best == nullptr || alarms_[i].due < best->due ||
        (alarms_[i].due == best->due && alarms_[i].order < best->order)) {
      first = static_cast<int>(i);
    }
  }
  return first;
}

Json Carried(const Action& action) {
  try {
    Json answer = action();
    answer["ok"] = true;
    return answer;
  } catch (const std::exception& error) {
    return Refused(error.what());
  }
}

std::string TextOf(const Json& answer) { return answer.dump(-1, ' ', false, Json::error_handler_t::replace); }

Json Refused(std::string_view why) { return {{"ok", false}, {"error", why}}; }

}  // namespace htr60::automation
