// Units of a small control; each macro makes one table wrong, and then this file must not compile.
#include "pages/checks.h"
#include "shell/page_steps.h"

namespace htr60 {
namespace {

Operands Nothing(UserCntrl&) { return {}; }
void Press(UserCntrl&) {}
void Operate(UserCntrl&, int) {}
bool Always(UserCntrl&) { return true; }

constexpr std::string_view kRows[] = {"A", "B"};
constexpr PageLayout kFirstLayouts[] = {{.frame = id::frmInfo}};
constexpr WriteRow kFirstWrites[] = {
    {"First", "One", 1, Nothing},
#ifdef ANY_BESIDE_ONE
    {"First", kAnySubPage, 2, Nothing},
#endif
};
constexpr FillRow kFirstFills[] = {
    {id::cmbPVType, kAtStart, kRows},
    {id::cmbPVType, &UserCntrl::FirstVisitTrd, kRows},
#ifdef FILLED_TWICE
    {id::cmbPVType, &UserCntrl::FirstVisitTrd, kRows},
#endif
};
constexpr NodeText kFirstTexts[] = {
    {.text = "Observe"},
    {.text = "AI 1 View", .parent = "Observe"},
#ifdef NODE_IN_NO_TREE
    {.text = "AI 2 View", .parent = "Observe", .trees = {}},
#endif
#ifdef NODE_NOT_IN_CONTENTS
    {.text = "Nowhere", .parent = "Observe"},
#endif
#ifdef PARENT_AFTER
    {.text = "Diagnosis", .parent = "AI 1 View"},
#endif
};
constexpr NodeRow kFirstNodes[] = {{.texts = kFirstTexts, .frame = id::frmInfo}};
constexpr OperationRow kFirstOperations[] = {{"Operation", 2, Operate}};
constexpr PageUnit kFirst{
    .layouts = kFirstLayouts,
    .writes = kFirstWrites,
    .operations = kFirstOperations,
    .fills = kFirstFills,
    .nodes = kFirstNodes,
    .start = {.frame = id::frmInfo, .read = 1, .page = "First"},
};

constexpr PageLayout kSecondLayouts[] = {
    {.frame = id::frmLCD},
#ifdef FRAME_TWICE
    {.frame = id::frmInfo},
#endif
};
constexpr TabStep kSteps[] = {
    {.page = "Second"},
    {.page = "Second"},
#ifndef STEPS_TOO_SHORT
    {.page = "Second"},
#endif
};
constexpr TabRow kSecondTabs[] = {{.strip = id::SSTabCalib, .steps = kSteps}};
constexpr ButtonRow kSecondButtons[] = {
    {id::cmdConstant, Press},
#ifdef BUTTON_TWICE
    {id::cmdConstant, Press},
#endif
};
constexpr NodeText kSecondTexts[] = {
    {.text = "LCD Config", .trees = TreeShape::kBase},
#ifdef NODE_TWICE
    {.text = "Observe", .trees = {}, .byTextAlone = true},
#endif
};
constexpr NodeText kOtherTexts[] = {{.text = "LCD Config", .trees = TreeShape::kLevel}};
constexpr NodeRow kSecondNodes[] = {
    {.texts = kSecondTexts, .frame = id::frmLCD, .when = Always},
#ifdef NO_CONDITION
    {.texts = kOtherTexts, .frame = id::frmLCD},
#else
    {.texts = kOtherTexts, .frame = id::frmLCD, .when = Always},
#endif
#ifdef FRAME_OF_NOBODY
    {.texts = {}, .frame = id::frmAI},
#endif
};
#ifdef OPERATION_TWICE
constexpr OperationRow kSecondOperations[] = {{"Operation", 1, Operate}};
#else
constexpr OperationRow kSecondOperations[] = {{"Other", 1, Operate}};
#endif
constexpr PageUnit kSecond{
    .layouts = kSecondLayouts,
    .buttons = kSecondButtons,
    .tabs = kSecondTabs,
    .operations = kSecondOperations,
    .nodes = kSecondNodes,
};

constexpr NamedUnit kUnits[] = {{"first_unit", &kFirst}, {"second_unit", &kSecond}};
HTR60_CHECK_TABLES(kUnits);

#ifdef TOO_MANY_OPERANDS
Operands Many(UserCntrl&) {
  return {"1",  "2",  "3",  "4",  "5",  "6",  "7",  "8",  "9",  "10", "11", "12", "13",
          "14", "15", "16", "17", "18", "19", "20", "21", "22", "23", "24", "25"};
}
#endif

}  // namespace
}  // namespace htr60
