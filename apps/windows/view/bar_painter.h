#pragma once

#include "figures/figure.h"
#include "windows/view/canvas.h"

namespace htr60::view {

/// Paints a bar upright: the numbers of its ends and the pointer on its left, marks and spans on its right.
class BarPainter {
 public:
  BarPainter(const Canvas& canvas, const FigureBar& bar);

  /// The width that no text is cut at.
  int Width() const;
  void Paint(const RECT& room);

 private:
  int LeftWidth() const;
  int RightWidth() const;
  int PointerWidth() const;
  int Y(double value) const;
  void Text(LONG left, LONG right, double middle, const std::string& text, UINT flags) const;
  void PaintBody() const;
  void PaintLeft() const;
  void PaintPointer(double labelY) const;
  void PaintSpan(const BarSpan& span) const;
  void PaintMarks(LONG right) const;
  void PaintArrow(BarReach reach, LONG x, LONG y) const;

  const Canvas& canvas_;
  const Look& look_;
  const FigureBar& bar_;
  int gap_;
  int hairline_;
  RECT body_{};
};

}  // namespace htr60::view
