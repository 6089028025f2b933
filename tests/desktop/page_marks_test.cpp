#include <gtest/gtest.h>

#include <QImage>
#include <set>

#include "desktop/mnemonics.h"
#include "desktop/number_hints.h"
#include "desktop/shapes.h"

namespace htr60::desktop {
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
      {"-123456789.1", '.', "Too many digits"},
  };
  for (const auto& row : kCases) EXPECT_EQ(NumberHint(row.text, row.separator), row.hint) << row.text;
}

TEST(StatusShapes, StandBeforeWhatMustBeLookedAt) {
  constexpr RowRole kPlain = RowRole::kNone;
  constexpr RowRole kVerdict = RowRole::kVerdict;
  constexpr RowRole kSimulate = RowRole::kSimulate;
  struct {
    RowRole role;
    RowKind kind;
    const char* text;
    Shape shape;
  } constexpr kCases[] = {
      {kPlain, RowKind::kStatus, "", Shape::kNone},
      {kPlain, RowKind::kStatus, "Good (Non Cascade) - Ok", Shape::kNone},
      {kPlain, RowKind::kStatus, "Uncertain - Last usable value", Shape::kWarning},
      {kPlain, RowKind::kStatus, "Bad - Sensor Failure", Shape::kFault},
      {kPlain, RowKind::kStatus, "Other", Shape::kNone},
      {kVerdict, RowKind::kStatus, "None", Shape::kNone},
      {kVerdict, RowKind::kStatus, "Excessive Sensor Gain", Shape::kFault},
      {kVerdict, RowKind::kStatus, "Good", Shape::kNone},
      {kVerdict, RowKind::kStatus, "Excess correction", Shape::kFault},
      {kVerdict, RowKind::kStatus, "", Shape::kNone},
      {kPlain, RowKind::kStatus, "New Table is Valid", Shape::kNone},
      {kPlain, RowKind::kStatus, "Table Not Initialised", Shape::kWarning},
      {kPlain, RowKind::kStatus, "Not Monotonous Decreasing", Shape::kFault},
      {kVerdict, RowKind::kListBox, "No Alarm", Shape::kNone},
      {kVerdict, RowKind::kListBox, "HI_HI_Alarm", Shape::kFault},
      {kPlain, RowKind::kText, "Disconnected", Shape::kWarning},
      {kPlain, RowKind::kMsg, "Sensor electronic board failure or disconnected", Shape::kFault},
      {kSimulate, RowKind::kList, "Active", Shape::kWarning},
      {kSimulate, RowKind::kList, "Enable", Shape::kWarning},
      {kSimulate, RowKind::kList, "Disable", Shape::kNone},
      {kPlain, RowKind::kList, "Enable", Shape::kNone},
      {kPlain, RowKind::kEdit, "Bad pump", Shape::kNone},
  };
  for (const auto& row : kCases) EXPECT_EQ(ShapeOfStatus(row.role, row.kind, row.text), row.shape) << row.text;
}

TEST(Shapes, DifferFromEachOtherInGrey) {
  std::set<QByteArray> seen;
  for (int i = 0; i <= static_cast<int>(Shape::kFault); ++i) {
    QImage image(16, 16, QImage::Format_ARGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    PaintShape(painter, QRectF(0.5, 0.5, 15, 15), static_cast<Shape>(i), QPalette(Qt::lightGray));
    painter.end();
    QByteArray ink;
    for (int y = 0; y < 16; ++y) {
      for (int x = 0; x < 16; ++x) ink += qGray(image.pixel(x, y)) < 200 ? '#' : ' ';
    }
    EXPECT_TRUE(seen.insert(ink).second) << i;
  }
}

TEST(Mnemonics, AreChosenWithoutClash) {
  const QStringList captions{QStringLiteral("Constants"), QStringLiteral("Concentration"), QStringLiteral("Write Save"),
                             QStringLiteral("BWS"),       QStringLiteral("Trd & Out"),     QStringLiteral("")};
  const std::vector<QChar> letters = ChooseMnemonics(captions);
  EXPECT_EQ(letters, (std::vector<QChar>{u'C', u'O', u'R', QChar(), u'T', QChar()}));
  EXPECT_EQ(WithMnemonic(captions[1], letters[1]), QStringLiteral("C&oncentration"));
  EXPECT_EQ(WithMnemonic(captions[4], letters[4]), QStringLiteral("&Trd && Out"));
  EXPECT_EQ(WithMnemonic(captions[3], letters[3]), QStringLiteral("BWS"));
}

}  // namespace
}  // namespace htr60::desktop
