#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "codecs/codecs.h"
#include "form/form.h"
#include "shell/answer.h"
#include "shell/operands.h"
#include "shell/page_unit.h"
#include "shell/ports.h"

namespace htr60 {

/// Flags of the control: -1 set, 0 clear.
using Flag = std::int16_t;
inline constexpr Flag kSet = -1;
inline constexpr Flag kClear = 0;

/// Values of `ConnectionState`; it is empty until the first state answer.
inline constexpr std::string_view kConnected = "Connected";
inline constexpr std::string_view kDisconnected = "Disconnected";

/// A read or a write that went out.
struct SentRequest {
  bool write = false;
  int code = 0;  ///< as sent; 0 for "0" and what is no number
};

/// The user interface of one HTR60: a form, the channel to the DTM manager, and what lies between.
///
/// Everything runs on the host's one thread. Entries are noexcept: a run-time failure ends the handler in which it
/// happens, silently, and what was set before stays. A message box may let the host call further entries inside one.
class UserCntrl final : private FormEvents, public std::enable_shared_from_this<UserCntrl> {
 public:
  /// The control in its start state, with `TimerInit` running. `registry` must outlive it.
  static std::shared_ptr<UserCntrl> Create(const Ports& ports, const PageRegistry& registry);
  ~UserCntrl();

  // What the frame and the DTM manager call.

  /// Takes the interfaces of `dtm` and registers for answers. False where a step fails; the steps before it stand.
  bool Init(std::string_view invokeId, std::string_view functionCall, std::shared_ptr<IDtm> dtm) noexcept;
  bool PrepareToRelease() noexcept;
  /// One answer: `responseCode` is the read's code times 100, `document` its XML text (UTF-8).
  void UpdateUI(std::int32_t responseCode, std::string_view document) noexcept;
  /// The request document of 24 attribute values; "None" marks an unused one. Keeps no state and sends nothing.
  static std::string DocXML(std::span<const std::string_view, kAttributeCount> values);
  /// Fills `txtParameter(197)` or `(198)` with the amount of unit `Kvalue` in one inH2O at 68 °F, 1 for other units.
  void GetFactor1Unit(std::string_view Kvalue) noexcept;
  void GetFactor2Unit(std::string_view Kvalue) noexcept;

  // What the operator does; the host has checked that the control is enabled and to be seen.

  void Click(ButtonId button) noexcept;
  void Type(TextId field, std::string_view text) noexcept;
  void Pick(ChoiceId list, std::size_t row) noexcept;
  /// Nothing where the strip has no such tab.
  void ClickTab(TabsId strip, int index) noexcept;
  /// Activates a node by its text; `position` is the node's, or 0 where the tree has no such node.
  void Activate(std::string_view text, int position) noexcept;
  /// A program's set of a list from outside, for scripts: a closed list that refuses the text stays as it was.
  void SetList(ChoiceId list, std::string_view text) noexcept;

  /// A finished operation that no control of the form invokes; none where no unit has one of that name.
  const OperationRow* FindOperation(std::string_view name) const;
  /// Nothing where `index` is none of the operation's.
  void RunOperation(const OperationRow& operation, int index) noexcept;

  /// A timer armed at the port is due.
  void TimerDue(int timer) noexcept;

  // What page units use.

  void HideAllFrames();
  void StopPollingTimers();
  /// Stores a document of `operands`: what the next request sends that builds none of its own.
  void StoreDocument(const Operands& operands);
  /// Sets `RequestCode`, stores a document of `operands` and reads; panel 4 tells of it once the call has returned.
  void Read(int code, const Operands& operands = {});
  /// Reads with the stored document as it stands.
  void ReadStored(int code);
  /// Reads with `BlockSelector` in Attribute1.
  void ReadBlock(int code);
  /// Sends `RequestCode`, whatever it is, with a fresh document.
  void ReadFresh();
  /// Sends `RequestCode` with the stored document as it stands, and panel 4 keeps its text.
  void ReadQuietly();
  /// A page's own write button: stores the document, announces, arms the re-read, sends.
  void SmallWrite(int code, const Operands& operands, int rereadMs = 2000);
  /// Stores the document and sends; announces once the call has returned, and leaves the re-read to the caller.
  void Write(int code, const Operands& operands);
  void ArmReread(int milliseconds);
  void StartTimer(TimerId timer, int intervalMs);
  /// The first visit of a page: clears `flag` and fills the lists of that moment; nothing on later visits.
  void FirstVisit(FirstVisitFlag flag);
  void FillLists(FirstVisitFlag moment);
  BoxButton ShowBox(std::string_view text, std::string_view caption, BoxIcon icon = BoxIcon::kInformation);
  /// Yes or No; closing counts as No.
  bool AskYesNo(std::string_view text, std::string_view caption, BoxIcon icon = BoxIcon::kNone);
  /// The state of the unit whose `PageUnit::state` was made of `State`.
  template <class State>
  State& StateOf(const PageUnit& unit) {
    return *static_cast<State*>(StateSlot(unit));
  }

