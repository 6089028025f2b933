#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "observe/wire_words.h"
#include "shell/ports.h"

namespace htr60::observe {

enum class EntryKind : std::uint8_t { kRead, kWrite, kAnswer };

/// What has become of an entry. A write is never answered, so it is taken or has failed.
enum class EntryState : std::uint8_t {
  kWaiting,     ///< a read whose answer may still come
  kAnswered,    ///< a read with its answer
  kUnanswered,  ///< a read without one for ten seconds, or one whose successor was answered
  kTaken,       ///< a write that the manager has taken
  kFailed,      ///< the call failed, and nothing was sent
  kAnswer,      ///< an answer to a read
  kUnasked,     ///< an answer that nothing waited for
};

/// One request or answer, as it travelled.
struct Entry {
  std::uint64_t number = 0;  ///< from 1, without gaps
  std::int64_t at = 0;       ///< milliseconds of the host's clock
  EntryKind kind = EntryKind::kRead;
  EntryState state = EntryState::kWaiting;
  int code = 0;            ///< of a request its code, of an answer the response code
  std::uint64_t pair = 0;  ///< number of the request of an answer, or of the answer of a request; 0: none
  std::int64_t took = -1;  ///< from the request to its answer, of both; -1: unknown
  std::string page;        ///< from where a request was sent, in words
  std::string why;         ///< of a failure
  std::string document;    ///< its first `kMostKept` bytes
  std::size_t size = 0;    ///< of the whole document

  bool Cut() const { return document.size() < size; }
};

/// Hears of the traffic as it passes.
class TrafficListener {
 public:
  virtual ~TrafficListener() = default;
  virtual void OnRequest(const Entry& /*request*/) {}
  /// `request`: the one that is answered, where it is still known.
  virtual void OnAnswer(const Entry& /*answer*/, const Entry* /*request*/) {}
  /// The control has handled the answer to the read of that code.
  virtual void OnHandled(int /*code*/) {}
};

/// Writes down what passes between a control and its DTM manager. What it keeps is bounded: of more the oldest goes.
/// It decodes nothing before somebody asks.
class Observer {
 public:
  static constexpr std::size_t kMostEntries = 12'000;
  static constexpr std::size_t kMostKept = 8'192;
  static constexpr std::int64_t kPatienceMs = 10'000;

  explicit Observer(std::function<std::int64_t()> now) : now_(std::move(now)) {}
  Observer(const Observer&) = delete;
  Observer& operator=(const Observer&) = delete;

  /// What the operator has before him when something is sent; may be none.
  std::function<std::string()> page;

  /// `failure`: why the call failed; null: it did not.
  void Sent(bool write, std::string_view code, std::string_view document, const char* failure = nullptr);
  void Answered(std::int32_t responseCode, std::string_view document);
  void Handled(std::int32_t responseCode);

  std::int64_t Now() const { return now_(); }
  const std::deque<Entry>& Entries() const { return entries_; }
  /// Null where it has gone or is still to come.
  const Entry* Find(std::uint64_t number) const;
  /// The state as of now: a read that has waited too long is unanswered.
  EntryState StateOf(const Entry& entry) const;
  std::uint64_t Dropped() const { return first_ - 1; }
  /// Rises with each entry and each change of one.
  std::uint64_t Revision() const { return revision_; }
  /// Forgets the entries; units that are known stay known.
  void Clear();

  /// The documents that have gone, the newest of each read, in the order in which they came.
  std::vector<std::pair<WireRequest, std::string>> Gone() const;
  WireRequest RequestOf(const Entry& entry) const;

  void Add(TrafficListener& listener) { listeners_.push_back(&listener); }
  void Remove(TrafficListener& listener) { std::erase(listeners_, &listener); }

 private:
  struct Pending {
    std::uint64_t number = 0;
    std::int64_t at = 0;
    WireRequest request;
  };
  struct Old {
    std::uint64_t number = 0;
    WireRequest request;
    std::string document;
  };

  Entry& Push(EntryKind kind, int code, std::string_view document);
  Entry* FindOwn(std::uint64_t number) { return const_cast<Entry*>(Find(number)); }
  std::optional<Pending> TakePending(int code, std::int64_t now);
  void DropOldest();

  std::function<std::int64_t()> now_;
  std::deque<Entry> entries_;
  std::uint64_t first_ = 1;  // number of the first entry
  std::uint64_t revision_ = 0;
  std::map<int, std::deque<Pending>> pending_;       // reads by code, the oldest first
  std::map<int, std::int64_t> usual_;                // how long an answer took last, by code
  std::map<std::uint64_t, WireRequest> requests_;    // of the answers among the entries
  std::map<std::pair<int, std::string>, Old> gone_;  // by code and operands
  std::vector<TrafficListener*> listeners_;
};

/// "read", "write", "answer".
std::string_view NameOf(EntryKind kind);
/// "waiting", "answered", "no answer", "taken", "failed", "answer", "unasked".
std::string_view NameOf(EntryState state);

/// The DTM manager that a control sees: hands everything on to another one and tells the observer.
class ObservingDtm final : public IDtm,
                           public IDtmCore,
                           public IDtmParameterAccess,
                           public std::enable_shared_from_this<ObservingDtm> {
 public:
  ObservingDtm(std::shared_ptr<IDtm> dtm, std::shared_ptr<Observer> observer)
      : dtm_(std::move(dtm)), observer_(std::move(observer)) {}

  std::shared_ptr<IDtmCore> Core() override;
  std::shared_ptr<IDtmParameterAccess> ParameterAccess() override;
  void RegisterUI(std::string_view className, std::string_view invokeId, std::shared_ptr<IUpdateUI> receiver,
                  std::int32_t number, bool& flag) override;
  void UnregisterUI(std::string_view invokeId, std::int32_t number, bool& flag) override;
  void WriteRequest(std::string_view code, std::string_view document, std::string& result) override;
  void ReadRequest(std::string_view code, std::string_view document, std::string& result) override;

 private:
  template <class Call>
  void Watched(bool write, std::string_view code, std::string_view document, Call call);

  std::shared_ptr<IDtm> dtm_;
  std::shared_ptr<Observer> observer_;
  std::shared_ptr<IDtmCore> core_;
  std::shared_ptr<IDtmParameterAccess> access_;
};

}  // namespace htr60::observe
