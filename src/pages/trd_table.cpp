#include <array>
#include <cstddef>
#include <string>

#include "codecs/mEnumeration.h"
#include "codecs/mFunctions.h"
#include "pages/pages.h"
#include "pages/table_points.h"
#include "pages/trd_scales.h"
#include "shell/page_steps.h"
#include "shell/user_cntrl.h"

namespace htr60::pages::trd_table {
namespace {

constexpr std::string_view kPage = "TRD Table";
constexpr std::string_view kPicturePage = "Picture Table";
constexpr int kRead = 9;

constexpr std::size_t kMostPoints = kTablePoints.size();
struct PointNames {
  std::string_view tag;
  std::string_view x;
  std::string_view y;
};
constexpr std::array<PointNames, kMostPoints> kPointNames = {{
    {"TRDX1Y1", "X01:", "Y01:"},   {"TRDX2Y2", "X02:", "Y02:"},   {"TRDX3Y3", "X03:", "Y03:"},
    {"TRDX4Y4", "X04:", "Y04:"},   {"TRDX5Y5", "X05:", "Y05:"},   {"TRDX6Y6", "X06:", "Y06:"},
    {"TRDX7Y7", "X07:", "Y07:"},   {"TRDX8Y8", "X08:", "Y08:"},   {"TRDX9Y9", "X09:", "Y09:"},
    {"TRDX10Y10", "X10:", "Y10:"}, {"TRDX11Y11", "X11:", "Y11:"}, {"TRDX12Y12", "X12:", "Y12:"},
    {"TRDX13Y13", "X13:", "Y13:"}, {"TRDX14Y14", "X14:", "Y14:"}, {"TRDX15Y15", "X15:", "Y15:"},
    {"TRDX16Y16", "X16:", "Y16:"}, {"TRDX17Y17", "X17:", "Y17:"}, {"TRDX18Y18", "X18:", "Y18:"},
    {"TRDX19Y19", "X19:", "Y19:"}, {"TRDX20Y20", "X20:", "Y20:"}, {"TRDX21Y21", "X21:", "Y21:"},
}};
constexpr std::size_t kLeastPoints = 2;  // these two are always part of the curve

// ---- layout

constexpr LayoutRow kTableRows[] = {
    {.caption = "Number of Points",
     .kind = RowKind::kList,
     .control = id::cmbNrPoints,
     .width = WidthClass::kS,
     .note = "Points above this number keep their text and are not part of the curve."},
    {.caption = "Table Status",
     .kind = RowKind::kStatus,
     .control = id::txtParameter(45),
     .width = WidthClass::kM,
     .note = "The device's verdict on the curve that it holds.",
     .sameLine = true,
     .role = RowRole::kTableVerdict},
    {.caption = "Curve Graphic",
     .captionControl = id::cmdPictureTable,
     .kind = RowKind::kOpen,
     .control = id::cmdPictureTable,
     .sameLine = true},
};
constexpr std::array<LayoutRow, kMostPoints> kPointRows = [] {
  std::array<LayoutRow, kMostPoints> rows{};
  for (std::size_t i = 0; i < kMostPoints; ++i) {
    rows[i] = {.caption = kPointNames[i].x,
               .kind = RowKind::kNum,
               .control = kTablePoints[i].x,
               .secondKind = RowKind::kNum,
               .second = kTablePoints[i].y,
               .secondCaption = kPointNames[i].y,
               .note = "Where the point lies on the curve's input, in percent. The device wants it above the X before.",
               .secondNote = "The curve's output at this point, in percent. The device refuses a curve that falls."};
  }
  return rows;
}();
constexpr LayoutRow kWaitingRows[] = {{.kind = RowKind::kMsg, .control = id::lbArray(46)}};
constexpr LayoutGroup kTableGroups[] = {
    {.rows = kWaitingRows, .box = false, .panel = id::PictMessageTable},
    {.caption = "Table", .rows = kTableRows},
    {.rows = kPointRows, .columns = 3, .box = false, .numberOfPoints = id::cmbNrPoints},
};

constexpr LayoutTitle kTableTitle[] = {{"", "Table Points"}};
constexpr LayoutTitle kPictureTitle[] = {{"", "Linearization Curve"}};
constexpr int kReads[] = {kRead};
constexpr PageLayout kLayouts[] = {
    {.frame = id::frmTRDTable,
     .titles = kTableTitle,
     .purpose = "The linearization curve, point by point, with the device's verdict.",
     .reads = kReads,
     .groups = kTableGroups,
     .figure = FigureKind::kLinearization},
    {.frame = id::frmPictureTable,
     .titles = kPictureTitle,
     .purpose = "The curve through the points of the table.",
     .figure = FigureKind::kLinearization,
     .figureAlone = true},
};

// ---- answer

void OnTrdTableAnswer(UserCntrl& c, const Answer& a) {
  c.form.PictMessageTable.SetVisible(false);
  c.form.cmbLinearizationType.SetIfAny(DecodeLinType(a.Number("TRDLinType")));
  c.form.cmbNrPoints.SetText(std::to_string(a.Number("TRDNumpoints")));
  for (std::size_t i = 0; i < kMostPoints; ++i) {
    c.codecs.HexToFloatPair(a.Text(kPointNames[i].tag), c.form.At(kTablePoints[i].x), c.form.At(kTablePoints[i].y));
  }
  c.form.txtParameter(45).SetText(DecodeTableStatus(a.Number("TRDTableStatus")));
}

// ---- write

double SelectedPoints(UserCntrl& c) { return c.codecs.ParseLocaleNumber(c.form.cmbNrPoints.Text()); }

// A point above the selected number goes out as a filler, the last one as an empty text.
std::array<FixedText<16>, kMostPoints> CurvePairs(UserCntrl& c) {
  std::array<FixedText<16>, kMostPoints> pairs;
  for (std::size_t i = 0; i < kMostPoints; ++i) {
    if (i < kLeastPoints || SelectedPoints(c) >= static_cast<double>(i + 1)) {
      pairs[i].Append(c.codecs.FloatToHex(c.form.At(kTablePoints[i].x).Text()));
      pairs[i].Append(c.codecs.FloatToHex(c.form.At(kTablePoints[i].y).Text()));
    } else if (i + 1 < kMostPoints) {
      pairs[i].Append(16, '1');
    }
  }
  return pairs;
}

// "No" does not keep the curve back: the answer is an operand. All others are taken before the question, for an answer
// may come while its box is open.
Operands WriteTrdTable(UserCntrl& c) {
  Operands operands{EncodeNrPoints(c.form.cmbNrPoints.Text())};
  const std::array<FixedText<16>, kMostPoints> pairs = CurvePairs(c);
  for (std::size_t i = 0; i + 1 < kMostPoints; i += 2) operands.Add(Join({pairs[i], pairs[i + 1]}));
  operands.Add(pairs[kMostPoints - 1]);
  operands.Add(c.AskYesNo("Do you want to enable table?", "Warning") ? "Yes" : "No");
  return operands;
}

// ---- buttons and list

void ShowWaiting(UserCntrl& c) { c.form.PictMessageTable.SetVisible(true); }

void OpenTrdTable(UserCntrl& c) {
  OpenPage(c, {.frame = id::frmTRDTable, .page = kPage, .write = ButtonState::kEnabled});
  ShowWaiting(c);
  c.Read(kRead);
}

void OpenPictureTable(UserCntrl& c) { OpenPage(c, {.frame = id::frmPictureTable, .page = kPicturePage}); }

void OnNumberOfPoints(UserCntrl& c) {
  const double selected = SelectedPoints(c);
  for (std::size_t i = kLeastPoints; i < kMostPoints; ++i) {
    const bool enabled = selected >= static_cast<double>(i + 1);
    c.form.At(kTablePoints[i].x).SetEnabled(enabled);
    c.form.At(kTablePoints[i].y).SetEnabled(enabled);
  }
}

// ---- tables

constexpr AnswerRow kAnswers[] = {{900, OnTrdTableAnswer}};
// The device checks the curve, so its re-read waits longer.
constexpr WriteRow kWrites[] = {
    {.pages = kPage, .subPages = kAnySubPage, .code = 6, .operands = WriteTrdTable, .rereadMs = 4000}};
constexpr RereadRow kRereads[] = {{kPage, kAnySubPage, kRead, ShowWaiting}};
constexpr BackRow kBacks[] = {
    {kPage, trd_scales::kToTrdSettings},
    {kPicturePage, {.page = kPage, .frame = id::frmTRDTable, .backEnabled = true}},
};
constexpr ButtonRow kButtons[] = {{id::cmdTablePoints, OpenTrdTable}, {id::cmdPictureTable, OpenPictureTable}};
constexpr ListRow kLists[] = {{id::cmbNrPoints, OnNumberOfPoints}};
constexpr std::string_view kNumbers[] = {"2",  "3",  "4",  "5",  "6",  "7",  "8",  "9",  "10", "11",
                                         "12", "13", "14", "15", "16", "17", "18", "19", "20", "21"};
constexpr FillRow kFills[] = {{id::cmbNrPoints, kAtStart, kNumbers}};

}  // namespace

constexpr PageUnit kUnit{
    .layouts = kLayouts,
    .answers = kAnswers,
    .writes = kWrites,
    .rereads = kRereads,
    .backs = kBacks,
    .buttons = kButtons,
    .lists = kLists,
    .fills = kFills,
};

}  // namespace htr60::pages::trd_table
