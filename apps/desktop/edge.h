#pragma once

#include <QObject>
#include <functional>
#include <ostream>
#include <set>
#include <string>
#include <type_traits>
#include <utility>

namespace htr60::desktop {

/// Writes one line for each different failure, and no more than a few: a paint may fail at every turn.
class FailureLog {
 public:
  static constexpr std::size_t kMostLines = 20;

  explicit FailureLog(std::ostream& out) : out_(out) {}
  void Report(const std::string& what);

 private:
  std::ostream& out_;
  std::set<std::string> reported_;
};

/// Tells the log on standard error of the exception that is being handled.
void ReportFailure() noexcept;

/// The edge between Qt and the view: a failure of `handler` ends it here, is told, and never unwinds a frame of Qt.
template <class Handler>
void Guarded(Handler&& handler) noexcept {
  try {
    std::forward<Handler>(handler)();
  } catch (...) {
    ReportFailure();
  }
}

/// The same for a handler that answers whether it has taken the event; after a failure it has not.
template <class Handler>
bool GuardedTakes(Handler&& handler) noexcept {
  bool taken = false;
  Guarded([&] { taken = std::forward<Handler>(handler)(); });
  return taken;
}

/// `slot`, a lambda or a member of `receiver`, within its edge; for Qt to call.
template <class Receiver, class Owner, class Result, class... Arguments>
auto AtEdge(Receiver* receiver, Result (Owner::*slot)(Arguments...)) {
  return [receiver, slot](Arguments... arguments) { Guarded([&] { std::invoke(slot, receiver, arguments...); }); };
}
template <class Lambda, class Result, class... Arguments>
auto AtEdge(Lambda lambda, Result (Lambda::* /*signature*/)(Arguments...) const) {
  return [lambda](Arguments... arguments) { Guarded([&] { lambda(arguments...); }); };
}
template <class Receiver, class Lambda, class = std::enable_if_t<std::is_class_v<Lambda>>>
auto AtEdge(Receiver* /*receiver*/, Lambda lambda) {
  return AtEdge(std::move(lambda), &Lambda::operator());
}

/// Every connection to code of the view is made by this: its slot runs within its edge.
template <class Sender, class Signal, class Receiver, class Slot>
QMetaObject::Connection Connect(const Sender* sender, Signal signal, Receiver* receiver, Slot slot) {
  return QObject::connect(sender, signal, receiver, AtEdge(receiver, std::move(slot)));
}

}  // namespace htr60::desktop
