#include "windows/view/pictures.h"

#include <vector>

#include "windows/base/module.h"
#include "windows/base/text.h"

namespace htr60::view {
namespace {

constexpr int kFirst = 8;
constexpr int kMore = 8;

/// The icon in another ink: its shape is in its alpha alone.
HICON Inked(HICON icon, int side, COLORREF ink) {
  ICONINFO info{};
  if (GetIconInfo(icon, &info) == FALSE) return nullptr;
  BITMAPINFO format{};
  format.bmiHeader.biSize = sizeof format.bmiHeader;
  format.bmiHeader.biWidth = side;
  format.bmiHeader.biHeight = -side;
  format.bmiHeader.biPlanes = 1;
  format.bmiHeader.biBitCount = 32;
  std::vector<DWORD> dots(static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
  const HDC screen = GetDC(nullptr);
  GetDIBits(screen, info.hbmColor, 0, static_cast<UINT>(side), dots.data(), &format, DIB_RGB_COLORS);
  const DWORD color =
      static_cast<DWORD>(GetRValue(ink)) << 16 | static_cast<DWORD>(GetGValue(ink)) << 8 | GetBValue(ink);
  for (DWORD& dot : dots) dot = (dot & 0xFF000000U) | color;
  SetDIBits(screen, info.hbmColor, 0, static_cast<UINT>(side), dots.data(), &format, DIB_RGB_COLORS);
  ReleaseDC(nullptr, screen);
  const HICON inked = CreateIconIndirect(&info);
  DeleteObject(info.hbmColor);
  DeleteObject(info.hbmMask);
  return inked;
}

}  // namespace

Pictures::Pictures(int side, COLORREF ink)
    : side_(side), ink_(ink), list_(ImageList_Create(side, side, ILC_COLOR32 | ILC_MASK, kFirst, kMore)) {}

Pictures::~Pictures() { ImageList_Destroy(list_); }

int Pictures::IndexOf(std::string_view name) {
  if (const auto found = known_.find(name); found != known_.end()) return found->second;
  int index = -1;
  const auto icon = static_cast<HICON>(
      LoadImageW(com::Module(), com::Utf16WithMarks(name).c_str(), IMAGE_ICON, side_, side_, LR_DEFAULTCOLOR));
  if (icon != nullptr) {
    if (const HICON inked = Inked(icon, side_, ink_)) {
      index = ImageList_ReplaceIcon(list_, -1, inked);
      DestroyIcon(inked);
    }
    DestroyIcon(icon);
  }
  known_.emplace(name, index);
  return index;
}

HICON LoadIconFile(std::string_view fileName, int side) {
  std::wstring file = com::ModuleFile();
  file.resize(file.find_last_of(L'\\') + 1);
  file += com::Utf16WithMarks(fileName);
  return static_cast<HICON>(LoadImageW(nullptr, file.c_str(), IMAGE_ICON, side, side, LR_LOADFROMFILE));
}

}  // namespace htr60::view