  // What a view asks once a turn.

  /// Response codes whose handlers have run since the last call, each once.
  std::vector<int> TakeHandledCodes();
  /// Whether a page reads by this timer again and again.
  bool IsPolling(TimerId timer) const;
  /// How many reads and writes have gone out without failing, and those since the last call, at most 256 of them.
  std::uint32_t ReadsSent() const { return readsSent_; }
  std::uint32_t WritesSent() const { return writesSent_; }
  std::vector<SentRequest> TakeSent();
  /// `cmdWriteParameter` has a write for the current page and sub-page.
  bool WritesHere() const;
  const PageRegistry& Pages() const { return registry_; }
  /// Node texts of the registry's rows are not looked at by a view; this is the node activated last.
  const std::string& LastActivated() const { return lastActivated_; }

  Form form{*this};
  Codecs codecs;

  // NOLINTBEGIN(readability-identifier-naming): the members keep the names under which frames and scripts know them.
  std::shared_ptr<IDtmCore> DtmCore;
  std::shared_ptr<IDtmCore> DtmCoreForEvents;  ///< not dropped by `PrepareToRelease`: lives as long as the control
  std::string InvokeId;
  std::shared_ptr<IDtmParameterAccess> ParameterAccess;
  std::string RequestCode;
  std::string RequestXml;
  std::string RequestResult;
  std::string BlockSelector;
  std::string ConnectionState;
  Flag FirstVisitSensor = kSet;
  Flag FirstVisitLcd = kSet;
  Flag FirstVisitMonit2 = kSet;
  Flag FirstVisitMonit3 = kSet;
  Flag FirstVisitMonit4 = kSet;
  Flag FirstVisitAi = kSet;
  Flag FirstVisitSpare = kSet;
  Flag FirstVisitTrd = kSet;
  Flag FirstVisitDensity = kSet;
  Flag FirstVisitLevel = kSet;
  Flag FirstVisitFactory = kSet;
  Flag FirstVisitCalib = kSet;
  Flag FirstVisitDensityCalib = kSet;
  Flag FirstVisitCalRef = kSet;
  Flag CheckOutScaleAfterWrite = kClear;
  std::string CurrentPage;
  std::string SubPage;
  Flag OfflineAsked = kClear;
  Flag SpareFlag = kClear;
  std::string CalibNodeText;
  std::string PreviousPVType;
  std::string AiPvType;
  Flag FwFlag104 = kClear;
  Flag FwFlag105 = kClear;
  Flag FwFlag106 = kClear;
  Flag FwFlag107 = kClear;
  Flag FwFlag108 = kClear;
  Flag FwFlag109 = kClear;
  Flag FwFlagUserIdent = kClear;
  // NOLINTEND(readability-identifier-naming)

 private:
  struct Tables;

  UserCntrl(const Ports& ports, const PageRegistry& registry);

  void TabChanged(const TabStrip& strip) override;
  void ListChanged(const ChoiceList& list) override;
  void TimerChanged(const Timer& timer, bool armed) override;
  void Changed() override;

  template <class Handler>
  void Guarded(Handler&& handler) noexcept;

  void UpdateConnectionState(std::string_view answer);
  void Dispatch(std::int32_t responseCode, std::string_view document);
  void NoteSent(bool write, std::string_view code);
  void SendRead();
  void SendWrite(std::string code);

  void OnTimerInit();
  void OnTimerReadAfterWrite();
  void OnPoll(const PollRow& row);
  void OnBack();
  void OnWriteParameter();
  void RunSteps(const std::vector<const PageStepRow*>& rows);
  bool HasHandler(TimerId timer) const;
  void* StateSlot(const PageUnit& unit);

  Ports ports_;
  const PageRegistry& registry_;
  std::unique_ptr<const Tables> tables_;
  std::vector<std::unique_ptr<AnswerReader>> readers_;  // idle ones: one answer in hand needs one
  std::vector<void*> states_;
  std::shared_ptr<IUpdateUI> receiver_;
  std::vector<int> handledCodes_;
  std::vector<SentRequest> sent_;
  std::uint32_t readsSent_ = 0;
  std::uint32_t writesSent_ = 0;
  std::string lastActivated_;
};

}  // namespace htr60
