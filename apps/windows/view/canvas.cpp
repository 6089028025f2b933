#include "windows/view/canvas.h"

namespace htr60::view {
namespace {

/// Selected for a while, and then no more.
class Selected {
 public:
  Selected(HDC context, HGDIOBJ object, bool owned)
      : context_(context), object_(object), before_(SelectObject(context, object)), owned_(owned) {}
  ~Selected() {
    SelectObject(context_, before_);
    if (owned_) DeleteObject(object_);
  }
  Selected(const Selected&) = delete;
  Selected& operator=(const Selected&) = delete;

 private:
  HDC context_;
  HGDIOBJ object_;
  HGDIOBJ before_;
  bool owned_;
};

HPEN PenOf(const Canvas::Stroke& stroke) {
  const LOGBRUSH brush{BS_SOLID, stroke.color, 0};
  const DWORD caps = stroke.round ? PS_ENDCAP_ROUND | PS_JOIN_ROUND : PS_ENDCAP_FLAT | PS_JOIN_MITER;
  return ExtCreatePen(PS_GEOMETRIC | stroke.style | caps, static_cast<DWORD>(std::max(stroke.width, 1)), &brush, 0,
                      nullptr);
}

HBRUSH BrushOf(const COLORREF* fill) {
  return fill == nullptr ? static_cast<HBRUSH>(GetStockObject(NULL_BRUSH)) : CreateSolidBrush(*fill);
}

}  // namespace

void Canvas::Fill(const RECT& rect, COLORREF color) const {
  const COLORREF before = SetBkColor(context_, color);
  ExtTextOutW(context_, 0, 0, ETO_OPAQUE, &rect, nullptr, 0, nullptr);
  SetBkColor(context_, before);
}

void Canvas::Frame(const RECT& rect, COLORREF color) const {
  Fill({rect.left, rect.top, rect.right, rect.top + 1}, color);
  Fill({rect.left, rect.bottom - 1, rect.right, rect.bottom}, color);
  Fill({rect.left, rect.top, rect.left + 1, rect.bottom}, color);
  Fill({rect.right - 1, rect.top, rect.right, rect.bottom}, color);
}

void Canvas::Text(RECT rect, std::wstring_view text, COLORREF color, UINT flags, Look::Font font) const {
  const Selected selected(context_, look_.Handle(font), false);
  SetBkMode(context_, TRANSPARENT);
  SetTextColor(context_, color);
  DrawTextW(context_, text.data(), static_cast<int>(text.size()), &rect, flags | DT_NOPREFIX);
}

void Canvas::Lines(std::span<const POINT> points, const Stroke& stroke) const {
  const Selected pen(context_, PenOf(stroke), true);
  SetBkMode(context_, TRANSPARENT);
  Polyline(context_, points.data(), static_cast<int>(points.size()));
}

void Canvas::Polygon(std::span<const POINT> points, const Stroke& stroke, const COLORREF* fill) const {
  const Selected pen(context_, PenOf(stroke), true);
  const Selected brush(context_, BrushOf(fill), fill != nullptr);
  ::Polygon(context_, points.data(), static_cast<int>(points.size()));
}

void Canvas::Ellipse(const RECT& rect, const Stroke& stroke, const COLORREF* fill) const {
  const Selected pen(context_, PenOf(stroke), true);
  const Selected brush(context_, BrushOf(fill), fill != nullptr);
  ::Ellipse(context_, rect.left, rect.top, rect.right, rect.bottom);
}

}  // namespace htr60::view
