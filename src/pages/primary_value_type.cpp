#include "pages/primary_value_type.h"

#include <optional>

#include "codecs/mEnumeration.h"
#include "navigation/tree.h"
#include "pages/common_notes.h"
#include "pages/pages.h"
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
     .note = kNewTypeNote,
     .identity = IdentityItem::kMeasurement},
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

// The types that share a tree: a change between them leaves it as it stands.
struct TypeTree {
  std::string_view type;
  TreeShape shape;
};
constexpr TypeTree kTypeTreeRows[] = {
    {"Pressure", TreeShape::kPressureFlow},
    {"Flow", TreeShape::kPressureFlow},
    {"Level", TreeShape::kLevel},
    {"Density", TreeShape::kDensity},
};

std::optional<TreeShape> TreeOf(std::string_view type) {
  for (const TypeTree& row : kTypeTreeRows) {
    if (row.type == type) return row.shape;
  }
  return std::nullopt;
}

void OnPrimaryValueTypeAnswer(UserCntrl& c, const Answer& a) { ApplyPrimaryValueType(c, a.Number("TRDPVType")); }

Operands WritePrimaryValueType(UserCntrl& c) { return {EncodePVType(c.form.cmbPVType.Text())}; }

constexpr AnswerRow kAnswers[] = {{7900, OnPrimaryValueTypeAnswer}};
constexpr WriteRow kWrites[] = {{kPage, kAnySubPage, 72, WritePrimaryValueType}};
constexpr RereadRow kRereads[] = {{kPage, kAnySubPage, kRead}};
constexpr FillRow kFills[] = {{id::cmbPVType, kAtStart, kPrimaryValueTypes}};
constexpr NodeText kNodeTexts[] = {{.text = kPage, .parent = "Blocks", .picture = "forward2"}};
constexpr NodeRow kNodes[] = {{.texts = kNodeTexts, .page = kPage, .frame = id::frmPrimaryValueType, .read = kRead}};

}  // namespace

void ApplyPrimaryValueType(UserCntrl& c, std::int32_t code) {
  c.form.cmbPVType.SetIfAny(DecodePVType(code));
  const std::string& type = c.form.cmbPVType.Text();
  const auto shape = TreeOf(type);
  if (shape && shape != TreeOf(c.PreviousPVType)) {
    c.form.treeView.Clear();
    BuildTree(c, *shape);
  }
  c.PreviousPVType = type;
}

constexpr PageUnit kUnit{
    .layouts = kLayouts,
    .answers = kAnswers,
    .writes = kWrites,
    .rereads = kRereads,
    .fills = kFills,
    .nodes = kNodes,
};

}  // namespace htr60::pages::primary_value_type
