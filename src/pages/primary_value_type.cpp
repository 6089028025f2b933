#include "pages/pages.h"

#include "codecs/mEnumeration.h"
#include "navigation/tree.h"
#include "pages/transducer_twins.h"
#include "shell/user_cntrl.h"

namespace htr60::pages::primary_value_type {
namespace {

constexpr std::string_view kPage = "Primary Value Type";
constexpr int kRead = 79;

constexpr LayoutRow kRows[] = {
    {.caption = "Primary Value Type",
     .kind = RowKind::kList,
     .control = id::cmbPVType,
     .note = "A change sets the transducer to the defaults of the new type."},
};
constexpr LayoutGroup kGroups[] = {{.caption = "Primary Value Type", .rows = kRows}};
constexpr LayoutTitle kTitle[] = {{"", "Primary Value Type"}};
constexpr int kReads[] = {kRead};
constexpr PageLayout kLayouts[] = {
    {.frame = id::frmPrimaryValueType,
     .titles = kTitle,
     .purpose = "What the instrument measures; a change gives the tree another shape.",
     .reads = kReads,
     .groups = kGroups},
};

void OnPrimaryValueTypeAnswer(UserCntrl& c, const Answer& a) { ApplyPrimaryValueType(c, a.Number("TRDPVType")); }

Operands WritePrimaryValueType(UserCntrl& c) { return {EncodePVType(c.form.cmbPVType.Text())}; }

constexpr AnswerRow kAnswers[] = {{7900, OnPrimaryValueTypeAnswer}};
constexpr WriteRow kWrites[] = {{kPage, kAnySubPage, 72, WritePrimaryValueType}};
constexpr RereadRow kRereads[] = {{kPage, kAnySubPage, kRead}};
constexpr FillRow kFills[] = {{id::cmbPVType, FillMoment::kStart, kPrimaryValueTypes}};
constexpr NodeRow kNodes[] = {{.texts = {kPage}, .page = kPage, .frame = id::frmPrimaryValueType, .read = kRead}};

}  // namespace

constexpr PageUnit kUnit{
    .layouts = kLayouts,
    .answers = kAnswers,
    .writes = kWrites,
    .rereads = kRereads,
    .fills = kFills,
    .nodes = kNodes,
};

}  // namespace htr60::pages::primary_value_type
