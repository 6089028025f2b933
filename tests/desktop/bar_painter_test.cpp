#include "desktop/figure/bar_painter.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>

#include "figures/spread.h"

namespace htr60::desktop {
namespace {

TEST(BarPainter, LabelsStandApartInTheirOrder) {
  struct Case {
    std::vector<double> wanted;
    std::vector<double> places;
  };
  // Ten apart between 0 and 100.
  const Case cases[] = {
      {{}, {}},
      {{50}, {50}},
      {{-5}, {0}},
      {{120}, {100}},
      {{20, 50, 35}, {20, 50, 35}},
      {{0, 0, 100, 100}, {0, 10, 90, 100}},
      {{52, 50, 51}, {70, 50, 60}},
      {{99, 98}, {100, 90}},
      {{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0},  // more than there is room for
       {0, 5, 10, 15, 20, 25, 30, 35, 40, 45, 50, 55, 60, 65, 70, 75, 80, 85, 90, 95, 100}},
  };
  for (const Case& c : cases) EXPECT_EQ(figures::SpreadLabels(c.wanted, 10, 0, 100), c.places);
}

FigureBar Bar() {
  FigureBar bar;
  bar.axis = {.caption = "Output", .from = 0, .to = 100, .ticks = {{0, "0"}, {100, "100"}}};
  bar.to = 100;
  bar.marks = {{90, "Upper Limit Alarm 90", BarReach::kWithin, false}};
  return bar;
}

QImage Painted(const FigureBar& bar) {
  QImage image(400, 300, QImage::Format_RGB32);
  const QPalette palette = QApplication::palette();
  image.fill(palette.color(QPalette::Window));
  QPainter painter(&image);
  BarPainter(bar, QApplication::font(), palette, 1).Paint(painter, QRectF(0, 0, 400, 300));
  return image;
}

// Whatever the bar tells is to be seen without colour or words of another kind.
TEST(BarPainter, EveryPartIsToBeSeen) {
  const QImage plain = Painted(Bar());
  const auto differs = [&](const char* part, auto&& change) {
    FigureBar bar = Bar();
    change(bar);
    EXPECT_NE(Painted(bar), plain) << part;
  };
  differs("not written", [](FigureBar& bar) { bar.marks[0].unwritten = true; });
  differs("beyond the end", [](FigureBar& bar) { bar.marks[0].reach = BarReach::kAbove; });
  differs("bracket", [](FigureBar& bar) { bar.spans = {{90, 70, BarSpanStyle::kBracket}}; });
  differs("pointer", [](FigureBar& bar) { bar.pointer = BarPointer{40, "40", "Good", BarReach::kWithin}; });
  differs("hatched", [](FigureBar& bar) { bar.to = 80; });
  FigureBar bracket = Bar();
  bracket.spans = {{90, 70, BarSpanStyle::kBracket}};
  FigureBar wrong = Bar();
  wrong.spans = {{90, 70, BarSpanStyle::kWrong}};
  EXPECT_NE(Painted(bracket), Painted(wrong));
  FigureBar pointed = Bar();
  pointed.pointer = BarPointer{40, "40", "Good", BarReach::kWithin};
  EXPECT_GT(BarPainter(pointed, QApplication::font(), QApplication::palette(), 1).Width(),
            BarPainter(Bar(), QApplication::font(), QApplication::palette(), 1).Width());
}

}  // namespace
}  // namespace htr60::desktop
