#include "windows/view/look.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace htr60::view {
namespace {

double Linear(int part) {
  const double share = part / 255.0;
  return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double Luminance(COLORREF color) {
  return 0.2126 * Linear(GetRValue(color)) + 0.7152 * Linear(GetGValue(color)) + 0.0722 * Linear(GetBValue(color));
}

COLORREF Mixed(COLORREF a, COLORREF b, double share) {
  const auto part = [share](int from, int to) { return static_cast<int>(std::lround(from + (to - from) * share)); };
  return RGB(part(GetRValue(a), GetRValue(b)), part(GetGValue(a), GetGValue(b)), part(GetBValue(a), GetBValue(b)));
}

constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kWhite = RGB(255, 255, 255);

}  // namespace

double Contrast(COLORREF a, COLORREF b) {
  const auto [dark, light] = std::minmax({Luminance(a), Luminance(b)});
  return (light + 0.05) / (dark + 0.05);
}

COLORREF Against(COLORREF ground, COLORREF wanted, double least) {
  if (Contrast(ground, wanted) >= least) return wanted;
  const COLORREF end = Contrast(ground, kBlack) > Contrast(ground, kWhite) ? kBlack : kWhite;
  constexpr int kSteps = 64;
  for (int i = 1; i < kSteps; ++i) {
    const COLORREF color = Mixed(wanted, end, static_cast<double>(i) / kSteps);
    if (Contrast(ground, color) >= least) return color;
  }
  return end;
}

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
  const bool dark = Luminance(window) < 0.18;
  // Marks stand on a page and in its fields.
  const auto onPage = [&](COLORREF wanted) {
    return Against(base, Against(window, wanted, kTextContrast), kTextContrast);
  };
  accent = onPage(highlight);
  warning = onPage(dark ? RGB(0xFF, 0xC1, 0x4D) : RGB(0x8F, 0x5B, 0x00));
  alert = onPage(dark ? RGB(0xFF, 0x8A, 0x80) : RGB(0xB0, 0x1B, 0x1B));
  edge = Against(base, Against(window, GetSysColor(COLOR_BTNSHADOW), kShapeContrast), kShapeContrast);
  grid = Mixed(window, windowText, 0.15);
  strong = Against(highlightText, highlight, kTextContrast);
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

int Look::WidthOf(std::wstring_view words, Font font) const {
  const HGDIOBJ before = SelectObject(measure_, Handle(font));
  SIZE size{};
  GetTextExtentPoint32W(measure_, words.data(), static_cast<int>(words.size()), &size);
  SelectObject(measure_, before);
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
