// What the view paints itself, around the page.
#include <algorithm>

#include "windows/base/text.h"
#include "windows/view/control_view.h"
#include "windows/view/pictures.h"
#include "windows/view/shapes.h"

namespace htr60::view {
namespace {

// Panels of the status, in percent.
constexpr int kPanels[] = {24, 8, 8, 60};

constexpr UINT kLine = DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS;

std::wstring Wide(std::string_view text) { return com::Utf16WithMarks(text); }

}  // namespace

void ControlView::PaintAll(const Canvas& canvas) {
  canvas.Fill(Client(), look_->window);
  PaintHeader(canvas);
  const int gap = look_->Character();
  if (IsRectEmpty(&places_.waiting) == FALSE) {
    canvas.Fill(places_.waiting, look_->tip);
    canvas.Text(places_.waiting, WaitingText(), look_->tipText, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
  }
  const presentation::Screen& screen = presented_.Shown();
  if (screen.bar) {
    RECT words = places_.bar;
    canvas.Fill(words, look_->tip);
    words.left += gap;
    canvas.Text(words, Wide(screen.bar->text), look_->tipText, DT_LEFT | DT_VCENTER | DT_SINGLELINE);
  }
  const std::wstring message = Wide(screen.message);
  if (screen.frame) {
    const int height = look_->HeightOf(message, places_.message.right - places_.message.left);
    RECT room = places_.message;
    room.top += std::max<LONG>(0, (room.bottom - room.top - height) / 2);
    canvas.Text(room, message, look_->windowText, DT_LEFT | DT_WORDBREAK);
  } else {
    RECT page{places_.header.left + gap, places_.header.bottom, places_.header.right - gap, places_.actions.top};
    const int height = look_->HeightOf(message, page.right - page.left);
    page.top = (page.top + page.bottom) / 2 - height;
    canvas.Text(page, message, look_->windowText, DT_CENTER | DT_WORDBREAK);
  }
  canvas.Fill({places_.actions.left, places_.actions.top, places_.actions.right, places_.actions.top + 1}, look_->edge);
  PaintStatus(canvas);
}

void ControlView::PaintHeader(const Canvas& canvas) const {
  const presentation::Screen& screen = presented_.Shown();
  canvas.Text(places_.title, Wide(screen.title), look_->windowText, kLine, Look::Font::kTitle);
  canvas.Text(places_.data, Wide(screen.dataLine), look_->windowText, DT_RIGHT | DT_VCENTER | DT_SINGLELINE);
  if (screen.late) {
    const int side = look_->Ascent();
    const LONG right = places_.data.left - look_->Character() / 2;
    PaintShape(canvas, {right - side, places_.data.top, right, places_.data.bottom}, Shape::kWarning);
  }
  canvas.Text(places_.purpose, Wide(screen.purpose), look_->windowText, DT_LEFT | DT_WORDBREAK);
}

void ControlView::PaintStatus(const Canvas& canvas) {
  const RECT& status = places_.status;
  canvas.Fill({status.left, status.top, status.right, status.top + 1}, look_->edge);
  LONG left = status.left;
  const int gap = look_->Character();
  const std::string& picture = control_.form.statusBar.Panel(1).picture;
  if (iconName_ != picture) {
    if (icon_ != nullptr) DestroyIcon(icon_);
    icon_ = picture.empty() ? nullptr : LoadIconFile(picture, look_->Line());
    iconName_ = picture;
  }
  for (int panel = 1; panel <= 4; ++panel) {
    const LONG right = left + MulDiv(status.right - status.left, kPanels[panel - 1], 100);
    RECT words{left + gap, status.top, right - gap, status.bottom};
    if (panel == 1 && icon_ != nullptr) {
      const int side = look_->Line();
      DrawIconEx(canvas.Context(), words.left, (status.top + status.bottom - side) / 2, icon_, side, side, 0, nullptr,
                 DI_NORMAL);
      words.left += side + gap;
    }
    canvas.Text(words, Wide(control_.form.statusBar.Panel(panel).text), look_->windowText, kLine);
    if (panel < 4) canvas.Fill({right, status.top + 3, right + 1, status.bottom - 3}, look_->edge);
    left = right;
  }
}

// Write: prominent while there is something to write; while disabled it looks as any other.
void ControlView::PaintProminent(const DRAWITEMSTRUCT& item) const {
  const Canvas canvas(item.hDC, *look_);
  const bool disabled = (item.itemState & ODS_DISABLED) != 0;
  const bool pressed = (item.itemState & ODS_SELECTED) != 0;
  const bool prominent = presented_.Shown().unwritten && !disabled;
  RECT rect = item.rcItem;
  if (prominent) {
    canvas.Fill(rect, look_->strong);
    canvas.Frame(rect, look_->windowText);
  } else {
    DrawFrameControl(item.hDC, &rect, DFC_BUTTON, DFCS_BUTTONPUSH | (pressed ? DFCS_PUSHED : 0U));
  }
  COLORREF color = prominent ? look_->highlightText : look_->windowText;
  if (disabled) color = look_->disabled;
  const Look::Font font = prominent ? Look::Font::kBold : Look::Font::kPlain;
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, color);
  const HGDIOBJ before = SelectObject(item.hDC, look_->Handle(font));
  DrawTextW(item.hDC, L"&Write", -1, &rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
  SelectObject(item.hDC, before);
  if ((item.itemState & ODS_FOCUS) != 0) {
    InflateRect(&rect, -3, -3);
    DrawFocusRect(item.hDC, &rect);
  }
}

}  // namespace htr60::view
