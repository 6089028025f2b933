#pragma once

#include <algorithm>
#include <span>
#include <string_view>

#include "windows/view/look.h"
#include "windows/win.h"

namespace htr60::view {

/// Paints on a device context; what it selects it puts back.
class Canvas {
 public:
  Canvas(HDC context, const Look& look) : context_(context), look_(look) {}

  const Look& Style() const { return look_; }
  HDC Context() const { return context_; }
  void Fill(const RECT& rect, COLORREF color) const;
  void Frame(const RECT& rect, COLORREF color) const;
  /// `flags`: DT_LEFT, DT_WORDBREAK, ...; letters with & are letters.
  void Text(RECT rect, std::wstring_view text, COLORREF color, UINT flags, Look::Font font = Look::Font::kPlain) const;

  struct Stroke {
    COLORREF color = 0;
    int width = 1;
    DWORD style = PS_SOLID;
    bool round = true;
  };
  void Lines(std::span<const POINT> points, const Stroke& stroke) const;
  void Line(POINT from, POINT to, const Stroke& stroke) const {
    const POINT points[] = {from, to};
    Lines(points, stroke);
  }
  /// `fill`: none is hollow.
  void Polygon(std::span<const POINT> points, const Stroke& stroke, const COLORREF* fill) const;
  void Ellipse(const RECT& rect, const Stroke& stroke, const COLORREF* fill) const;

 private:
  HDC context_;
  const Look& look_;
};

}  // namespace htr60::view
