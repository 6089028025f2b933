#include "shell/user_cntrl.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "shell/guard.h"
#include "shell/page_steps.h"
#include "shell/tables.h"
#include "text/failure.h"
#include "text/utf8.h"

namespace htr60 {
namespace {

constexpr std::string_view kClassName = "PrjMainWQ512DTM.MainWQ512DTM";
constexpr std::size_t kMostSent = 256;  // where nobody takes them
constexpr int kTrafficPanel = 4;
constexpr int kConnectionPanel = 1;
constexpr std::string_view kReading = "Reading Xmtr Data...";
constexpr std::string_view kWriting = "Writing Xmtr Data...";

// The receiver that the DTM manager holds. It does not hold the control, so an answer after its end finds nothing.
class Receiver final : public IUpdateUI {
 public:
  explicit Receiver(std::weak_ptr<UserCntrl> control) : control_(std::move(control)) {}
  void UpdateUI(std::int32_t responseCode, std::string_view answer) noexcept override {
    if (const auto control = control_.lock()) control->UpdateUI(responseCode, answer);
  }

 private:
  std::weak_ptr<UserCntrl> control_;
};

}  // namespace

UserCntrl::UserCntrl(const Ports& ports, const PageRegistry& registry)
    : codecs(ports.decimalSeparator), ports_(ports), registry_(registry), tables_(std::make_unique<Tables>(registry)) {
  for (const PageUnit* unit : registry_.units) {
    for (const PageLayout& layout : unit->layouts) {
      form.DeclarePage(layout.frame, layout.frame == registry_.start.frame);
    }
    states_.push_back(unit->state.make != nullptr ? unit->state.make() : nullptr);
  }
}

UserCntrl::~UserCntrl() {
  for (std::size_t i = 0; i < states_.size(); ++i) {
    if (states_[i] != nullptr) registry_.units[i]->state.destroy(states_[i]);
  }
  for (std::size_t i = 0; i < kTimerCount; ++i) {
    if (!form.At(static_cast<TimerId>(i)).Running()) continue;
    Ignoring([&] { ports_.timers.Disarm(static_cast<int>(i)); });
  }
}

std::shared_ptr<UserCntrl> UserCntrl::Create(const Ports& ports, const PageRegistry& registry) {
  const std::shared_ptr<UserCntrl> control(new UserCntrl(ports, registry));
  control->receiver_ = std::make_shared<Receiver>(control);
  control->Guarded([&] {
    registry.buildTree(*control, TreeShape::kBase);
    control->FillLists(kAtStart);
    control->StartTimer(TimerId::TimerInit, 2000);
  });
  return control;
}

bool UserCntrl::Init(std::string_view invokeId, std::string_view /*functionCall*/, std::shared_ptr<IDtm> dtm) noexcept {
  bool attached = false;
  Guarded([&] {
    InvokeId = invokeId;
    if (dtm == nullptr) throw RuntimeFailure("no DTM object");
    DtmCore = dtm->Core();
    DtmCoreForEvents = DtmCore;
    if (DtmCore == nullptr) throw RuntimeFailure("no core interface");
    ParameterAccess = dtm->ParameterAccess();
    if (ParameterAccess == nullptr) throw RuntimeFailure("no parameter access");
    const std::shared_ptr<IDtmCore> core = DtmCoreForEvents;
    const std::string id = InvokeId;
    bool flag = false;
    core->RegisterUI(kClassName, id, receiver_, 0, flag);
    attached = true;
  });
  return attached;
}

bool UserCntrl::PrepareToRelease() noexcept {
  Guarded([&] {
    if (const std::shared_ptr<IDtmCore> core = DtmCore) {
      const std::string id = InvokeId;
      bool flag = false;
      core->UnregisterUI(id, -1, flag);
    }
    DtmCore.reset();
    ParameterAccess.reset();
  });
  return true;
}

void UserCntrl::UpdateUI(std::int32_t responseCode, std::string_view document) noexcept {
  Guarded([&] {
    form.statusBar.SetText(kTrafficPanel, "");
    Guarded([&] { UpdateConnectionState(document); });
    Dispatch(responseCode, document);
  });
}

void UserCntrl::UpdateConnectionState(std::string_view answer) {
  constexpr std::string_view kStateAnswer = "<DTMInfo state='";
  constexpr std::string_view kOnline = "<DTMInfo state='Online' />";
  // Compared by length and prefix alone: "<DTMInfo state='Online'/>" is one character short and settles nothing.
  if (answer.starts_with(kStateAnswer) && HasCharacters(answer, kOnline.size())) {
    ConnectionState = answer.starts_with(kOnline) ? kConnected : kDisconnected;
  }
  const bool connected = ConnectionState == kConnected;
  form.statusBar.SetText(kConnectionPanel, connected ? kConnected : kDisconnected);
  const std::string_view icon = connected ? "connected.ico" : "no connection.ico";
  bool loaded = false;
  Guarded([&] { loaded = ports_.icons.Load(icon); });
  form.statusBar.SetPicture(kConnectionPanel, loaded ? icon : std::string_view());
}

void UserCntrl::Dispatch(std::int32_t responseCode, std::string_view document) {
  const AnswerRow* row = tables_->FindAnswer(responseCode);
  if (row == nullptr || !row->run) return;
  // A message box in a handler may let another answer in, so the reader in use is not among the idle ones.
  std::unique_ptr<AnswerReader> reader;
  if (readers_.empty()) {
    reader = std::make_unique<AnswerReader>();
  } else {
    reader = std::move(readers_.back());
    readers_.pop_back();
  }
  if (const Answer* answer = reader->Read(document)) {
    Guarded([&] { row->run(*this, *answer); });
    if (std::find(handledCodes_.begin(), handledCodes_.end(), responseCode) == handledCodes_.end()) {
      handledCodes_.push_back(responseCode);
    }
    Changed();
  } else if (row->unreadable) {
    Guarded([&] { row->unreadable(*this); });
  }
  if (!reader->Outgrown()) readers_.push_back(std::move(reader));
}

std::vector<int> UserCntrl::TakeHandledCodes() { return std::exchange(handledCodes_, {}); }

void UserCntrl::Click(ButtonId button) noexcept {
  Guarded([&] {
    if (button == id::cmdBack) return OnBack();
    if (button == id::cmdWriteParameter) return OnWriteParameter();
    if (const Call<void>& run = tables_->buttons[SlotOf(button)]) run(*this);
  });
}

void UserCntrl::Type(TextId field, std::string_view text) noexcept {
  Guarded([&] { form.At(field).Type(text); });
}

void UserCntrl::Pick(ChoiceId list, std::size_t row) noexcept {
  Guarded([&] { form.At(list).Pick(row); });
}

void UserCntrl::ClickTab(TabsId strip, int index) noexcept {
  Guarded([&] {
    TabStrip& tabs = form.At(strip);
    if (index >= 0 && index < static_cast<int>(tabs.Captions().size())) tabs.SetIndex(index);
  });
}

void UserCntrl::Activate(std::string_view text, int position) noexcept {
  Guarded([&] {
    const std::string node(text);  // a rebuild of the tree during a message box must not take the text away
    lastActivated_ = node;
    if (position > 0) form.treeView.Select(position);
    registry_.onTreeNodeClick(*this, node, position);
  });
}

void UserCntrl::SetList(ChoiceId list, std::string_view text) noexcept {
  Guarded([&] { form.At(list).SetText(text); });
}

const OperationRow* UserCntrl::FindOperation(std::string_view name) const {
  for (const PageUnit* unit : registry_.units) {
    for (const OperationRow& row : unit->operations) {
      if (row.name == name) return &row;
    }
  }
  return nullptr;
}

void UserCntrl::RunOperation(const OperationRow& operation, int index) noexcept {
  Guarded([&] {
    if (index >= 0 && index < operation.indexes) operation.run(*this, index);
  });
}

void UserCntrl::TabChanged(const TabStrip& strip) {
  const TabRow* row = tables_->tabs[SlotOf(TabsId{strip.Id()})];
  if (row == nullptr) return;
  Guarded([&] {
    const int tab = strip.Index();
    if (row->run) return row->run(*this, tab);
    RunTab(*this, row->steps[static_cast<std::size_t>(tab)]);
  });
}

void UserCntrl::ListChanged(const ChoiceList& list) {
  if (const Call<void>& run = tables_->lists[SlotOf(ChoiceId{list.Id()})]) Guarded([&] { run(*this); });
}

void UserCntrl::Changed() {
  if (ports_.watcher != nullptr) ports_.watcher->FormChanged();
}

void UserCntrl::Read(int code, const Operands& operands) {
  RequestCode = std::to_string(code);
  StoreDocument(operands);
  SendRead();
}

void UserCntrl::ReadFresh() {
  StoreDocument({});
  SendRead();
}

void UserCntrl::ReadStored(int code) {
  RequestCode = std::to_string(code);
  SendRead();
}

void UserCntrl::ReadBlock(int code) { Read(code, {BlockSelector.empty() ? "None" : BlockSelector}); }

void UserCntrl::SendRead() {
  ReadQuietly();
  form.statusBar.SetText(kTrafficPanel, kReading);
}

// A foreign manager may do anything inside a call: whatever it is handed belongs to the call, not to the control.
void UserCntrl::ReadQuietly() {
  const std::shared_ptr<IDtmParameterAccess> access = ParameterAccess;
  if (access == nullptr) throw RuntimeFailure("not attached");
  const std::string code = RequestCode;
  const std::string document = RequestXml;
  std::string result;
  access->ReadRequest(code, document, result);
  NoteSent(false, code);
  RequestResult = std::move(result);
}

void UserCntrl::NoteSent(bool write, std::string_view code) {
  ++(write ? writesSent_ : readsSent_);
  if (sent_.size() == kMostSent) sent_.erase(sent_.begin());
  int number = 0;
  std::from_chars(code.data(), code.data() + code.size(), number);
  sent_.push_back({write, number});
}

std::vector<SentRequest> UserCntrl::TakeSent() { return std::exchange(sent_, {}); }

bool UserCntrl::WritesHere() const { return Tables::Find(tables_->writes, CurrentPage, SubPage) != nullptr; }

void UserCntrl::StoreDocument(const Operands& operands) {
  std::array<std::string_view, kAttributeCount> values;
  for (std::size_t i = 0; i < kAttributeCount; ++i) values[i] = operands[i];
  RequestXml = DocXML(values);
}

void UserCntrl::SmallWrite(int code, const Operands& operands, int rereadMs) {
  StoreDocument(operands);
  RequestCode = std::to_string(code);
  form.statusBar.SetText(kTrafficPanel, kWriting);
  ArmReread(rereadMs);
  SendWrite(RequestCode);
}

void UserCntrl::Write(int code, const Operands& operands) {
  StoreDocument(operands);
  RequestCode = std::to_string(code);
  SendWrite(RequestCode);
  form.statusBar.SetText(kTrafficPanel, kWriting);
}

void UserCntrl::SendWrite(std::string code) {
  const std::shared_ptr<IDtmParameterAccess> access = ParameterAccess;
  if (access == nullptr) throw RuntimeFailure("not attached");
  const std::string document = RequestXml;
  std::string result;
  access->WriteRequest(code, document, result);
  NoteSent(true, code);
  RequestResult = std::move(result);
}

void UserCntrl::ArmReread(int milliseconds) {
  Timer& timer = form.At(TimerId::TimerReadAfterWrite);
  timer.SetEnabled(true);
  timer.SetInterval(milliseconds);
}

void UserCntrl::StartTimer(TimerId timer, int intervalMs) {
  form.At(timer).SetInterval(intervalMs);
  form.At(timer).SetEnabled(true);
}

void UserCntrl::FirstVisit(FirstVisitFlag flag) {
  if (this->*flag == kClear) return;
  this->*flag = kClear;
  FillLists(flag);
}

void UserCntrl::FillLists(FirstVisitFlag moment) {
  for (const FillRow* row : tables_->fills) {
    if (row->moment == moment) form.At(row->list).Fill(row->rows);
  }
}

BoxButton UserCntrl::ShowBox(std::string_view text, std::string_view caption, BoxIcon icon) {
  static constexpr BoxButton kOkAlone[] = {BoxButton::kOk};
  return ports_.boxes.Show({text, caption, icon, kOkAlone});
}

bool UserCntrl::AskYesNo(std::string_view text, std::string_view caption, BoxIcon icon) {
  static constexpr BoxButton kYesNo[] = {BoxButton::kYes, BoxButton::kNo};
  return ports_.boxes.Show({text, caption, icon, kYesNo}) == BoxButton::kYes;
}

void* UserCntrl::StateSlot(const PageUnit& unit) {
  for (std::size_t i = 0; i < states_.size(); ++i) {
    if (registry_.units[i] == &unit) return states_[i];
  }
  throw RuntimeFailure("unit is not of this control");
}

}  // namespace htr60
