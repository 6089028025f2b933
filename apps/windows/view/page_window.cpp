#include "windows/view/page_window.h"

#include <algorithm>
#include <cwctype>
#include <utility>

#include "windows/base/text.h"
#include "windows/view/damage.h"
#include "windows/view/figure_painter.h"

namespace htr60::view {
namespace {

constexpr wchar_t kClass[] = L"Htr60Page";
constexpr int kSmallestWidth = 480;  // 1/96 inch: below it the page scrolls sideways

bool IsTypedInto(RowKind kind) { return kind == RowKind::kEdit || kind == RowKind::kNum; }

}  // namespace

PageWindow::PageWindow(IViewActs& acts, UserCntrl& control, presentation::Presentation& presented, HWND parent)
    : Window(kClass, parent, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS | WS_VSCROLL | WS_HSCROLL,
             WS_EX_CONTROLPARENT),
      acts_(acts),
      control_(control),
      presented_(presented) {}

void PageWindow::Take(const Look& look) {
  bool whole = look_ != &look;
  if (page_ != presented_.Page()) {
    page_ = presented_.Page();
    Forget();
    offset_ = {};
    whole = true;
  }
  if (look_ != &look) tips_.Take(look);
  const PagePlan before = std::move(plan_);
  const POINT scrolled = offset_;
  look_ = &look;
  RECT window{};
  GetWindowRect(Handle(), &window);
  // As if the bars were not there, then once more where the upright one is.
  SIZE room{std::max<LONG>(window.right - window.left, look.Pixels(kSmallestWidth)), window.bottom - window.top};
  plan_ = PlanPage(control_, presented_, look, room);
  if (plan_.height > room.cy) {
    room.cx = std::max<LONG>(window.right - window.left - GetSystemMetrics(SM_CXVSCROLL), look.Pixels(kSmallestWidth));
    plan_ = PlanPage(control_, presented_, look, room);
  }
  room_ = {std::max<LONG>(room.cx, plan_.width), room.cy};
  SetBars();
  PlaceFields();
  const bool redrawn = TakeFigure();
  if (whole || offset_.x != scrolled.x || offset_.y != scrolled.y) return Invalidate();
  for (const RECT& part : DamageOf(before, plan_, look)) InvalidatePlanned(part);
  if (redrawn || EqualRect(&before.figure, &plan_.figure) == FALSE) {
    InvalidatePlanned(before.figure);
    InvalidatePlanned(plan_.figure);
  }
}

void PageWindow::InvalidatePlanned(RECT rect) const {
  OffsetRect(&rect, -offset_.x, -offset_.y);
  Invalidate(&rect);
}

bool PageWindow::TakeFigure() {
  if (IsRectEmpty(&plan_.figure) != FALSE || figure_ == presented_.Drawing()) return false;
  figure_ = presented_.Drawing();
  return true;
}

void PageWindow::FollowFocus(HWND window) {
  if (TakeFigure()) InvalidatePlanned(plan_.figure);  // it rings the point whose field has the focus
  const Child* child = Child::Of(window);
  const ControlId focused = child != nullptr && FieldOf(*child) != nullptr ? child->Spot().control : ControlId{};
  if (focused == focused_) return;
  for (const PlannedField& field : plan_.fields) {
    if (field.control == focused || field.control == focused_) InvalidatePlanned(field.rect);
  }
  focused_ = focused;
}

// A window that goes while it has a tooltip leaves something of that behind.
void PageWindow::Forget() {
  for (const Placed& placed : fields_) tips_.Remove(placed.window->Own().Handle());
  fields_.clear();
}

FieldWindow& PageWindow::WindowFor(const PlannedField& field) {
  for (Placed& placed : fields_) {
    if (placed.control == field.control && placed.kind == field.kind && placed.number == field.number) {
      placed.planned = true;
      return *placed.window;
    }
  }
  std::unique_ptr<FieldWindow> made;
  switch (field.kind) {
    case RowKind::kList:
      made = std::make_unique<ChoiceField>(acts_, presented_.Keys(), Handle(), field);
      break;
    case RowKind::kListBox:
      made = std::make_unique<RowsField>(acts_, Handle(), field);
      break;
    case RowKind::kOpen:
    case RowKind::kWrite:
      made = std::make_unique<ButtonField>(acts_, Handle(), field.control);
      break;
    default:
      made = std::make_unique<EntryField>(
          acts_, Handle(), field, IsTypedInto(field.kind) ? control_.form.At(TextId{field.control}).MaxLength() : 0);
      break;
  }
  tips_.Add(made->Own().Handle());
  fields_.push_back({field.control, field.kind, field.number, std::move(made), true});
  return *fields_.back().window;
}

void PageWindow::PlaceFields() {
  for (Placed& placed : fields_) placed.planned = false;
  for (const PlannedField& field : plan_.fields) {
    FieldWindow& window = WindowFor(field);
    RECT rect = field.rect;
    OffsetRect(&rect, -offset_.x, -offset_.y);
    window.Place(rect, field, *look_);
    window.Take(field, *look_);
    window.Own().Show(true);
  }
  for (Placed& placed : fields_) {
    if (!placed.planned) placed.window->Own().Show(false);
  }
}

FieldWindow* PageWindow::FieldOf(ControlId control) const {
  for (const Placed& placed : fields_) {
    if (placed.control == control && placed.planned) return placed.window.get();
  }
  return nullptr;
}

FieldWindow* PageWindow::FieldOf(const Child& child) const {
  for (const Placed& placed : fields_) {
    if (&placed.window->Own() == &child) return placed.window.get();
  }
  return nullptr;
}

void PageWindow::FollowList() {
  for (const Placed& placed : fields_) {
    if (auto* choice = dynamic_cast<ChoiceField*>(placed.window.get())) choice->Follow();
  }
}

// ---- scrolling

void PageWindow::SetBars() {
  RECT window{};
  GetWindowRect(Handle(), &window);
  const SIZE outside{window.right - window.left, window.bottom - window.top};
  const bool sideways = room_.cx > outside.cx;
  const LONG high = outside.cy - (sideways ? GetSystemMetrics(SM_CYHSCROLL) : 0);
  const bool upright = plan_.height > high;
  const LONG wide = outside.cx - (upright ? GetSystemMetrics(SM_CXVSCROLL) : 0);
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  info.nMax = std::max(0, plan_.height - 1);
  info.nPage = static_cast<UINT>(std::max<LONG>(high, 0));
  offset_.y = std::clamp<LONG>(offset_.y, 0, std::max<LONG>(0, plan_.height - high));
  info.nPos = offset_.y;
  SetScrollInfo(Handle(), SB_VERT, &info, TRUE);
  info.nMax = std::max<int>(0, room_.cx - 1);
  info.nPage = static_cast<UINT>(std::max<LONG>(wide, 0));
  offset_.x = sideways ? std::clamp<LONG>(offset_.x, 0, std::max<LONG>(0, room_.cx - wide)) : 0;
  info.nPos = offset_.x;
  if (!sideways) info.nPage = static_cast<UINT>(room_.cx);
  SetScrollInfo(Handle(), SB_HORZ, &info, TRUE);
}

void PageWindow::ScrollBy(int bar, int request, int track) {
  const RECT client = Client();
  const bool upright = bar == SB_VERT;
  const LONG page = upright ? client.bottom : client.right;
  const LONG line = look_->FieldHeight();
  POINT wanted = offset_;
  LONG& place = upright ? wanted.y : wanted.x;
  switch (request) {
    case SB_LINEUP:
      place -= line;
      break;
    case SB_LINEDOWN:
      place += line;
      break;
    case SB_PAGEUP:
      place -= page;
      break;
    case SB_PAGEDOWN:
      place += page;
      break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      place = track;
      break;
    default:
      return;
  }
  MoveTo(wanted);
}

void PageWindow::MoveTo(POINT offset) {
  const POINT before = offset_;
  offset_ = offset;
  SetBars();
  if (offset_.x == before.x && offset_.y == before.y) return;
  PlaceFields();
  Invalidate();
}

void PageWindow::Scroll(int notches) {
  for (const Placed& placed : fields_) {
    auto* choice = dynamic_cast<ChoiceField*>(placed.window.get());
    if (choice != nullptr && choice->Scroll(notches)) return;
  }
  MoveTo({offset_.x, offset_.y - notches * 3 * look_->FieldHeight() / WHEEL_DELTA});
}

void PageWindow::ScrollTo(ControlId control) {
  const RECT client = Client();
  for (const PlannedField& field : plan_.fields) {
    if (field.control != control) continue;
    POINT wanted = offset_;
    const LONG gap = look_->Character();
    if (field.rect.bottom + gap > wanted.y + client.bottom) wanted.y = field.rect.bottom + gap - client.bottom;
    if (field.rect.top - gap < wanted.y) wanted.y = field.rect.top - gap;
    if (field.rect.right + gap > wanted.x + client.right) wanted.x = field.rect.right + gap - client.right;
    if (field.rect.left - gap < wanted.x) wanted.x = field.rect.left - gap;
    MoveTo(wanted);
    return;
  }
}

// ---- what the system asks

LRESULT PageWindow::OnMessage(UINT message, WPARAM word, LPARAM number) {
  if (look_ == nullptr) return Window::OnMessage(message, word, number);
  switch (message) {
    case WM_PAINT:
      Paint(*look_, [this](const Canvas& canvas, const RECT& part) { PaintPage(canvas, &part); });
      return 0;
    case WM_PRINTCLIENT:
      PaintPage(Canvas(reinterpret_cast<HDC>(word), *look_), nullptr);
      return 0;
    case WM_VSCROLL:
    case WM_HSCROLL: {
      SCROLLINFO info{};
      info.cbSize = sizeof info;
      info.fMask = SIF_TRACKPOS;
      const int bar = message == WM_VSCROLL ? SB_VERT : SB_HORZ;
      GetScrollInfo(Handle(), bar, &info);
      ScrollBy(bar, LOWORD(word), info.nTrackPos);
      return 0;
    }
    case WM_UPDATEUISTATE:
      Invalidate();
      return Window::OnMessage(message, word, number);
    case WM_MOUSEWHEEL:
      Scroll(GET_WHEEL_DELTA_WPARAM(word));
      return 0;
    case WM_LBUTTONDOWN:
      Clicked(static_cast<short>(LOWORD(number)), static_cast<short>(HIWORD(number)));
      return 0;
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORLISTBOX: {
      LRESULT brush = 0;
      ColourField(reinterpret_cast<HDC>(word), reinterpret_cast<HWND>(number), message != WM_CTLCOLOREDIT, brush);
      return brush;
    }
    case WM_COMMAND:
      if (Child* child = Child::Of(reinterpret_cast<HWND>(number))) {
        FieldWindow* field = FieldOf(*child);
        auto* entry = dynamic_cast<EntryField*>(field);
        if (entry != nullptr && HIWORD(word) == EN_CHANGE && entry->IsTyped()) {
          presented_.Type(TextId{child->Spot().control}, com::Utf8WithMarks(child->Text()));
        } else if (dynamic_cast<ButtonField*>(field) != nullptr && HIWORD(word) == BN_CLICKED) {
          presented_.Press(ButtonId{child->Spot().control});
          acts_.Acted();
        }
      }
      return 0;
    case WM_NOTIFY:
      tips_.Answer(*reinterpret_cast<NMHDR*>(number), [this](HWND window) { return TipOf(window); });
      return 0;
    case WM_DRAWITEM: {
      const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(number);
      if (Child* child = Child::Of(item.hwndItem)) {
        if (auto* rows = dynamic_cast<RowsField*>(FieldOf(*child))) rows->PaintRow(item, *look_);
      }
      return TRUE;
    }
    default:
      return Window::OnMessage(message, word, number);
  }
}

std::wstring PageWindow::TipOf(HWND window) const {
  const Child* child = Child::Of(window);
  const FieldWindow* asked = child != nullptr ? FieldOf(*child) : nullptr;
  if (asked == nullptr) return {};
  const auto field = std::find_if(plan_.fields.begin(), plan_.fields.end(), [&](const PlannedField& planned) {
    return child->Spot() == presentation::Spot(planned.control);
  });
  if (field == plan_.fields.end()) return {};
  const presentation::ScreenRow* row = presented_.Row(field->control);
  if (row == nullptr) return field->note;
  return com::Utf16WithMarks(presentation::ToolTipOf(*row, com::Utf8WithMarks(field->note),
                                                     {.text = asked->CutOff(), .words = field->wordsCut}));
}

// A frame line without a field's ground tells reading from typing.
void PageWindow::ColourField(HDC context, HWND window, bool readOnly, LRESULT& brush) const {
  const COLORREF ground = readOnly ? look_->window : look_->base;
  COLORREF color = readOnly ? look_->windowText : look_->text;
  if (const Child* child = Child::Of(window)) {
    const auto* entry = dynamic_cast<EntryField*>(FieldOf(*child));
    if (entry != nullptr && entry->IsPale()) color = look_->PaleOn(ground);
    if (IsWindowEnabled(window) == FALSE) color = look_->disabled;
  }
  SetTextColor(context, color);
  SetBkColor(context, ground);
  brush = reinterpret_cast<LRESULT>(readOnly ? look_->WindowBrush() : look_->BaseBrush());
}

void PageWindow::Clicked(int x, int y) {
  if (IsRectEmpty(&plan_.figure) != FALSE) return;
  const ControlId field = FieldAt(presented_.Drawing(), plan_.figure, *look_, {x + offset_.x, y + offset_.y});
  if (FieldWindow* window = field ? FieldOf(field) : nullptr) SetFocus(window->Own().Handle());
}

// ---- painting

void PageWindow::PaintText(const Canvas& canvas, const PlannedText& text) const {
  using Style = PlannedText::Style;
  const bool words = text.style == Style::kWords || text.style == Style::kAlert;
  UINT flags = DT_LEFT | DT_VCENTER | DT_SINGLELINE | (words ? DT_END_ELLIPSIS : 0U);
  COLORREF color = look_->windowText;
  Look::Font font = Look::Font::kPlain;
  switch (text.style) {
    case Style::kPlain:
    case Style::kWords:
      break;
    case Style::kTitle: {
      font = Look::Font::kBold;
      RECT ground = text.rect;
      InflateRect(&ground, look_->Character() / 2, 0);
      canvas.Fill(ground, look_->window);
      break;
    }
    case Style::kPale:
      color = look_->PaleOn(look_->window);
      break;
    case Style::kAlert:
      color = look_->alert;
      break;
    case Style::kMessage:
      flags = DT_LEFT | DT_WORDBREAK;
      break;
  }
  canvas.Text(text.rect, text.text, color, flags, font);
  const bool hidden = (SendMessageW(Handle(), WM_QUERYUISTATE, 0, 0) & UISF_HIDEACCEL) != 0;
  if (text.mnemonic == '\0' || hidden) return;
  for (std::size_t i = 0; i < text.text.size(); ++i) {
    if (std::towupper(text.text[i]) != static_cast<wchar_t>(text.mnemonic)) continue;
    const LONG left = text.rect.left + look_->WidthOf(std::wstring_view(text.text).substr(0, i), font);
    const LONG right = left + look_->WidthOf(std::wstring_view(text.text).substr(i, 1), font);
    const LONG y = text.rect.top + look_->Ascent(font) + look_->Pixels(1);
    canvas.Fill({left, y, right, y + std::max(1, look_->Pixels(1))}, color);
    return;
  }
}

// A frame line tells the field with the focus; a ground what can be typed into.
void PageWindow::PaintFrame(const Canvas& canvas, const PlannedField& field) const {
  FieldWindow* window = FieldOf(field.control);
  if (window == nullptr || !window->IsFramed()) return;
  if (IsTypedInto(field.kind) && field.enabled) canvas.Fill(field.rect, look_->base);
  const bool focused = field.control == focused_;
  RECT frame = field.rect;
  for (int i = 0; i < (focused ? std::max(2, look_->Pixels(2)) : std::max(1, look_->Pixels(1))); ++i) {
    canvas.Frame(frame, focused ? look_->accent : look_->edge);
    InflateRect(&frame, -1, -1);
  }
}

void PageWindow::PaintPage(const Canvas& canvas, const RECT* part) {
  canvas.Fill(Client(), look_->window);
  POINT origin{};
  OffsetViewportOrgEx(canvas.Context(), -offset_.x, -offset_.y, &origin);
  const auto wanted = [&](RECT rect) {
    InflateRect(&rect, look_->Character(), look_->Character());
    OffsetRect(&rect, -offset_.x, -offset_.y);
    RECT both{};
    return part == nullptr || IntersectRect(&both, &rect, part) != FALSE;
  };
  for (const RECT& box : plan_.boxes) canvas.Frame(box, look_->edge);
  for (const PlannedField& field : plan_.fields) {
    if (wanted(field.rect)) PaintFrame(canvas, field);
  }
  for (const PlannedText& text : plan_.texts) {
    if (wanted(text.rect)) PaintText(canvas, text);
  }
  for (const PlannedShape& shape : plan_.shapes) {
    if (wanted(shape.rect)) PaintShape(canvas, shape.rect, shape.shape);
  }
  for (const presentation::FlowArrow& arrow : plan_.arrows) {
    const POINT points[] = {{arrow.left.x, arrow.left.y}, {arrow.right.x, arrow.right.y}, {arrow.tip.x, arrow.tip.y}};
    canvas.Polygon(points, {.color = look_->windowText}, &look_->windowText);
  }
  if (IsRectEmpty(&plan_.figure) == FALSE && wanted(plan_.figure))
    PaintFigure(canvas, plan_.figure, presented_.Drawing());
  SetViewportOrgEx(canvas.Context(), origin.x, origin.y, nullptr);
}

}  // namespace htr60::view
