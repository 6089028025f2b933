#include "windows/view/choice_field.h"

#include <algorithm>

#include "presentation/list_search.h"
#include "windows/base/module.h"
#include "windows/base/text.h"

namespace htr60::view {
namespace {

using presentation::ListSearch;

constexpr wchar_t kFieldClass[] = L"Htr60Choice";
constexpr wchar_t kPopupClass[] = L"Htr60List";

/// The class of the field, whose painting is its own.
const wchar_t* FieldClass() {
  WNDCLASSEXW description{};
  description.cbSize = sizeof description;
  description.lpfnWndProc = &DefWindowProcW;
  description.hInstance = com::Module();
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.lpszClassName = kFieldClass;
  RegisterClassExW(&description);  // fails where it is registered already
  return kFieldClass;
}

}  // namespace

// ---- the open list

ListPopup::ListPopup(IViewActs& acts, presentation::Keyboard& keys, HWND field, const Look& look)
    : Window(kPopupClass, field, WS_POPUP | WS_BORDER | WS_VSCROLL,
             WS_EX_NOACTIVATE | WS_EX_TOOLWINDOW | WS_EX_TOPMOST),
      acts_(acts),
      keys_(keys),
      list_(keys.Opened()),
      field_(field),
      look_(look) {
  Follow();
  Place();
  ShowWindow(Handle(), SW_SHOWNOACTIVATE);
}

int ListPopup::LineHeight() const { return look_.Line() + look_.Pixels(2); }
int ListPopup::SearchHeight() const { return list_->HasSearchLine() ? look_.FieldHeight() : 0; }
int ListPopup::VisibleLines() const { return std::clamp(list_->Lines(), 1, ListSearch::kVisibleLines); }

void ListPopup::Follow() {
  const bool searched = list_->Generation() != generation_;
  if (!searched && list_->Current() == current_) return Invalidate();
  generation_ = list_->Generation();
  current_ = list_->Current();
  if (searched) top_ = 0;
  if (current_ >= 0) {
    if (current_ < top_) top_ = current_;
    if (current_ >= top_ + ListSearch::kVisibleLines) top_ = current_ - ListSearch::kVisibleLines + 1;
  }
  SetBar();
  Invalidate();
}

void ListPopup::Scroll(int lines) {
  top_ = std::clamp(top_ + lines, 0, std::max(0, list_->Lines() - ListSearch::kVisibleLines));
  SetBar();
  Invalidate();
}

void ListPopup::SetBar() {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  info.nMax = std::max(0, list_->Lines() - 1);
  info.nPage = static_cast<UINT>(ListSearch::kVisibleLines);
  info.nPos = top_;
  SetScrollInfo(Handle(), SB_VERT, &info, TRUE);
}

// Below the field, above it where the screen ends; as wide as the widest line needs.
void ListPopup::Place() {
  RECT field{};
  GetWindowRect(field_, &field);
  int width = field.right - field.left;
  for (int line = 0; line < list_->Lines(); ++line) {
    width = std::max(width, look_.WidthOf(com::Utf16WithMarks(list_->Line(line))) + 3 * look_.Character() +
                                GetSystemMetrics(SM_CXVSCROLL));
  }
  const int height = SearchHeight() + VisibleLines() * LineHeight() + 2;
  MONITORINFO screen{};
  screen.cbSize = sizeof screen;
  GetMonitorInfoW(MonitorFromWindow(field_, MONITOR_DEFAULTTONEAREST), &screen);
  const RECT& room = screen.rcWork;
  LONG top = field.bottom;
  if (top + height > room.bottom && field.top - height >= room.top) top = field.top - height;
  const LONG left = std::max(room.left, std::min(field.left, room.right - width));
  SetWindowPos(Handle(), HWND_TOPMOST, left, top, width, height, SWP_NOACTIVATE);
}

std::optional<int> ListPopup::LineAt(int y) const {
  const int line = top_ + (y - SearchHeight()) / LineHeight();
  if (y < SearchHeight() || line >= list_->Lines()) return std::nullopt;
  return line;
}

LRESULT ListPopup::OnMessage(UINT message, WPARAM word, LPARAM number) {
  switch (message) {
    case WM_PAINT:
      Paint(look_, [this](const Canvas& canvas, const RECT&) { PaintLines(canvas); });
      return 0;
    case WM_MOUSEACTIVATE:
      return MA_NOACTIVATE;
    case WM_MOUSEMOVE:
      if (const auto line = LineAt(static_cast<short>(HIWORD(number))); line && list_->RowAt(*line) >= 0) {
        list_->MoveTo(*line);
        current_ = list_->Current();
        Invalidate();
      }
      return 0;
    case WM_LBUTTONUP:
      if (const auto line = LineAt(static_cast<short>(HIWORD(number)))) {
        IViewActs& acts = acts_;
        keys_.Take(*line);  // may let this go
        acts.Acted();
      }
      return 0;
    case WM_VSCROLL:
      switch (LOWORD(word)) {
        case SB_LINEUP:
          Scroll(-1);
          break;
        case SB_LINEDOWN:
          Scroll(1);
          break;
        case SB_PAGEUP:
          Scroll(-ListSearch::kVisibleLines);
          break;
        case SB_PAGEDOWN:
          Scroll(ListSearch::kVisibleLines);
          break;
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
          Scroll(static_cast<int>(HIWORD(word)) - top_);
          break;
        default:
          break;
      }
      return 0;
    default:
      return Window::OnMessage(message, word, number);
  }
}

void ListPopup::PaintLines(const Canvas& canvas) {
  RECT client = Client();
  canvas.Fill(client, look_.base);
  const int gap = look_.Character() / 2;
  if (list_->HasSearchLine()) {
    RECT line{client.left + gap, client.top, client.right - gap, client.top + SearchHeight()};
    const std::wstring searched = com::Utf16WithMarks(list_->Text());
    canvas.Text(line, searched.empty() ? L"Search" : searched + L"|",
                searched.empty() ? look_.PaleOn(look_.base) : look_.text, DT_LEFT | DT_VCENTER | DT_SINGLELINE);
    canvas.Fill({client.left, line.bottom - 1, client.right, line.bottom}, look_.edge);
  }
  for (int i = 0; i < ListSearch::kVisibleLines && top_ + i < list_->Lines(); ++i) {
    const int number = top_ + i;
    RECT line{client.left, SearchHeight() + i * LineHeight(), client.right, SearchHeight() + (i + 1) * LineHeight()};
    const bool current = number == list_->Current();
    if (current) canvas.Fill(line, look_.highlight);
    line.left += gap;
    COLORREF color = current ? look_.highlightText : look_.text;
    if (list_->RowAt(number) < 0) color = look_.PaleOn(look_.base);
    canvas.Text(line, com::Utf16WithMarks(list_->Line(number)), color, DT_LEFT | DT_VCENTER | DT_SINGLELINE);
  }
}

// ---- the field

ChoiceField::ChoiceField(IViewActs& acts, presentation::Keyboard& keys, HWND page, const PlannedField& field)
    : Child(acts, page, {FieldClass(), 0}, field.control), keys_(keys) {}

void ChoiceField::Take(const PlannedField& field, const Look& look) {
  if (look_ == nullptr || text_ != field.text) Acts().Told().TellChoice(Handle(), field.text);
  if (look_ != &look || text_ != field.text || pale_ != field.pale || enabled_ != field.enabled) {
    InvalidateRect(Handle(), nullptr, FALSE);
  }
  look_ = &look;
  text_ = field.text;
  pale_ = field.pale;
  enabled_ = field.enabled;
  SetText(field.text);
  Enable(field.enabled);
  Describe(field.name, field.description);
}

RECT ChoiceField::RoomOfText() const {
  RECT room{};
  GetClientRect(Handle(), &room);
  room.left += look_->Inset();
  room.right -= look_->Line();  // the arrow
  return room;
}

bool ChoiceField::CutOff() const {
  if (look_ == nullptr) return false;
  const RECT room = RoomOfText();
  return look_->WidthOf(text_) > room.right - room.left;
}

void ChoiceField::Follow() {
  const bool opened = keys_.Opened() != nullptr && keys_.OpenedOf() == Spot().control;
  if (popup_ != nullptr && (!opened || !popup_->Shows(keys_.Opened()))) popup_.reset();
  if (!opened || look_ == nullptr) return;
  if (popup_ == nullptr) {
    popup_ = std::make_unique<ListPopup>(Acts(), keys_, Handle(), *look_);
  } else {
    popup_->Follow();
  }
}

bool ChoiceField::Scroll(int notches) {
  if (popup_ == nullptr) return false;
  popup_->Scroll(-notches * 3 / WHEEL_DELTA);
  return true;
}

LRESULT ChoiceField::OnMessage(UINT message, WPARAM word, LPARAM number) {
  switch (message) {
    case WM_PAINT: {
      PAINTSTRUCT paint{};
      PaintField(BeginPaint(Handle(), &paint));
      EndPaint(Handle(), &paint);
      return 0;
    }
    case WM_PRINTCLIENT:
      PaintField(reinterpret_cast<HDC>(word));
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      InvalidateRect(Handle(), nullptr, FALSE);
      break;
    case WM_LBUTTONDOWN: {
      const HWND window = Handle();
      const bool opened = keys_.Opened() != nullptr && keys_.OpenedOf() == Spot().control;
      SetFocus(window);
      if (Child::Of(window) != this) return 0;
      if (opened) {
        keys_.Close();
      } else {
        keys_.Open(Spot().control);
      }
      Acts().Acted();
      return 0;
    }
    case WM_CHAR: {  // what no key means, while a search line stands open
      const auto list = keys_.Opened();
      if (list == nullptr || !list->HasSearchLine() || keys_.OpenedOf() != Spot().control) break;
      std::wstring text = com::Utf16WithMarks(list->Text());
      if (word == VK_BACK) {
        if (!text.empty()) text.pop_back();
      } else if (word >= L' ') {
        text += static_cast<wchar_t>(word);
      }
      keys_.Search(com::Utf8WithMarks(text));
      Acts().Acted();
      return 0;
    }
    default:
      break;
  }
  return Default(message, word, number);
}

void ChoiceField::PaintField(HDC context) {
  if (look_ != nullptr) {
    const Canvas canvas(context, *look_);
    RECT client{};
    GetClientRect(Handle(), &client);
    const COLORREF ground = enabled_ ? look_->base : look_->window;
    canvas.Fill(client, ground);
    const bool focused = GetFocus() == Handle();
    canvas.Frame(client, focused ? look_->accent : look_->edge);
    if (focused) {
      RECT inner = client;
      InflateRect(&inner, -1, -1);
      canvas.Frame(inner, look_->accent);
    }
    COLORREF color = enabled_ ? look_->text : look_->disabled;
    if (pale_ && enabled_) color = look_->PaleOn(ground);
    const int side = look_->Line();
    canvas.Text(RoomOfText(), text_, color, DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS);
    const LONG x = client.right - side / 2 - look_->Pixels(2);
    const LONG y = (client.top + client.bottom) / 2;
    const int arm = std::max(2, side / 4);
    const POINT arrow[] = {{x - arm, y - arm / 2}, {x, y + arm / 2}, {x + arm, y - arm / 2}};
    canvas.Lines(arrow, {.color = color, .width = std::max(1, look_->Pixels(2) * 3 / 4)});
  }
}

}  // namespace htr60::view
