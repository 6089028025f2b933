#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "windows/win.h"

namespace htr60::view {

/// Fonts, lengths and colours of the system at one resolution. A change of either makes another.
class Look {
 public:
  enum class Font { kPlain, kBold, kTitle, kLarge };

  explicit Look(int dpi);
  ~Look();
  Look(const Look&) = delete;
  Look& operator=(const Look&) = delete;

  int Dpi() const { return dpi_; }
  /// Units of 1/96 inch as pixels.
  int Pixels(int units) const { return MulDiv(units, dpi_, 96); }
  HFONT Handle(Font font) const { return fonts_[static_cast<std::size_t>(font)].handle; }
  int Line(Font font = Font::kPlain) const { return fonts_[static_cast<std::size_t>(font)].line; }
  int Ascent(Font font = Font::kPlain) const { return fonts_[static_cast<std::size_t>(font)].ascent; }
  /// From the frame of a field to its text.
  int Inset() const { return Pixels(6); }
  /// Side of a small picture: scaled to another than its own sizes it would lose lines.
  int Picture() const { return Pixels(16); }
  /// Mean width of a character.
  int Character() const { return character_; }
  int FieldHeight(Font font = Font::kPlain) const { return Line(font) + 2 * (2 + Line(font) / 6); }
  /// Asks the system once for most texts: a page is measured at every turn.
  int WidthOf(std::wstring_view text, Font font = Font::kPlain) const;
  /// Height of a text in lines of that width.
  int HeightOf(std::wstring_view text, int width, Font font = Font::kPlain) const;

  COLORREF window, windowText, base, text, highlight, highlightText, disabled;
  COLORREF accent, warning, alert, edge, grid, tip, tipText;
  /// Ground of a button on which `highlightText` is readable.
  COLORREF strong;
  /// Text that steps back on a ground.
  COLORREF PaleOn(COLORREF ground) const;
  HBRUSH WindowBrush() const { return windowBrush_; }
  HBRUSH BaseBrush() const { return baseBrush_; }

 private:
  struct Made {
    HFONT handle = nullptr;
    int line = 0;
    int ascent = 0;
  };

  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::wstring_view text) const { return std::hash<std::wstring_view>()(text); }
  };
  using Widths = std::unordered_map<std::wstring, int, Hash, std::equal_to<>>;

  void TakeColours();
  void TakeFonts();

  int dpi_;
  int character_ = 0;
  HDC measure_;
  Made fonts_[4];
  mutable Widths widths_[4];  // of texts measured lately, by font
  HBRUSH windowBrush_ = nullptr;
  HBRUSH baseBrush_ = nullptr;
};

/// Dots an inch of the screen on which a window stands, as far as its process is aware of them.
int DpiOf(HWND window);

}  // namespace htr60::view
