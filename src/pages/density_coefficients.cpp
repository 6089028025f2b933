#include "pages/pages.h"

#include <array>
#include <cstddef>
#include <span>

#include "shell/page_steps.h"
#include "shell/user_cntrl.h"

namespace htr60::pages::density_coefficients {
namespace {

// The same page opens from the density settings and from the factory menu; only the way back differs.
constexpr NameSet kConstantPages{"Constant", "Constant_Level"};
constexpr std::string_view kConcentrationPage = "Concentration";
constexpr std::string_view kSolidPage = "Solid";
constexpr int kConstantRead = 58;
constexpr int kConcentrationRead = 59;
constexpr int kSolidRead = 60;

/// A number of the device: its tag, where it is shown, and how.
struct Number {
  std::string_view tag;
  TextId field;
  std::string_view caption;
  LayoutUnit unit{};
  int decimals = 7;
  std::string_view note{};
};

constexpr Number kConstants[] = {
    {.tag = "Gravity",
     .field = id::txtParameter(218),
     .caption = "Gravity",
     .unit = "m/s²",
     .note = "Acceleration of gravity at the measuring place."},
    {.tag = "Height",
     .field = id::txtParameter(217),
     .caption = "Height",
     .unit = "m",
     .note = "Distance of the two diaphragms."},
    {.tag = "LinearDilatation",
     .field = id::txtParameter(215),
     .caption = "Linear Dilatation Coefficient",
     .decimals = 8,
     .note = "How the height grows with the temperature."},
    {.tag = "PressureCoeff",
     .field = id::txtParameter(216),
     .caption = "Pressure Coefficient",
     .note = "How the pressure drifts with the temperature."},
    {.tag = "ZeroAdjustTemp",
     .field = id::txtParameter(219),
     .caption = "Zero Adjust Temp",
     .unit = "°C",
     .note = "Temperature at which the zero was adjusted."},
    // The device spells this tag so.
    {.tag = "heighMeasTemp",
     .field = id::txtParameter(220),
     .caption = "Height Measurement Temp",
     .unit = "°C",
     .note = "Temperature at which the height was measured."},
};

constexpr std::string_view kConcentrationNote =
    "Coefficient of the polynomial that gives the concentration from density and temperature. Written together with "
    "all fields of this page.";
constexpr Number Coefficient(std::string_view tag, TextId field, std::string_view caption,
                             std::string_view note = kConcentrationNote) {
  return {.tag = tag, .field = field, .caption = caption, .decimals = 8, .note = note};
}
constexpr Number kConcentration[] = {
    Coefficient("K0", id::txtParameter(238), "K0"),
    Coefficient("K1", id::txtParameter(237), "K1"),
    Coefficient("K2", id::txtParameter(236), "K2"),
    Coefficient("K3", id::txtParameter(235), "K3"),
    Coefficient("K4", id::txtParameter(234), "K4"),
    Coefficient("K5", id::txtParameter(233), "K5"),
    Coefficient("K6", id::txtParameter(232), "K6"),
    Coefficient("K7", id::txtParameter(231), "K7"),
    Coefficient("K8", id::txtParameter(239), "K8 "),
    Coefficient("K9", id::txtParameter(240), "K9"),
    Coefficient("K10", id::txtParameter(241), "K10"),
    Coefficient("K11", id::txtParameter(242), "K11"),
    Coefficient("K12", id::txtParameter(243), "K12"),
    Coefficient("K13", id::txtParameter(244), "K13"),
    Coefficient("K14", id::txtParameter(245), "K14"),
    Coefficient("K15", id::txtParameter(246), "K15 "),
    Coefficient("K16", id::txtParameter(247), "K16"),
    Coefficient("K17", id::txtParameter(339), "K17"),
    Coefficient("HiLimDens", id::txtParameter(251), "Hi Dens Lim (g/cm³) ",
                "The polynomial takes a density above it as this one. Written together with all fields of this page."),
    Coefficient("LoLimDens", id::txtParameter(252), "Lo Dens Lim (g/cm³) ",
                "The polynomial takes a density below it as this one. Written together with all fields of this page."),
    Coefficient(
        "HiLimTemp", id::txtParameter(249), "Hi Temp Lim (ºC) ",
        "The polynomial takes a temperature above it as this one. Written together with all fields of this page."),
    Coefficient(
        "LoLimTemp", id::txtParameter(250), "Lo Temp Lim (ºC) ",
        "The polynomial takes a temperature below it as this one. Written together with all fields of this page."),
    Coefficient("KDens", id::txtParameter(253), "K Dens",
                "Density in g/cm³ from which the polynomial counts. Written together with all fields of this page."),
    Coefficient("KTemp", id::txtParameter(254), "K Temp",
                "Temperature in °C from which the polynomial counts. Written together with all fields of this page."),
};
constexpr std::size_t kDensityLimits = 18;
constexpr std::size_t kTemperatureLimits = 20;

constexpr std::string_view kSolidNote =
    "Coefficient of the polynomial that gives solid percent from the density. Written together with the limits.";
constexpr Number Solid(std::string_view tag, TextId field, std::string_view caption,
                       std::string_view note = kSolidNote) {
  return {.tag = tag, .field = field, .caption = caption, .note = note};
}
constexpr Number kSolid[] = {
    Solid("Coeff0", id::txtParameter(228), "Pol Coeff 0"),
    Solid("Coeff1", id::txtParameter(227), "Pol Coeff 1"),
    Solid("Coeff2", id::txtParameter(226), "Pol Coeff 2"),
    Solid("Coeff3", id::txtParameter(225), "Pol Coeff 3"),
    Solid("Coeff4", id::txtParameter(224), "Pol Coeff 4"),
    Solid("Coeff5", id::txtParameter(221), "Pol Coeff 5"),
    Solid("LimHi", id::txtParameter(230), "Limit High",
          "Highest solid percent: a higher result counts as this one. Written together with the coefficients."),
    Solid("LimLo", id::txtParameter(229), "Limit Low",
          "Lowest solid percent: a lower result counts as this one. Written together with the coefficients."),
};
constexpr std::size_t kPolynomial = 6;

// ---- layout

template <std::size_t N>
constexpr std::array<LayoutRow, N> RowsOf(const Number (&numbers)[N]) {
  std::array<LayoutRow, N> rows{};
  for (std::size_t i = 0; i < N; ++i) {
    rows[i].caption = numbers[i].caption;
    rows[i].kind = RowKind::kNum;
    rows[i].control = numbers[i].field;
    rows[i].unit = numbers[i].unit;
    rows[i].note = numbers[i].note;
  }
  return rows;
}

constexpr auto kConstantRows = RowsOf(kConstants);
constexpr auto kConcentrationRows = RowsOf(kConcentration);
constexpr auto kSolidRows = RowsOf(kSolid);

constexpr LayoutGroup kConstantGroups[] = {{.caption = "Constants", .rows = kConstantRows}};
constexpr LayoutGroup kConcentrationGroups[] = {{.caption = "Coefficients", .rows = kConcentrationRows, .columns = 3}};
constexpr LayoutGroup kSolidGroups[] = {
    {.caption = "Coefficients", .rows = std::span(kSolidRows).first(kPolynomial)},
    {.caption = "Limits", .rows = std::span(kSolidRows).subspan(kPolynomial), .beside = true},
};

constexpr LayoutTitle kConstantTitle[] = {{"", "Constants"}};
constexpr LayoutTitle kConcentrationTitle[] = {{"", "General Concentration"}};
constexpr LayoutTitle kSolidTitle[] = {{"", "Solid Percent Coefficients"}};
constexpr int kConstantReads[] = {kConstantRead};
constexpr int kConcentrationReads[] = {kConcentrationRead};
constexpr int kSolidReads[] = {kSolidRead};
constexpr int kWideNumbers = 18;  // seven and eight decimals

constexpr PageLayout kLayouts[] = {
    {.frame = id::frmConstants,
     .titles = kConstantTitle,
     .purpose = "Constants of the measuring place that the device calculates with.",
     .reads = kConstantReads,
     .groups = kConstantGroups,
     .numberWidth = kWideNumbers},
    {.frame = id::frmConcentration,
     .titles = kConcentrationTitle,
     .purpose = "Coefficients and limits from which the device computes a concentration.",
     .reads = kConcentrationReads,
     .groups = kConcentrationGroups,
     .numberWidth = kWideNumbers},
    {.frame = id::frmSolidCoefficients,
     .titles = kSolidTitle,
     .purpose = "The polynomial for solid percent and its limits.",
     .reads = kSolidReads,
     .groups = kSolidGroups,
     .numberWidth = kWideNumbers},
};

// ---- answers and writes

void Take(UserCntrl& c, const Answer& a, std::span<const Number> numbers) {
  for (const Number& n : numbers) {
    c.form.At(n.field).SetText(c.codecs.FormatDecimals(HexToFloat(a.Text(n.tag)), n.decimals));
  }
}

void OnConstantAnswer(UserCntrl& c, const Answer& a) { Take(c, a, kConstants); }
void OnConcentrationAnswer(UserCntrl& c, const Answer& a) { Take(c, a, kConcentration); }
void OnSolidAnswer(UserCntrl& c, const Answer& a) { Take(c, a, kSolid); }

void Add(Operands& operands, UserCntrl& c, std::span<const Number> numbers) {
  for (const Number& n : numbers) operands.Add(c.codecs.FloatToHex(c.form.At(n.field).Text()));
}

Operands WriteConstants(UserCntrl& c) {
  Operands operands;
  Add(operands, c, kConstants);
  return operands;
}

// The device takes the temperature limits first, though it reports the density limits first.
Operands WriteConcentration(UserCntrl& c) {
  constexpr std::span<const Number> kAll(kConcentration);
  Operands operands;
  Add(operands, c, kAll.first(kDensityLimits));
  Add(operands, c, kAll.subspan(kTemperatureLimits, 2));
  Add(operands, c, kAll.subspan(kDensityLimits, 2));
  Add(operands, c, kAll.subspan(kTemperatureLimits + 2));
  return operands;
}

Operands WriteSolid(UserCntrl& c) {
  Operands operands;
  Add(operands, c, kSolid);
  return operands;
}

// ---- buttons

constexpr OpenStep Opening(FrameId frame, std::string_view page, int read) {
  return {.frame = frame, .page = page, .write = ButtonState::kEnabled, .read = read};
}
constexpr OpenStep kOpenings[] = {
    Opening(id::frmConstants, kConstantPages[0], kConstantRead),
    Opening(id::frmConstants, kConstantPages[1], kConstantRead),
    Opening(id::frmConcentration, kConcentrationPage, kConcentrationRead),
    Opening(id::frmSolidCoefficients, kSolidPage, kSolidRead),
};

void Open(UserCntrl& c, int page) { OpenPage(c, kOpenings[page]); }

// ---- tables

constexpr AnswerRow kAnswers[] = {{5800, OnConstantAnswer}, {5900, OnConcentrationAnswer}, {6000, OnSolidAnswer}};
constexpr WriteRow kWrites[] = {
    {kConstantPages, kAnySubPage, 46, WriteConstants},
    {kConcentrationPage, kAnySubPage, 47, WriteConcentration},
    {kSolidPage, kAnySubPage, 48, WriteSolid},
};
constexpr RereadRow kRereads[] = {
    {kConstantPages, kAnySubPage, kConstantRead},
    {kConcentrationPage, kAnySubPage, kConcentrationRead},
    {kSolidPage, kAnySubPage, kSolidRead},
};
constexpr BackRow kBacks[] = {
    // No write or re-read knows this page name: until a tab or a node is chosen, Write sends nothing.
    {{kConstantPages[0], kConcentrationPage, kSolidPage}, {.page = "TRD Density", .frame = id::frmTRDDensity}},
    {kConstantPages[1], {.page = "Factory Password", .frame = id::frmFactoryPassword, .backEnabled = true}},
};
constexpr ButtonRow kButtons[] = {
    {id::cmdConstant, {Open, 0}},
    {id::Command5, {Open, 1}},
    {id::cmdConcentration, {Open, 2}},
    {id::cmdSolid, {Open, 3}},
};

}  // namespace

constexpr PageUnit kUnit{
    .layouts = kLayouts,
    .answers = kAnswers,
    .writes = kWrites,
    .rereads = kRereads,
    .backs = kBacks,
    .buttons = kButtons,
};

}  // namespace htr60::pages::density_coefficients
