// What the view paints itself, around the page.
#include <algorithm>

#include "windows/base/text.h"
#include "windows/view/control_view.h"
#include "windows/view/pictures.h"
#include "windows/view/shapes.h"

namespace htr60::view {
namespace {

// Panels of the status, in percent.
constexpr int kPercents[] = {24, 8, 8, 60};

constexpr UINT kInLine = DT_VCENTER | DT_SINGLELINE;
constexpr UINT kCutInLine = DT_LEFT | kInLine | DT_END_ELLIPSIS;
constexpr UINT kInLines = DT_LEFT | DT_WORDBREAK;

std::wstring Wide(std::string_view text) { return com::Utf16WithMarks(text); }

RECT Hollowed(RECT rect, LONG beside) {
  InflateRect(&rect, -beside, 0);
  return rect;
}

}  // namespace

bool ControlView::Part::operator==(const Part& other) const {
  return EqualRect(&rect, &other.rect) != FALSE && text == other.text && flags == other.flags && strip == other.strip;
}

ControlView::Parts ControlView::PartsNow() const {
  const presentation::Screen& screen = presented_.Shown();
  const int gap = look_->Character();
  Parts parts;
  parts[kTitle] = {places_.title, Wide(screen.title), kCutInLine, Look::Font::kTitle};
  parts[kData] = {places_.data, Wide(screen.dataLine), DT_RIGHT | kInLine};
  if (screen.late) {
    const LONG right = places_.data.left - gap / 2;
    parts[kLate].rect = {right - look_->Ascent(), places_.data.top, right, places_.data.bottom};
  }
  parts[kPurpose] = {places_.purpose, Wide(screen.purpose), kInLines};
  parts[kWaiting] = {places_.waiting, Wide(screen.waiting), DT_CENTER | kInLine, Look::Font::kPlain, true};
  if (screen.bar) parts[kBar] = {places_.bar, Wide(screen.bar->text), DT_LEFT | kInLine, Look::Font::kPlain, true};
  Part& message = parts[kMessage];
  message.text = Wide(screen.message);
  message.flags = screen.frame ? kInLines : DT_CENTER | DT_WORDBREAK;
  message.rect = screen.frame ? places_.message
                              : RECT{places_.header.left + gap, places_.header.bottom, places_.header.right - gap,
                                     places_.actions.top};
  const int height = look_->HeightOf(message.text, message.rect.right - message.rect.left);
  const LONG middle = (message.rect.top + message.rect.bottom) / 2;
  message.rect.top = screen.frame ? std::max(message.rect.top, middle - height / 2) : middle - height;
  PlacePanels(parts);
  return parts;
}

void ControlView::PlacePanels(Parts& parts) const {
  const RECT& status = places_.status;
  const int gap = look_->Character();
  LONG left = status.left;
  for (std::size_t i = 0; i < std::size(kPercents); ++i) {
    const LONG right = left + MulDiv(status.right - status.left, kPercents[i], 100);
    RECT words = Hollowed({left, status.top, right, status.bottom}, gap);
    const StatusPanel& panel = control_.form.statusBar.Panel(static_cast<int>(i) + 1);
    if (!panel.picture.empty()) {
      const int side = look_->Picture();
      parts[kPicture] = {{words.left, words.top, words.left + side, words.bottom}, Wide(panel.picture)};
      words.left += side + gap;
    }
    parts[kFirstPanel + i] = {words, Wide(panel.text), kCutInLine};
    left = right;
  }
}

// Only what has changed is painted again.
void ControlView::TakeParts() {
  Parts now = PartsNow();
  if (now[kPicture].text != parts_[kPicture].text) {
    if (icon_ != nullptr) DestroyIcon(icon_);
    icon_ = nullptr;
    const std::string picture = com::Utf8WithMarks(now[kPicture].text);
    if (!picture.empty()) icon_ = LoadIconFile(picture, look_->Picture());
  }
  for (std::size_t i = 0; i < now.size(); ++i) {
    if (now[i] == parts_[i]) continue;
    Invalidate(&parts_[i].rect);
    Invalidate(&now[i].rect);
  }
  parts_ = std::move(now);
}

void ControlView::PaintAll(const Canvas& canvas) const {
  canvas.Fill(Client(), look_->window);
  for (std::size_t i = 0; i < parts_.size(); ++i) {
    const Part& part = parts_[i];
    if (IsRectEmpty(&part.rect) != FALSE) continue;
    if (i == kLate) {
      PaintShape(canvas, part.rect, Shape::kWarning);
    } else if (i == kPicture) {
      const int side = look_->Picture();
      if (icon_ != nullptr) {
        DrawIconEx(canvas.Context(), part.rect.left, (part.rect.top + part.rect.bottom - side) / 2, icon_, side, side,
                   0, nullptr, DI_NORMAL);
      }
    } else {
      if (part.strip) canvas.Fill(part.rect, look_->tip);
      canvas.Text(part.strip ? Hollowed(part.rect, look_->Character()) : part.rect, part.text,
                  part.strip ? look_->tipText : look_->windowText, part.flags, part.font);
    }
  }
  const RECT& actions = places_.actions;
  canvas.Fill({actions.left, actions.top, actions.right, actions.top + 1}, look_->edge);
  const RECT& status = places_.status;
  canvas.Fill({status.left, status.top, status.right, status.top + 1}, look_->edge);
  LONG right = status.left;
  for (std::size_t i = 0; i + 1 < std::size(kPercents); ++i) {
    right += MulDiv(status.right - status.left, kPercents[i], 100);
    canvas.Fill({right, status.top + 3, right + 1, status.bottom - 3}, look_->edge);
  }
}

// Write: prominent while there is something to write; while disabled it looks as any other.
void ControlView::PaintProminent(const DRAWITEMSTRUCT& item) const {
  const Canvas canvas(item.hDC, *look_);
  const bool disabled = (item.itemState & ODS_DISABLED) != 0;
  const bool pressed = (item.itemState & ODS_SELECTED) != 0;
  const bool prominent = prominent_ && !disabled;
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
