#include "observe/observer.h"

#include <algorithm>
#include <charconv>

#include "text/failure.h"

namespace htr60::observe {
namespace {

int NumberOf(std::string_view code) {
  int number = 0;
  std::from_chars(code.data(), code.data() + code.size(), number);
  return number;
}

/// Stands before the control's receiver.
class ObservingReceiver final : public IUpdateUI {
 public:
  ObservingReceiver(std::shared_ptr<Observer> observer, std::shared_ptr<IUpdateUI> receiver)
      : observer_(std::move(observer)), receiver_(std::move(receiver)) {}

  void UpdateUI(std::int32_t responseCode, std::string_view answer) noexcept override {
    // The control may be released inside, and this object with it.
    const std::shared_ptr<Observer> observer = observer_;
    const std::shared_ptr<IUpdateUI> receiver = receiver_;
    try {
      observer->Answered(responseCode, answer);
    } catch (...) {  // what cannot be written down reaches the control nevertheless
    }
    if (receiver) receiver->UpdateUI(responseCode, answer);
    try {
      observer->Handled(responseCode);
    } catch (...) {
    }
  }

 private:
  std::shared_ptr<Observer> observer_;
  std::shared_ptr<IUpdateUI> receiver_;
};

}  // namespace

std::string_view NameOf(EntryKind kind) {
  switch (kind) {
    case EntryKind::kWrite:
      return "write";
    case EntryKind::kAnswer:
      return "answer";
    case EntryKind::kRead:
      break;
  }
  return "read";
}

std::string_view NameOf(EntryState state) {
  switch (state) {
    case EntryState::kAnswered:
      return "answered";
    case EntryState::kUnanswered:
      return "no answer";
    case EntryState::kTaken:
      return "taken";
    case EntryState::kFailed:
      return "failed";
    case EntryState::kAnswer:
      return "answer";
    case EntryState::kUnasked:
      return "unasked";
    case EntryState::kWaiting:
      break;
  }
  return "waiting";
}

Entry& Observer::Push(EntryKind kind, int code, std::string_view document) {
  Entry entry;
  entry.number = first_ + entries_.size();
  entry.at = now_();
  entry.kind = kind;
  entry.code = code;
  entry.document = document.substr(0, kMostKept);
  entry.size = document.size();
  entries_.push_back(std::move(entry));
  ++revision_;
  if (entries_.size() > kMostEntries) DropOldest();
  return entries_.back();
}

// An answer that goes leaves what it told of units.
void Observer::DropOldest() {
  Entry& oldest = entries_.front();
  if (const auto request = requests_.find(oldest.number); request != requests_.end()) {
    const WireRequest& asked = request->second;
    Old& old = gone_[{asked.code, asked.operands.block + "/" + asked.operands.name}];
    old = {oldest.number, asked, std::move(oldest.document)};
    requests_.erase(request);
    // Operands are the operator's: a script may send as many as it likes.
    constexpr std::size_t kMostGone = 300;
    if (gone_.size() > kMostGone) {
      gone_.erase(std::min_element(gone_.begin(), gone_.end(),
                                   [](const auto& a, const auto& b) { return a.second.number < b.second.number; }));
    }
  }
  entries_.pop_front();
  ++first_;
}

void Observer::Clear() {
  while (!entries_.empty()) DropOldest();
  ++revision_;
}

const Entry* Observer::Find(std::uint64_t number) const {
  if (number < first_ || number - first_ >= entries_.size()) return nullptr;
  return &entries_[static_cast<std::size_t>(number - first_)];
}

EntryState Observer::StateOf(const Entry& entry) const {
  const bool late = entry.state == EntryState::kWaiting && now_() - entry.at > kPatienceMs;
  return late ? EntryState::kUnanswered : entry.state;
}

void Observer::Sent(bool write, std::string_view code, std::string_view document, const char* failure) {
  WireRequest request{write, NumberOf(code), {}};
  const std::string from = page ? page() : std::string();
  Entry& entry = Push(write ? EntryKind::kWrite : EntryKind::kRead, request.code, document);
  entry.page = from;
  if (failure != nullptr) {
    entry.state = EntryState::kFailed;
    entry.why = failure;
  } else if (write) {
    entry.state = EntryState::kTaken;
  } else {
    if (DependsOnOperands(request.code)) request.operands = OperandsOf(document);
    std::deque<Pending>& waiting = pending_[request.code];
    waiting.push_back({entry.number, entry.at, std::move(request)});
    constexpr std::size_t kMostPending = 1000;
    if (waiting.size() > kMostPending) waiting.pop_front();
  }
  const Entry told = entry;
  for (TrafficListener* listener : std::vector(listeners_)) listener->OnRequest(told);
}

// Answers carry no number of their request. Where several reads of one code wait, some may be lost and some be slow:
// the answer belongs to the newest that has waited about as long as the answer before it took, else to the oldest. What
// is passed over so has no answer.
std::optional<Observer::Pending> Observer::TakePending(int code, std::int64_t now) {
  const auto found = pending_.find(code);
  if (found == pending_.end() || found->second.empty()) return std::nullopt;
  std::deque<Pending>& waiting = found->second;
  auto chosen = waiting.begin();
  if (const auto usual = usual_.find(code); usual != usual_.end()) {
    constexpr std::int64_t kSlack = 250;
    const auto fits = [&](const Pending& pending) {
      return std::abs(now - pending.at - usual->second) <= usual->second / 2 + kSlack;
    };
    const auto fitting = std::find_if(waiting.begin(), waiting.end(), fits);
    if (fitting != waiting.end()) chosen = fitting;
  }
  Pending taken = std::move(*chosen);
  for (auto passed = waiting.begin(); passed != chosen; ++passed) {
    if (Entry* entry = FindOwn(passed->number)) entry->state = EntryState::kUnanswered;
  }
  waiting.erase(waiting.begin(), std::next(chosen));
  usual_[code] = now - taken.at;
  return taken;
}

void Observer::Answered(std::int32_t responseCode, std::string_view document) {
  const std::int64_t now = now_();
  const int code = responseCode / 100;
  const std::optional<Pending> asked = TakePending(code, now);
  Entry& entry = Push(EntryKind::kAnswer, responseCode, document);
  entry.state = asked ? EntryState::kAnswer : EntryState::kUnasked;
  requests_[entry.number] = asked ? asked->request : WireRequest{false, code, {}};
  Entry* request = asked ? FindOwn(asked->number) : nullptr;
  if (asked) {
    entry.pair = asked->number;
    entry.took = now - asked->at;
  }
  if (request != nullptr) {
    entry.page = request->page;
    request->state = EntryState::kAnswered;
    request->pair = entry.number;
    request->took = entry.took;
  }
  const Entry told = entry;
  const std::optional<Entry> toldRequest = request == nullptr ? std::nullopt : std::optional(*request);
  for (TrafficListener* listener : std::vector(listeners_)) {
    listener->OnAnswer(told, toldRequest ? &*toldRequest : nullptr);
  }
}

void Observer::Handled(std::int32_t responseCode) {
  for (TrafficListener* listener : std::vector(listeners_)) listener->OnHandled(responseCode / 100);
}

std::vector<std::pair<WireRequest, std::string>> Observer::Gone() const {
  std::vector<const Old*> order;
  for (const auto& [key, old] : gone_) order.push_back(&old);
  std::sort(order.begin(), order.end(), [](const Old* a, const Old* b) { return a->number < b->number; });
  std::vector<std::pair<WireRequest, std::string>> documents;
  for (const Old* old : order) documents.emplace_back(old->request, old->document);
  return documents;
}

WireRequest Observer::RequestOf(const Entry& entry) const {
  if (entry.kind != EntryKind::kAnswer) {
    return {entry.kind == EntryKind::kWrite, entry.code, OperandsOf(entry.document)};
  }
  const auto found = requests_.find(entry.number);
  return found == requests_.end() ? WireRequest{false, entry.code / 100, {}} : found->second;
}

// ---- the manager

std::shared_ptr<IDtmCore> ObservingDtm::Core() {
  core_ = dtm_->Core();
  return core_ == nullptr ? nullptr : shared_from_this();
}

std::shared_ptr<IDtmParameterAccess> ObservingDtm::ParameterAccess() {
  access_ = dtm_->ParameterAccess();
  return access_ == nullptr ? nullptr : shared_from_this();
}

void ObservingDtm::RegisterUI(std::string_view className, std::string_view invokeId,
                              std::shared_ptr<IUpdateUI> receiver, std::int32_t number, bool& flag) {
  if (receiver != nullptr) receiver = std::make_shared<ObservingReceiver>(observer_, std::move(receiver));
  core_->RegisterUI(className, invokeId, std::move(receiver), number, flag);
}

void ObservingDtm::UnregisterUI(std::string_view invokeId, std::int32_t number, bool& flag) {
  core_->UnregisterUI(invokeId, number, flag);
}

template <class Call>
void ObservingDtm::Watched(bool write, std::string_view code, std::string_view document, Call call) {
  try {
    call();
  } catch (const std::exception& failure) {
    observer_->Sent(write, code, document, failure.what());
    throw;
  }
  observer_->Sent(write, code, document);
}

void ObservingDtm::WriteRequest(std::string_view code, std::string_view document, std::string& result) {
  Watched(true, code, document, [&] { access_->WriteRequest(code, document, result); });
}

void ObservingDtm::ReadRequest(std::string_view code, std::string_view document, std::string& result) {
  Watched(false, code, document, [&] { access_->ReadRequest(code, document, result); });
}

}  // namespace htr60::observe
