#include "simulator/manager/manager.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "simulator/manager/request_document.h"
#include "text/failure.h"

namespace htr60::sim {
namespace {

constexpr int kStateRead = 90;
constexpr int kOfflineStateRead = 91;

bool IsState(int code) { return code == kStateRead || code == kOfflineStateRead; }

int CodeOf(std::string_view text) {
  constexpr int kMost = std::numeric_limits<std::int32_t>::max() / 100;
  int code = 0;
  const auto end = std::from_chars(text.data(), text.data() + text.size(), code);
  const bool whole = end.ec == std::errc() && end.ptr == text.data() + text.size();
  if (!whole || text.front() == '-' || code > kMost) throw RuntimeFailure("the code is no number");
  return code;
}

ReadOperands OperandsOf(std::string_view document) {
  ReadOperands operands;
  // The control resends whatever it sent last, so what stands in for a document may be anything.
  const auto attributes = ParseRequest(document);
  if (!attributes) return operands;
  operands.block = (*attributes)[0].value_or(std::string(kUnused));
  operands.name = (*attributes)[1].value_or(std::string(kUnused));
  return operands;
}

}  // namespace

std::shared_ptr<Manager> Manager::Create(const Settings& settings, std::function<std::int64_t()> now) {
  const std::shared_ptr<Manager> manager(new Manager(settings, std::move(now)));
  return manager;
}

Manager::Manager(const Settings& settings, std::function<std::int64_t()> now)
    : now_(std::move(now)),
      zero_(now_()),
      settings_(settings),
      device_(settings.device, settings.process, settings.timing.seed) {
  for (const auto& fault : settings_.faults) AddFault(fault, 0);
  device_.Settle();
}

Manager::~Manager() = default;

void Manager::RegisterUI(std::string_view /*className*/, std::string_view invokeId, std::shared_ptr<IUpdateUI> receiver,
                         std::int32_t /*number*/, bool& flag) {
  std::erase_if(receivers_, [invokeId](const auto& entry) { return entry.first == invokeId; });
  receivers_.emplace_back(std::string(invokeId), std::move(receiver));
  flag = true;
}

void Manager::UnregisterUI(std::string_view invokeId, std::int32_t /*number*/, bool& flag) {
  flag = std::erase_if(receivers_, [invokeId](const auto& entry) { return entry.first == invokeId; }) > 0;
}

void Manager::ReadRequest(std::string_view code, std::string_view document, std::string& result) {
  const int number = CodeOf(code);
  if (Uses(FaultKind::kReadFails, number)) throw RuntimeFailure("the read fails");
  result = "0";
  if (!online_ && !IsState(number)) return;
  if (!HasRoom("read", number)) return;
  Enqueue(settings_.timing.answerMs + Jitter() + Slowness(number),
          [this, number, operands = OperandsOf(document)](std::int64_t at) { AnswerDue(number, operands, at); });
}

void Manager::WriteRequest(std::string_view code, std::string_view document, std::string& result) {
  const int number = CodeOf(code);
  const auto parsed = ParseRequest(document);
  if (!parsed) throw RuntimeFailure("the document is no request");
  Attributes attributes;
  for (std::size_t i = 0; i < kAttributes; ++i) {
    if (!(*parsed)[i]) throw RuntimeFailure("the document lacks an attribute");
    attributes[i] = *(*parsed)[i];
  }
  if (Uses(FaultKind::kWriteFails, number)) throw RuntimeFailure("the write fails");
  result = "0";
  if (!online_ || !HasRoom("write", number)) return;
  Enqueue(settings_.timing.writeMs,
          [this, number, attributes = std::move(attributes)](std::int64_t at) { WriteDue(number, attributes, at); });
}

void Manager::Schedule(std::int64_t at, Action action, int fault) {
  items_.emplace(at, Item{std::move(action), fault});
  Changed();
}

void Manager::Enqueue(std::int64_t delay, Action action) {
  lastDue_ = std::max(Elapsed() + delay, lastDue_);
  ScheduleRequest(lastDue_, std::move(action));
}

void Manager::ScheduleRequest(std::int64_t at, Action action) {
  ++waiting_;
  Schedule(at, [this, action = std::move(action)](std::int64_t due) {
    --waiting_;
    action(due);
  });
}

/// False where too many requests wait already; this one is then taken and lost, as by a device that does not answer.
bool Manager::HasRoom(std::string_view kind, int code) {
  constexpr std::size_t kMostWaiting = 5000;
  if (waiting_ + held_.size() < kMostWaiting) return true;
  device_.Log(std::to_string(Elapsed()) + " ms " + std::string(kind) + " " + std::to_string(code) + ": lost, " +
              std::to_string(kMostWaiting) + " requests wait");
  return false;
}

void Manager::Changed() const {
  // The hook may be taken away while it runs.
  const auto hook = onScheduleChanged;
  if (hook) hook();
}

std::int64_t Manager::Jitter() {
  constexpr std::uint64_t kStream = 7;
  const auto most = static_cast<double>(settings_.timing.jitterMs);
  return static_cast<std::int64_t>(UniformNumber(settings_.timing.seed, kStream, ++requests_) * (most + 1));
}

std::int64_t Manager::Slowness(int code) {
  constexpr std::int64_t kDefault = 10000;
  std::int64_t slowness = 0;
  for (auto& fault : faults_) {
    if (!fault.Acts(FaultKind::kSlowAnswer, code)) continue;
    slowness += fault.settings.ms.value_or(kDefault);
    Use(fault);
  }
  return slowness;
}

bool Manager::Uses(FaultKind kind, int code) {
  for (auto& fault : faults_) {
    if (!fault.Acts(kind, code)) continue;
    Use(fault);
    return true;
  }
  return false;
}

std::optional<std::int64_t> Manager::NextDue() const {
  if (items_.empty()) return std::nullopt;
  return zero_ + items_.begin()->first;
}

bool Manager::RunOne(std::int64_t now) {
  if (items_.empty() || zero_ + items_.begin()->first > now) return false;
  // What is handled may let the host drop its last reference.
  const auto self = shared_from_this();
  auto item = items_.extract(items_.begin());
  item.mapped().action(item.key());
  ForgetEndedFaults();
  return true;
}

void Manager::Run(std::int64_t now) {
  const auto self = shared_from_this();
  while (RunOne(now)) {
  }
}

void Manager::AnswerDue(int code, const ReadOperands& operands, std::int64_t at) {
  if (!online_ && !IsState(code)) return;
  if (Uses(FaultKind::kNoAnswer, code)) return;
  if (Hold(code, operands, at)) return;
  Send(code, operands, at);
}

bool Manager::Hold(int code, const ReadOperands& operands, std::int64_t at) {
  constexpr std::int64_t kDefault = 20000;
  for (auto& fault : faults_) {
    if (!fault.Acts(FaultKind::kLateBurst, code)) continue;
    const int id = fault.id;
    const bool first = std::none_of(held_.begin(), held_.end(), [id](const Held& h) { return h.fault == id; });
    held_.push_back({id, code, operands});
    if (first)
      Schedule(
          at + fault.settings.ms.value_or(kDefault), [this, id](std::int64_t) { Release(id); }, id);
    Use(fault);
    return true;
  }
  return false;
}

void Manager::Release(int fault) {
  // Each answer is an item of its own, for a host may want to do something between two of them.
  const std::int64_t at = Elapsed();
  for (const auto& held : held_) {
    if (held.fault != fault) continue;
    ScheduleRequest(
        at, [this, code = held.code, operands = held.operands](std::int64_t due) { Send(code, operands, due); });
  }
  std::erase_if(held_, [fault](const Held& h) { return h.fault == fault; });
}

void Manager::Send(int code, const ReadOperands& operands, std::int64_t at) {
  if (IsState(code)) {
    SendState(code);
    return;
  }
  if (!online_) return;
  device_.CatchUp(at);
  const auto tags = AnswerRead(device_, code, operands);
  if (!tags && !settings_.timing.answerUnknownCodes) return;
  Deliver(code, AnswerDocument(tags.value_or(std::vector<AnswerTag>()), code, faults_));
}

void Manager::SendState(int code) { Deliver(code, StateDocument(online_, code, faults_)); }

void Manager::Deliver(int code, const std::string& document) {
  if (receivers_.empty()) return;
  const auto receiver = receivers_.back().second;
  if (receiver != nullptr) receiver->UpdateUI(code * 100, document);
}

void Manager::WriteDue(int code, const Attributes& attributes, std::int64_t at) {
  if (!online_) return;
  device_.CatchUp(at);
  ExecuteWrite(device_, code, attributes);
  if (const auto absence = device_.TakeAbsence()) {
    LeaveLink(at, *absence == Absence::kRestart ? settings_.timing.restartMs : settings_.timing.searchMs);
  }
}

}  // namespace htr60::sim
