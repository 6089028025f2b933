#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <memory>
#include <string>
#include <vector>

#include "desktop/page/page_area.h"
#include "desktop/page/page_view.h"
#include "desktop/qt_text.h"
#include "form/control_names.h"
#include "shell/operands.h"
#include "shell/page_unit.h"
#include "shell/user_cntrl.h"

namespace htr60::desktop {

// ---- a small control of its own: two pages that have everything a layout can say

inline constexpr LayoutRow kNumberRows[] = {
    {.caption = "Upper", .kind = RowKind::kNum, .control = id::txtParameter(37), .unit = "%", .note = "The upper end."},
    {.caption = "Lower", .kind = RowKind::kNum, .control = id::txtParameter(40), .unit = Echo(id::lbArray(465))},
    {.caption = "Mode", .kind = RowKind::kList, .control = id::cmbPVSimulateEnable},
    {.caption = "Write", .kind = RowKind::kWrite, .control = id::cmdWriteCalPoint},
};
inline constexpr LayoutRow kTextRows[] = {
    {.caption = "Tag", .captionControl = id::lbArray(107), .kind = RowKind::kEdit, .control = id::txtParameter(0)},
    {.caption = "Value",
     .kind = RowKind::kValue,
     .control = id::txtParameter(60),
     .unit = id::lbArray(466),
     .second = id::txtParameter(299)},
    {.caption = "Points", .captionControl = id::cmdTablePoints, .kind = RowKind::kOpen, .control = id::cmdTablePoints},
};
inline constexpr LayoutRow kCommandRows[] = {
    {.caption = "Reset", .kind = RowKind::kList, .control = id::cmbFactoryReset, .role = RowRole::kCommand},
    {.caption = "Live", .kind = RowKind::kNum, .control = id::txtParameter(125), .live = true},
    {.caption = "Next", .kind = RowKind::kNum, .control = id::txtParameter(38), .role = RowRole::kStateless},
};
inline constexpr LayoutRow kLimitRows[] = {
    {.caption = "Limit", .kind = RowKind::kNum, .control = id::txtParameter(92)}};
inline constexpr LayoutRow kUnitRows[] = {
    {.caption = "Unit", .kind = RowKind::kList, .control = id::cmbAIUnitOutScale}};
inline constexpr LayoutRow kMonitorRows[] = {
    {.caption = "Value", .kind = RowKind::kText, .control = id::txtParameter(46)},
    {.caption = "Status", .kind = RowKind::kListRo, .control = id::cmbLCDStatusMonit1, .fromHeight = 1575}};
inline constexpr LayoutRow kLabelRows[] = {{.caption = "First", .kind = RowKind::kLabel, .control = id::lbArray(313)},
                                           {.caption = "Second", .kind = RowKind::kLabel, .control = id::lbArray(314)},
                                           {.caption = "Third", .kind = RowKind::kLabel, .control = id::lbArray(315)}};
inline constexpr LayoutRow kCodeRows[] = {{.caption = "Code",
                                           .kind = RowKind::kEdit,
                                           .control = id::txtParameter(5),
                                           .role = RowRole::kAccessCode,
                                           .enterPresses = id::cmdTablePoints}};
inline constexpr LayoutGroup kFirstGroups[] = {
    {.tab = 0, .caption = "Numbers", .rows = kNumberRows},
    {.tab = 0, .caption = "Texts", .frame = id::frmzGroup(12), .rows = kTextRows},
    {.tab = 1, .caption = "Commands", .rows = kCommandRows},
    {.tab = 2, .caption = "Limits", .frame = id::frmzGroup(34), .rows = kLimitRows, .byTop = true},
    {.tab = 2, .caption = "Units", .frame = id::frmzGroup(61), .rows = kUnitRows, .byTop = true},
    {.tab = 3, .caption = "Live Value", .frame = id::frmGroupParameter(0), .rows = kMonitorRows},
    {.tab = 3, .caption = "Values", .rows = kLabelRows},
    {.tab = 3, .caption = "Code", .rows = kCodeRows},
};
inline constexpr LayoutRow kWaitRows[] = {{.kind = RowKind::kMsg, .control = id::lbArray(46)}};
inline constexpr LayoutRow kPointRows[] = {{.caption = "X", .kind = RowKind::kNum, .control = id::txtParameter(21)}};
inline constexpr LayoutGroup kSecondGroups[] = {{.rows = kWaitRows, .panel = id::PictMessageTable},
                                                {.caption = "Points", .rows = kPointRows}};
inline constexpr LayoutTitle kFirstTitles[] = {{"Test", "First"}, {"Test 2", "First again"}};
inline constexpr LayoutTitle kSecondTitles[] = {{"", "Second"}};
inline constexpr PageLayout kTestLayouts[] = {
    {.frame = id::frmTRDSettings, .titles = kFirstTitles, .strip = id::SSTabTRDSettings, .groups = kFirstGroups},
    {.frame = id::frmTRDTable, .titles = kSecondTitles, .groups = kSecondGroups},
};
inline const PageLayout& kFirst = kTestLayouts[0];

inline Operands WriteTestPage(UserCntrl& /*control*/) { return {"00"}; }
inline void WriteTestGroup(UserCntrl& control) { control.SmallWrite(44, {"01"}); }
inline void OpenSecond(UserCntrl& control) {
  control.HideAllFrames();
  control.form.frmTRDTable.SetVisible(true);
}
inline constexpr WriteRow kTestWrites[] = {{"Test", kAnySubPage, 1, WriteTestPage}};
inline constexpr ButtonRow kTestButtons[] = {{id::cmdWriteCalPoint, WriteTestGroup}, {id::cmdTablePoints, OpenSecond}};
inline constexpr std::string_view kModes[] = {"Enable", "Disable"};
inline constexpr std::string_view kResets[] = {"No Function", "Warm Startup"};
inline constexpr FillRow kTestFills[] = {{id::cmbPVSimulateEnable, kAtStart, kModes},
                                         {id::cmbFactoryReset, kAtStart, kResets}};
inline constexpr PageUnit kTestUnit{
    .layouts = kTestLayouts, .writes = kTestWrites, .buttons = kTestButtons, .fills = kTestFills};
inline constexpr const PageUnit* kTestUnits[] = {&kTestUnit};
inline constexpr PageRegistry kTestPages{.units = kTestUnits,
                                         .buildTree = [](UserCntrl&, TreeShape) {},
                                         .onTreeNodeClick = [](UserCntrl&, std::string_view, int) {}};

struct SilentPorts : IMessageBoxes, ITimers, IIcons {
  BoxButton Show(const ModalBox& /*box*/) override { return BoxButton::kOk; }
  void Arm(int /*timer*/, std::int32_t /*milliseconds*/) override {}
  void Disarm(int /*timer*/) override {}
  bool Load(std::string_view /*fileName*/) override { return true; }
};

/// Takes every request and answers none.
class SilentDtm : public IDtm,
                  public IDtmCore,
                  public IDtmParameterAccess,
                  public std::enable_shared_from_this<SilentDtm> {
 public:
  std::vector<std::string> writes;

  std::shared_ptr<IDtmCore> Core() override { return shared_from_this(); }
  std::shared_ptr<IDtmParameterAccess> ParameterAccess() override { return shared_from_this(); }
  void RegisterUI(std::string_view /*name*/, std::string_view /*id*/, std::shared_ptr<IUpdateUI> /*receiver*/,
                  std::int32_t /*number*/, bool& /*flag*/) override {}
  void UnregisterUI(std::string_view /*id*/, std::int32_t /*number*/, bool& /*flag*/) override {}
  void WriteRequest(std::string_view code, std::string_view /*document*/, std::string& /*result*/) override {
    writes.emplace_back(code);
  }
  void ReadRequest(std::string_view /*code*/, std::string_view /*document*/, std::string& /*result*/) override {}
};

/// A connected control with the first page in front.
class TestControl {
 public:
  explicit TestControl(char separator = '.', const PageRegistry& pages = kTestPages)
      : control_(UserCntrl::Create({ports_, ports_, ports_, nullptr, separator}, pages)) {
    control_->Init("1", "", dtm);
    control_->ConnectionState = kConnected;
    control_->CurrentPage = "Test";
    control_->HideAllFrames();
    control_->form.frmTRDSettings.SetVisible(true);
    control_->form.frmzGroup(12).SetVisible(true);
    control_->form.cmdTablePoints.SetVisible(true);
    control_->form.TakeChanges();
  }
  UserCntrl& operator*() const { return *control_; }
  UserCntrl* operator->() const { return control_.get(); }

  std::shared_ptr<SilentDtm> dtm = std::make_shared<SilentDtm>();

 private:
  SilentPorts ports_;
  std::shared_ptr<UserCntrl> control_;
};

}  // namespace htr60::desktop
