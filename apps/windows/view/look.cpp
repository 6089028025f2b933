#include "windows/view/look.h"

#include <algorithm>
#include <new>

#include "presentation/contrast.h"

namespace htr60::view {
namespace {

using presentation::Rgb;

Rgb RgbOf(COLORREF color) { return {GetRValue(color), GetGValue(color), GetBValue(color)}; }
COLORREF ColorOf(Rgb color) { return RGB(color.red, color.green, color.blue); }

}  // namespace

Look::Look(int dpi) : dpi_(std::max(dpi, 48)), measure_(CreateCompatibleDC(nullptr)) {
  if (measure_ == nullptr) throw std::bad_alloc();
  TakeColours();
  TakeFonts();
}

Look::~Look() {
  DeleteDC(measure_);
  for (const Made& font : fonts_) DeleteObject(font.handle);
  DeleteObject(windowBrush_);
  DeleteObject(baseBrush_);
}

void Look::TakeColours() {
  window = GetSysColor(COLOR_BTNFACE);
  windowText = GetSysColor(COLOR_BTNTEXT);
  base = GetSysColor(COLOR_WINDOW);
  text = GetSysColor(COLOR_WINDOWTEXT);
  highlight = GetSysColor(COLOR_HIGHLIGHT);
  highlightText = GetSysColor(COLOR_HIGHLIGHTTEXT);
  disabled = GetSysColor(COLOR_GRAYTEXT);
  tip = GetSysColor(COLOR_INFOBK);
  tipText = GetSysColor(COLOR_INFOTEXT);
  const presentation::Grounds grounds{RgbOf(window), RgbOf(base)};
  accent = ColorOf(grounds.Text(RgbOf(highlight)));
  warning = ColorOf(grounds.Warning());
  alert = ColorOf(grounds.Alert());
  edge = ColorOf(grounds.Shape(RgbOf(GetSysColor(COLOR_BTNSHADOW))));
  grid = ColorOf(presentation::Mixed(RgbOf(window), RgbOf(windowText), 0.15));
  strong = ColorOf(presentation::Against(RgbOf(highlightText), RgbOf(highlight), presentation::kTextContrast));
  windowBrush_ = CreateSolidBrush(window);
  baseBrush_ = CreateSolidBrush(base);
}

// The dialog font as the system has it for its own resolution, at ours.
void Look::TakeFonts() {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  LOGFONTW plain = metrics.lfMessageFont;
  const HDC screen = GetDC(nullptr);
  const int systemDpi = std::max(1, GetDeviceCaps(screen, LOGPIXELSY));
  ReleaseDC(nullptr, screen);
  plain.lfHeight = MulDiv(plain.lfHeight, dpi_, systemDpi);
  const struct {
    LONG weight;
    int tenths;
  } kKinds[] = {{FW_NORMAL, 10}, {FW_BOLD, 10}, {FW_BOLD, 13}, {FW_NORMAL, 19}};
  for (std::size_t i = 0; i < std::size(fonts_); ++i) {
    LOGFONTW font = plain;
    font.lfWeight = kKinds[i].weight;
    font.lfHeight = MulDiv(plain.lfHeight, kKinds[i].tenths, 10);
    fonts_[i].handle = CreateFontIndirectW(&font);
    const HGDIOBJ before = SelectObject(measure_, fonts_[i].handle);
    TEXTMETRICW measured{};
    GetTextMetricsW(measure_, &measured);
    fonts_[i].line = measured.tmHeight;
    fonts_[i].ascent = measured.tmAscent;
    if (i == 0) character_ = measured.tmAveCharWidth;
    SelectObject(measure_, before);
  }
}

COLORREF Look::PaleOn(COLORREF ground) const {
  return ColorOf(presentation::Against(RgbOf(ground), RgbOf(disabled), presentation::kTextContrast));
}

int Look::WidthOf(std::wstring_view words, Font font) const {
  constexpr std::size_t kMost = 4096;
  Widths& widths = widths_[static_cast<std::size_t>(font)];
  if (const auto known = widths.find(words); known != widths.end()) return known->second;
  if (widths.size() >= kMost) widths.clear();
  const HGDIOBJ before = SelectObject(measure_, Handle(font));
  SIZE size{};
  GetTextExtentPoint32W(measure_, words.data(), static_cast<int>(words.size()), &size);
  SelectObject(measure_, before);
  widths.emplace(words, size.cx);
  return size.cx;
}

int Look::HeightOf(std::wstring_view words, int width, Font font) const {
  const HGDIOBJ before = SelectObject(measure_, Handle(font));
  RECT room{0, 0, std::max(width, 1), 0};
  DrawTextW(measure_, words.data(), static_cast<int>(words.size()), &room, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
  SelectObject(measure_, before);
  return room.bottom;
}

int DpiOf(HWND window) {
  using Ask = UINT(WINAPI*)(HWND);
  static const auto ask = reinterpret_cast<Ask>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "GetDpiForWindow")));
  if (ask != nullptr) {
    if (const UINT dpi = ask(window); dpi != 0) return static_cast<int>(dpi);
  }
  const HDC screen = GetDC(window);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(window, screen);
  return dpi;
}

}  // namespace htr60::view
