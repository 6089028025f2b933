#include "presentation/marks.h"

#include <gtest/gtest.h>

#include "presentation/mnemonics.h"
#include "presentation/numbers_shown.h"

namespace htr60::presentation {
namespace {

TEST(NumberHints, NameWhatIsOdd) {
  struct {
    const char* text;
    char separator;
    const char* hint;
  } constexpr kCases[] = {
      {"12.5", '.', ""},
      {"-12", '.', ""},
      {" 1.5E-3 ", '.', ""},
      {"", '.', "No number"},
      {"abc", '.', "No number"},
      {"1.2.3", '.', "No number"},
      {"12,5", '.', "Decimal separator here is ."},
      {"12.5", ',', "Decimal separator here is ,"},
      {"1.234,5", ',', "Decimal separator here is ,"},
      {"12,x", '.', "No number"},
      {"123456789.1", '.', ""},
      {"1234567890", '.', "Too many digits"},
      {"-123456789", '.', ""},
      {"+2147483648", '.', "Too many digits"},
      {"3E9", '.', "Too many digits"},
      {"-123456789.1", '.', ""},
  };
  for (const auto& row : kCases) EXPECT_EQ(NumberHint(row.text, row.separator), row.hint) << row.text;
}

TEST(Marks, StandBeforeWhatMustBeLookedAt) {
  constexpr RowRole kPlain = RowRole::kNone;
  constexpr RowRole kVerdict = RowRole::kVerdict;
  constexpr RowRole kSimulate = RowRole::kSimulate;
  constexpr RowRole kSensorState = RowRole::kSensorState;
  struct {
    RowRole role;
    RowKind kind;
    const char* text;
    Mark mark;
  } constexpr kCases[] = {
      {kPlain, RowKind::kStatus, "", Mark::kNone},
      {kPlain, RowKind::kStatus, "Good (Non Cascade) - Ok", Mark::kNone},
      {kPlain, RowKind::kStatus, "Uncertain - Last usable value", Mark::kUncertain},
      {kPlain, RowKind::kStatus, "Bad - Sensor Failure", Mark::kBad},
      {kPlain, RowKind::kStatus, "Other", Mark::kNone},
      {kVerdict, RowKind::kStatus, "None", Mark::kNone},
      {kVerdict, RowKind::kStatus, "Excessive Sensor Gain", Mark::kBad},
      {kVerdict, RowKind::kStatus, "Good", Mark::kNone},
      {kVerdict, RowKind::kStatus, "Excess correction", Mark::kBad},
      {kVerdict, RowKind::kStatus, "", Mark::kNone},
      {kPlain, RowKind::kStatus, "New Table is Valid", Mark::kNone},
      {kPlain, RowKind::kStatus, "Table Not Initialised", Mark::kUncertain},
      {kPlain, RowKind::kStatus, "Not Monotonous Decreasing", Mark::kBad},
      {kVerdict, RowKind::kListBox, "No Alarm", Mark::kNone},
      {kVerdict, RowKind::kListBox, "HI_HI_Alarm", Mark::kBad},
      {kPlain, RowKind::kText, "Disconnected", Mark::kUncertain},
      {kPlain, RowKind::kMsg, "Sensor electronic board failure or disconnected", Mark::kBad},
      {kSimulate, RowKind::kList, "Active", Mark::kUncertain},
      {kSimulate, RowKind::kList, "Enable", Mark::kUncertain},
      {kSimulate, RowKind::kList, "Disable", Mark::kNone},
      {kPlain, RowKind::kList, "Enable", Mark::kNone},
      {kSensorState, RowKind::kList, "Disconnected", Mark::kUncertain},
      {kSensorState, RowKind::kList, "Not Initialized", Mark::kUncertain},
      {kSensorState, RowKind::kList, "Connected", Mark::kNone},
      {kSensorState, RowKind::kList, "Initialized", Mark::kNone},
      {kPlain, RowKind::kList, "Disconnected", Mark::kNone},
      {kPlain, RowKind::kEdit, "Bad pump", Mark::kNone},
  };
  for (const auto& row : kCases) EXPECT_EQ(MarkOf(row.role, row.kind, row.text), row.mark) << row.text;
}

TEST(Mnemonics, AreChosenWithoutClash) {
  EXPECT_EQ(ChooseMnemonics({"Constants", "Concentration", "Write Save", "BWS", "Trd & Out", "", "µm"}),
            (std::vector<char>{'C', 'O', 'R', '\0', 'T', '\0', 'M'}));
}

struct StoredCase {
  const char* sent;
  const char* device;
  bool reads;
  const char* loss;
};

TEST(StoredNumbers, TellTheirLossInPercent) {
  constexpr StoredCase kCases[] = {
      {"9.81", "9.8099995", true, ""},
      {"9.81", "9.810", true, ""},
      {"9.81", "9.8100004", false, ""},
      {"0.00001200", "0.00001192", true, "0.7 % below"},
      {"-0.00001200", "-0.00001192", true, "0.7 % below"},
      {"0", "0.000", true, ""},
      {"abc", "0.000", false, ""},
  };
  for (const StoredCase& c : kCases) {
    const Stored stored = StoredAs(c.sent, c.device, '.');
    EXPECT_EQ(stored.reads, c.reads) << c.sent;
    EXPECT_EQ(stored.loss, c.loss) << c.sent;
  }
  EXPECT_EQ(StoredAs("0,00001200", "0,00001192", ',').loss, "0,7 % below");
}

}  // namespace
}  // namespace htr60::presentation
