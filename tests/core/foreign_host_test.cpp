// What a foreign manager and a foreign host may do inside a call of the control.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "pages/pages.h"
#include "shell/user_cntrl.h"
#include "text/failure.h"

namespace htr60 {
namespace {

struct PlainPorts : IMessageBoxes, ITimers, IIcons, IFormWatcher {
  bool disarmFails = false;
  bool watcherFails = false;

  BoxButton Show(const ModalBox& box) override { return box.buttons.front(); }
  void Arm(int, std::int32_t) override {}
  void Disarm(int) override {
    if (disarmFails) throw RuntimeFailure("no timer service");
  }
  bool Load(std::string_view) override { return true; }
  void FormChanged() override {
    if (watcherFails) throw RuntimeFailure("no view");
  }
};

/// A manager that pumps messages inside its calls, and looks at what it was handed before and after.
class PumpingDtm : public IDtm,
                   public IDtmCore,
                   public IDtmParameterAccess,
                   public std::enable_shared_from_this<PumpingDtm> {
 public:
  explicit PumpingDtm(bool& ended) : ended_(ended) {}
  ~PumpingDtm() override { ended_ = true; }

  std::function<void()> pump;
  std::vector<std::string> differing;  // what changed while its call ran

  std::shared_ptr<IDtmCore> Core() override { return shared_from_this(); }
  std::shared_ptr<IDtmParameterAccess> ParameterAccess() override { return shared_from_this(); }
  void RegisterUI(std::string_view, std::string_view invokeId, std::shared_ptr<IUpdateUI>, std::int32_t,
                  bool&) override {
    Watch("RegisterUI", invokeId, {});
  }
  void UnregisterUI(std::string_view invokeId, std::int32_t, bool&) override { Watch("UnregisterUI", invokeId, {}); }
  void WriteRequest(std::string_view code, std::string_view document, std::string& result) override {
    Watch("WriteRequest", code, document);
    result = "0";
  }
  void ReadRequest(std::string_view code, std::string_view document, std::string& result) override {
    Watch("ReadRequest", code, document);
    result = "0";
  }

 private:
  void Watch(const char* call, std::string_view first, std::string_view second) {
    const std::string firstBefore(first);
    const std::string secondBefore(second);
    if (const auto once = std::exchange(pump, nullptr)) once();
    EXPECT_FALSE(ended_) << call;
    if (first != firstBefore || second != secondBefore) differing.emplace_back(call);
  }

  bool& ended_;
};

class ForeignHost : public testing::Test {
 protected:
  std::shared_ptr<UserCntrl> Create() {
    return UserCntrl::Create({.boxes = ports_, .timers = ports_, .icons = ports_, .watcher = &ports_}, PagesOfHtr60());
  }

  PlainPorts ports_;
  bool ended_ = false;
};

TEST_F(ForeignHost, ArgumentsOfACallStandUntilItReturns) {
  auto control = Create();
  const auto dtm = std::make_shared<PumpingDtm>(ended_);
  const std::string longId(200, 'x');
  dtm->pump = [&] { control->Init(longId, "", dtm); };
  control->Init("7", "", dtm);
  EXPECT_EQ(control->InvokeId, longId);
  control->UpdateUI(9000, "<DTMInfo state='Online' />");

  // A tag that is escaped makes the next document longer, so that its text moves.
  control->Type(id::txtParameter(0), std::string(2000, '&'));
  const std::function<void()> kActs[] = {
      [&] { control->Activate("Analog Input 2", 0); },
      [&] { control->Click(id::cmdWriteParameter); },
      [&] { control->TimerDue(static_cast<int>(TimerId::TimerInit)); },
      [&] { control->Init("8", "", dtm); },
  };
  for (const auto& act : kActs) {
    for (const auto& call : {std::function<void()>([&] { control->Activate("Blocks", 0); }),
                             std::function<void()>([&] { control->Click(id::cmdWriteParameter); }),
                             std::function<void()>([&] { control->PrepareToRelease(); })}) {
      control->Init("a first id that is too long to stand in place", "", dtm);
      control->CurrentPage = "Identification";
      control->RequestCode = "a code that is too long to stand in place";
      dtm->pump = act;
      call();
      EXPECT_FALSE(dtm->pump);
    }
  }
  EXPECT_EQ(dtm->differing, std::vector<std::string>());
}

TEST_F(ForeignHost, TheInterfaceCalledIsHeld) {
  for (const bool release : {true, false}) {
    ended_ = false;
    auto control = Create();
    auto dtm = std::make_shared<PumpingDtm>(ended_);
    control->Init("7", "", dtm);
    PumpingDtm* seen = dtm.get();
    dtm.reset();
    seen->pump = [&] {
      control->PrepareToRelease();
      control->DtmCoreForEvents.reset();
      if (!release) control.reset();
    };
    UserCntrl& alive = *control;
    alive.Activate("Observe", 0);
    EXPECT_TRUE(ended_) << "let go once the call had returned";
  }
}

TEST_F(ForeignHost, NoFailureLeavesTheControl) {
  auto control = Create();
  ports_.watcherFails = true;
  control->form.TakeChanges();
  control->GetFactor1Unit("kPa");
  control->form.TakeChanges();
  control->GetFactor2Unit("kPa");
  ports_.watcherFails = false;
  ports_.disarmFails = true;  // TimerInit still runs
  control.reset();
}

TEST_F(ForeignHost, ATabThatIsNotThereIsNoClick) {
  auto control = Create();
  const auto dtm = std::make_shared<PumpingDtm>(ended_);
  control->Init("7", "", dtm);
  for (std::uint16_t ordinal = 0; ordinal < kControlCount; ++ordinal) {
    if (KindOf(ControlId{ordinal}) != ControlKind::kTabs) continue;
    const TabsId strip{ControlId{ordinal}};
    const int tabs = static_cast<int>(control->form.At(strip).Captions().size());
    ASSERT_GE(tabs, 2);
    control->RequestCode = "kept";
    for (const int index : {-1, tabs, 1000, -2147483647}) {
      control->ClickTab(strip, index);
      EXPECT_EQ(control->form.At(strip).Index(), 0);
      EXPECT_EQ(control->RequestCode, "kept");
    }
  }
}

TEST_F(ForeignHost, HandledCodesThatNobodyTakesDoNotPileUp) {
  auto control = Create();
  for (int i = 0; i < 1000; ++i) {
    control->UpdateUI(800, "<A><P tag='TRDTempUnit' value='03E9'/></A>");
    control->UpdateUI(7900, "<A><P tag='TRDPVType' value='0000'/></A>");
  }
  EXPECT_EQ(control->TakeHandledCodes(), (std::vector<int>{800, 7900}));
  EXPECT_TRUE(control->TakeHandledCodes().empty());
}

TEST(OperandList, HasAnAttributeForEachOrThrows) {
  Operands operands;
  for (std::size_t i = 0; i < kAttributeCount; ++i) operands.Add("x");
  EXPECT_THROW(operands.Add("y"), RuntimeFailure);
  EXPECT_EQ(operands[kAttributeCount - 1], "x");
}

}  // namespace
}  // namespace htr60
