#include "windows/view/control_view.h"

#include <algorithm>
#include <utility>

#include "presentation/field_help.h"
#include "presentation/frame_texts.h"
#include "windows/base/text.h"
#include "windows/view/keys.h"

namespace htr60::view {
namespace {

using presentation::Spot;

constexpr wchar_t kClass[] = L"Htr60View";

// Units of 1/96 inch.
constexpr int kTree = 200;  // at least
constexpr int kFoldedTree = 24;
constexpr int kWholeWidth = 700;  // below it the tree folds
constexpr int kWholeHeight = 460;

std::wstring Wide(std::string_view text) { return com::Utf16WithMarks(text); }

/// Set while it lives.
class Meanwhile {
 public:
  explicit Meanwhile(bool& flag) : flag_(flag) { flag_ = true; }
  ~Meanwhile() { flag_ = false; }
  Meanwhile(const Meanwhile&) = delete;
  Meanwhile& operator=(const Meanwhile&) = delete;

 private:
  bool& flag_;
};

bool IsIn(HWND window, HWND root) { return window == root || (window != nullptr && IsChild(root, window) != FALSE); }

}  // namespace

ControlView::ControlView(IUnknown& owner, IViewHolder& holder, UserCntrl& control,
                         presentation::Presentation& presented, HWND parent)
    : Window(kClass, parent, WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, WS_EX_CONTROLPARENT),
      owner_(owner),
      holder_(holder),
      control_(control),
      presented_(presented) {
  const CommonControls common;
  MakeLook();
  IViewActs& acts = *this;
  tree_ = std::make_unique<TreeWindow>(acts, Handle());
  tree_->Own().Show(true);
  page_ = std::make_unique<PageWindow>(acts, control, presented, Handle());
  const auto button = [&](Spot spot, DWORD style = BS_PUSHBUTTON) {
    return std::make_unique<ButtonField>(acts, Handle(), spot, style);
  };
  back_ = button(ControlId(id::cmdBack));
  footer_ = button(Spot::Part::kFooter, BS_PUSHBUTTON | BS_FLAT);
  revert_ = button(Spot::Part::kRevert);
  save_ = button(ControlId(id::cmdSave));
  write_ = button(ControlId(id::cmdWriteParameter), BS_OWNERDRAW);
  reopen_ = button(Spot::Part::kReopen);
  for (ButtonField* one : {back_.get(), footer_.get(), revert_.get(), save_.get(), write_.get()}) {
    tips_.Add(one->Own().Handle());
  }
}

ControlView::~ControlView() {
  Close();
  for (ButtonField* button : {back_.get(), footer_.get(), revert_.get(), save_.get(), write_.get()}) {
    tips_.Remove(button->Own().Handle());
  }
  if (icon_ != nullptr) DestroyIcon(icon_);
}

Hold ControlView::Held() { return {com::ComPtr<IUnknown>(&owner_), weak_from_this().lock()}; }

// Its windows go with the last that handles a message.
void ControlView::Close() {
  closed_ = true;
  moving_ = true;
  ShowWindow(Handle(), SW_HIDE);
  if (GetParent(Handle()) != nullptr) SetParent(Handle(), HWND_MESSAGE);
}

void ControlView::MakeLook() {
  look_ = std::make_unique<Look>(DpiOf(Handle()));
  tips_.Take(*look_);
}

void ControlView::Move(HWND parent, const RECT& rect) {
  if (GetParent(Handle()) != parent) SetParent(Handle(), parent);
  SetWindowPos(Handle(), nullptr, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void ControlView::Show(bool shown) { ShowWindow(Handle(), shown ? SW_SHOWNA : SW_HIDE); }

// ---- taking what is shown

void ControlView::Take() {
  if (closed_) return;
  const CommonControls common;
  tree_->Take(control_.form.treeView, presented_.Marks(), *look_);
  TakeStrips();
  TakeButtons();
  Arrange();
  TakeParts();
  page_->FollowList();
  FollowFocus();
}

PlannedField ControlView::Planned(std::wstring text, bool enabled, char mnemonic, std::string_view tip) const {
  PlannedField field;
  field.text = field.name = std::move(text);
  field.enabled = enabled;
  field.mnemonic = mnemonic;
  field.description = field.note = Wide(tip);
  return field;
}

void ControlView::TakeButtons() {
  Form& form = control_.form;
  const presentation::Screen& screen = presented_.Shown();
  back_->Take(Planned(L"Back", form.cmdBack.Enabled(), 'B', presentation::kBackTip), *look_);
  back_->Own().Show(form.cmdBack.Visible());
  save_->Take(Planned(L"Save", form.cmdSave.Enabled(), 'S', presentation::kSaveTip), *look_);
  save_->Own().Show(form.cmdSave.Visible());
  write_->Take(Planned(L"Write", form.cmdWriteParameter.Enabled(), 'W', presentation::kWriteTip), *look_);
  write_->Own().Show(form.cmdWriteParameter.Visible());
  if (std::exchange(prominent_, screen.unwritten) != screen.unwritten) {
    InvalidateRect(write_->Own().Handle(), nullptr, FALSE);
  }
  revert_->Take(Planned(Wide(presentation::kRevertName), screen.revertable > 0, '\0', presentation::kRevertTip),
                *look_);
  revert_->Own().Show(true);
  PlannedField footer = Planned(Wide(screen.footer), true, '\0', presentation::kFieldStatesTip);
  footer.name = Wide(presentation::kFieldStatesName);
  footer_->Take(footer, *look_);
  footer_->Own().Show(!screen.footer.empty());
  const bool reopens = !screen.frame && !screen.buttons.empty() && !screen.buttons.front().control;
  if (reopens) reopen_->Take(Planned(Wide(screen.buttons.front().caption), true, '\0', {}), *look_);
  reopen_->Own().Show(reopens);
}

void ControlView::TakeStrips() {
  const PageLayout* page = presented_.Page();
  if (page != stripsOf_) {
    stripsOf_ = page;
    strips_.clear();
  }
  const auto& tabs = presented_.Shown().tabs;
  strips_.erase(std::remove_if(strips_.begin(), strips_.end(),
                               [&](const Strip& strip) {
                                 return std::none_of(tabs.begin(), tabs.end(),
                                                     [&](const auto& shown) { return shown.control == strip.id; });
                               }),
                strips_.end());
  for (std::size_t i = 0; i < tabs.size(); ++i) {
    const presentation::ScreenTabs& shown = tabs[i];
    if (i >= strips_.size() || !(strips_[i].id == shown.control)) {
      auto window = std::make_unique<Child>(static_cast<IViewActs&>(*this), Handle(), Child::Kind{WC_TABCONTROLW, 0},
                                            ControlId(shown.control));
      for (std::size_t tab = 0; tab < shown.captions.size(); ++tab) {
        std::wstring caption = Wide(shown.captions[tab]);
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = caption.data();
        SendMessageW(window->Handle(), TCM_INSERTITEMW, tab, reinterpret_cast<LPARAM>(&item));
      }
      strips_.insert(strips_.begin() + static_cast<std::ptrdiff_t>(i), {shown.control, std::move(window), shown.index});
    }
    Child& window = *strips_[i].window;
    window.SetFont(look_->Handle(Look::Font::kPlain));
    if (SendMessageW(window.Handle(), TCM_GETCURSEL, 0, 0) != shown.index) {
      SendMessageW(window.Handle(), TCM_SETCURSEL, static_cast<WPARAM>(shown.index), 0);
    }
    // The strip itself leaves lines of the one that was in front.
    if (std::exchange(strips_[i].index, shown.index) != shown.index) InvalidateRect(window.Handle(), nullptr, TRUE);
    window.Show(true);
  }
}

// ---- places

void ControlView::Arrange() {
  if (arranging_) return;
  const Meanwhile arranging(arranging_);
  const RECT client = Client();
  const int line = look_->Line();
  const int gap = look_->Character();
  places_ = {};
  places_.status = {client.left, std::max(client.top, client.bottom - std::max(line, look_->Picture()) - gap),
                    client.right, client.bottom};
  places_.folded = client.right < look_->Pixels(kWholeWidth) || client.bottom < look_->Pixels(kWholeHeight);
  const bool unfolded = !places_.folded || presented_.Keys().At() == Spot::Part::kTree;
  const int tree = std::max<int>(look_->Pixels(kTree),
                                 std::min<int>(tree_->TextWidth(), client.right - look_->Pixels(kWholeWidth - kTree)));
  const int beside = places_.folded ? look_->Pixels(kFoldedTree) : tree;
  places_.tree = {client.left, client.top, client.left + (unfolded ? tree : beside), places_.status.top};
  RECT column{client.left + beside, client.top, client.right, places_.status.top};
  places_.actions = {column.left, std::max(column.top, column.bottom - look_->FieldHeight() - 2 * gap), column.right,
                     column.bottom};
  column.bottom = places_.actions.top;
  ArrangeHeader(column);
  column.top = places_.header.bottom;
  if (!presented_.Shown().waiting.empty()) {
    places_.waiting = {column.left, column.top, column.right, column.top + line + gap};
    column.top = places_.waiting.bottom;
  }
  ArrangeBar(column);
  ArrangeStrips(column);
  places_.page = column;
  tree_->Own().Place(places_.tree);
  if (places_.folded && unfolded) SetWindowPos(tree_->Own().Handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
  SetWindowPos(page_->Handle(), nullptr, column.left, column.top, std::max<LONG>(0, column.right - column.left),
               std::max<LONG>(0, column.bottom - column.top), SWP_NOZORDER | SWP_NOACTIVATE);
  ShowWindow(page_->Handle(), presented_.Page() != nullptr ? SW_SHOWNA : SW_HIDE);
  page_->Take(*look_);
  ArrangeActions();
}

void ControlView::ArrangeHeader(RECT column) {
  const int gap = look_->Character();
  const presentation::Screen& screen = presented_.Shown();
  const int title = look_->Line(Look::Font::kTitle);
  const int data = look_->WidthOf(Wide(screen.dataLine));
  RECT inside = column;
  InflateRect(&inside, -gap, 0);
  const LONG top = column.top + gap / 2;
  places_.data = {std::max(inside.left, inside.right - data), top, inside.right, top + title};
  places_.title = {inside.left, top, places_.data.left - gap, top + title};
  const LONG under = places_.title.bottom + gap / 4;
  const int purpose = screen.purpose.empty() ? 0 : look_->HeightOf(Wide(screen.purpose), inside.right - inside.left);
  places_.purpose = {inside.left, under, inside.right, under + purpose};
  places_.header = {column.left, column.top, column.right, places_.purpose.bottom + gap / 2};
}

void ControlView::ArrangeStrips(RECT& column) {
  const int gap = look_->Character();
  for (const Strip& strip : strips_) {
    RECT first{};
    SendMessageW(strip.window->Handle(), TCM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&first));
    const LONG height = std::max<LONG>(first.bottom, look_->FieldHeight()) + 2;
    strip.window->Place({column.left + gap, column.top, column.right - gap, column.top + height});
    column.top += height + gap / 2;
  }
}

void ControlView::ArrangeBar(RECT& column) {
  const auto& asked = presented_.Shown().bar;
  const std::size_t buttons = asked ? asked->buttons.size() : 0;
  bar_.resize(std::min(bar_.size(), buttons));
  while (bar_.size() < buttons) {
    bar_.push_back(
        {std::make_unique<ButtonField>(static_cast<IViewActs&>(*this), Handle(), Spot::BarButton(bar_.size()))});
  }
  if (!asked) return;
  const int gap = look_->Character();
  const int height = look_->FieldHeight();
  places_.bar = {column.left, column.top, column.right, column.top + height + gap};
  column.top = places_.bar.bottom;
  LONG x = places_.bar.left + gap + look_->WidthOf(Wide(asked->text)) + 2 * gap;
  for (std::size_t i = 0; i < buttons; ++i) {
    ButtonField& button = *bar_[i].window;
    button.Take(Planned(Wide(asked->buttons[i]), true, '\0', {}), *look_);
    const int width = look_->WidthOf(Wide(asked->buttons[i])) + 4 * gap;
    button.Own().Place({x, places_.bar.top + gap / 2, x + width, places_.bar.top + gap / 2 + height});
    button.Own().Show(true);
    x += width + gap;
  }
}

// Back at the left, for it leads back; Revert, Save and Write at the right.
void ControlView::ArrangeActions() {
  const int gap = look_->Character();
  const int height = look_->FieldHeight();
  const LONG top = (places_.actions.top + places_.actions.bottom - height) / 2;
  const auto width = [&](const ButtonField& button) {
    return look_->WidthOf(const_cast<ButtonField&>(button).Own().Text(), Look::Font::kBold) + 4 * gap;
  };
  LONG left = places_.actions.left + gap;
  LONG right = places_.actions.right - gap;
  back_->Own().Place({left, top, left + width(*back_), top + height});
  left += width(*back_) + gap;
  for (ButtonField* button : {write_.get(), save_.get(), revert_.get()}) {
    button->Own().Place({right - width(*button), top, right, top + height});
    right -= width(*button) + gap;
  }
  if (footer_->Own().IsShown()) {
    const LONG wide = std::min<LONG>(width(*footer_), std::max<LONG>(0, right - left));
    footer_->Own().Place({left, top, left + wide, top + height});
    left += wide + gap;
  }
  places_.message = {left, places_.actions.top, std::max(left, right), places_.actions.bottom};
  if (reopen_->Own().IsShown()) {
    const RECT page{places_.header.left, places_.header.bottom, places_.header.right, places_.actions.top};
    const LONG middle = (page.left + page.right) / 2;
    const LONG below = (page.top + page.bottom) / 2 + look_->Line();
    const int wide = width(*reopen_);
    reopen_->Own().Place({middle - wide / 2, below, middle - wide / 2 + wide, below + height});
  }
}

// ---- the focus

bool ControlView::HasFocus() const { return IsIn(GetFocus(), Handle()); }

Child* ControlView::ChildAt(Spot spot) {
  if (spot == Spot::Part::kTree) return &tree_->Own();
  for (ButtonField* button : {back_.get(), footer_.get(), revert_.get(), save_.get(), write_.get(), reopen_.get()}) {
    if (button->Own().Spot() == spot) return &button->Own();
  }
  for (const BarButton& button : bar_) {
    if (button.window->Own().Spot() == spot) return &button.window->Own();
  }
  for (const Strip& strip : strips_) {
    if (strip.window->Spot() == spot) return strip.window.get();
  }
  FieldWindow* field = spot.control ? page_->FieldOf(spot.control) : nullptr;
  return field == nullptr ? nullptr : &field->Own();
}

void ControlView::TakeFocus() {
  Child* child = ChildAt(presented_.Keys().At());
  {
    const Meanwhile moving(moving_);
    SetFocus(child != nullptr ? child->Handle() : tree_->Own().Handle());
  }
  FollowFocus();
}

// A focus that something else has is left to it.
void ControlView::FollowFocus() {
  if (closed_) return;
  const Spot at = presented_.Keys().At();
  if (!HasFocus() || at == Spot()) return;
  Child* child = ChildAt(at);
  if (child == nullptr) return;
  if (GetFocus() != child->Handle()) {
    {
      const Meanwhile moving(moving_);
      SetFocus(child->Handle());
    }
    if (at.control) page_->ScrollTo(at.control);
  }
  if (presented_.Keys().TakeSelect()) {
    if (FieldWindow* field = at.control ? page_->FieldOf(at.control) : nullptr) field->SelectAll();
  }
}

void ControlView::Came(Spot spot) {
  if (!moving_) presented_.Keys().Came(spot);
  if (closed_) return;
  page_->FollowFocus(GetFocus());
  holder_.FocusChanged(true);
  if (!moving_ && places_.folded) Acted();
}

void ControlView::Left(HWND other) {
  if (!closed_) page_->FollowFocus(other);
  if (closed_ || moving_ || IsIn(other, Handle())) return;
  if (presented_.Keys().Opened() != nullptr) {
    presented_.Keys().Close();
    page_->FollowList();
  }
  holder_.FocusChanged(false);
}

// ---- the operator

bool ControlView::TakeKey(const MSG& message) {
  // With a letter it was no way into the frame's menu.
  const bool up = message.message == WM_KEYUP || message.message == WM_SYSKEYUP;
  if (up) return message.wParam == VK_MENU && std::exchange(altUsed_, false);
  const std::optional<presentation::KeyPress> press = PressOf(message);
  if (!press) return false;
  const presentation::KeyOutcome outcome = presented_.Keys().Press(*press);
  if (!outcome.taken) return false;
  altUsed_ = message.message == WM_SYSKEYDOWN;
  if (outcome.copy) {
    const Child* child = Child::Of(message.hwnd);
    const FieldWindow* field = child == nullptr ? nullptr : page_->FieldOf(*child);
    if (field != nullptr && field->HasSelection()) return false;
    CopyText(Handle(), Wide(*outcome.copy));
  }
  if (outcome.activatesNode) Activate(tree_->Cursor());
  Acted();
  if (outcome.help && !closed_) ShowHelp();
  return true;
}

// The keys that a page takes before the frame does are those that the page has a use for.
bool ControlView::TakeAccelerator(const MSG& message) {
  const UINT kind = message.message;
  if (kind != WM_KEYDOWN && kind != WM_SYSKEYDOWN && kind != WM_KEYUP && kind != WM_SYSKEYUP) return false;
  return IsIn(message.hwnd, Handle()) && Child::Of(message.hwnd) != nullptr && TakeKey(message);
}

bool ControlView::Paste(ControlId field, std::wstring_view text) {
  const bool taken = presented_.PasteColumns(TextId{field}, com::Utf8WithMarks(text));
  if (taken) Acted();
  return taken;
}

void ControlView::ShowMenu(ControlId field, POINT at) {
  const std::vector<presentation::FieldMenuItem> items = presented_.Menu(field);
  if (items.empty()) return;
  FieldWindow* window = page_->FieldOf(field);
  if (at.x == -1 && at.y == -1 && window != nullptr) {  // by the keyboard
    at = {0, 0};
    ClientToScreen(window->Own().Handle(), &at);
  }
  const HMENU menu = CreatePopupMenu();
  for (std::size_t i = 0; i < items.size(); ++i) {
    const std::wstring caption = WithMnemonic(Wide(items[i].caption), '\0');
    AppendMenuW(menu, MF_STRING | (items[i].enabled ? 0U : MF_GRAYED), i + 1, caption.c_str());
  }
  const auto picked =
      static_cast<std::size_t>(TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY, at.x, at.y, 0, Handle(), nullptr));
  DestroyMenu(menu);
  window = page_->FieldOf(field);  // the page may be another since
  if (picked == 0 || picked > items.size() || window == nullptr) return;
  auto* entry = dynamic_cast<EntryField*>(window);
  switch (items[picked - 1].act) {
    case presentation::FieldAct::kCopy:
      if (entry != nullptr) {
        entry->CopyToClipboard();
      } else {
        CopyText(Handle(), Wide(control_.form.TextOf(field)));
      }
      break;
    case presentation::FieldAct::kPaste:
      if (entry != nullptr) entry->PasteFromClipboard();
      break;
    case presentation::FieldAct::kPutBack:
      presented_.PutBack(field);
      break;
  }
  Acted();
}

void ControlView::Acted() {
  if (!closed_) holder_.TurnNow();
}

// Those of the other tips are none of its windows: it only hears that the pointer has left.
void ControlView::Pointed(const MSG& message) {
  tips_.Relay(message);
  page_->Pointed(message);
}

void ControlView::Wheel(int notches) { page_->Scroll(notches); }

void ControlView::Activate(const std::optional<TreePlace>& place) {
  if (place) presented_.Activate(place->text, place->position);
}

void ControlView::OnButton(const Child& child) {
  const Spot spot = child.Spot();
  if (spot == Spot::Part::kFooter) {
    presented_.StepCounted();
  } else if (spot == Spot::Part::kRevert) {
    presented_.Revert();
  } else if (spot == Spot::Part::kReopen) {
    presented_.Reopen();
  } else if (spot.part == Spot::Part::kBar) {
    presented_.AnswerBar(spot.answer);
  } else if (spot.control) {
    presented_.Press(ButtonId{spot.control});
  }
  Acted();
}

void ControlView::ShowHelp() {
  const presentation::HelpText help = presented_.Keys().Help();
  std::wstring text = Wide(help.title);
  for (const std::string& line : help.lines) text += L"\n\n" + Wide(line);
  const HWND owner = holder_.BeginBox();
  MessageBoxW(owner, text.c_str(), L"HTR60", MB_OK);
  holder_.EndBox();
}

LRESULT ControlView::OnNotify(NMHDR& header) {
  const auto tip = [](HWND window) {
    const Child* child = Child::Of(window);
    return child == nullptr ? std::wstring() : child->Description();
  };
  if (tips_.Answer(header, tip)) return 0;
  if (header.hwndFrom == tree_->Own().Handle()) {
    if (header.code == static_cast<UINT>(NM_CUSTOMDRAW)) {
      return tree_->OnCustomDraw(reinterpret_cast<NMTVCUSTOMDRAW&>(header), *look_);
    }
    if (header.code == static_cast<UINT>(NM_CLICK)) {
      if (const auto place = tree_->Clicked()) {
        SetFocus(header.hwndFrom);
        Activate(place);
        Acted();
        return 1;
      }
    }
    return 0;
  }
  if (header.code != static_cast<UINT>(TCN_SELCHANGE)) return 0;
  for (const Strip& strip : strips_) {
    if (strip.window->Handle() != header.hwndFrom) continue;
    presented_.ClickTab(strip.id, static_cast<int>(SendMessageW(header.hwndFrom, TCM_GETCURSEL, 0, 0)));
    Acted();
    break;
  }
  return 0;
}

// ---- what the system asks

LRESULT ControlView::OnMessage(UINT message, WPARAM word, LPARAM number) {
  switch (message) {
    case WM_PAINT:
      Paint(*look_, [this](const Canvas& canvas, const RECT&) { PaintAll(canvas); });
      return 0;
    case WM_PRINTCLIENT:
      PaintAll(Canvas(reinterpret_cast<HDC>(word), *look_));
      return 0;
    case WM_SIZE:
      if (page_ != nullptr && revert_ != nullptr && reopen_ != nullptr) {
        const CommonControls common;
        Arrange();
        TakeParts();
        Invalidate();
      }
      return 0;
    case WM_SETFOCUS:
      TakeFocus();
      return 0;
    case WM_MOUSEWHEEL:
      Wheel(GET_WHEEL_DELTA_WPARAM(word));
      return 0;
    case WM_NOTIFY:
      return OnNotify(*reinterpret_cast<NMHDR*>(number));
    case WM_COMMAND:
      if (HIWORD(word) == BN_CLICKED) {
        if (const Child* child = Child::Of(reinterpret_cast<HWND>(number))) OnButton(*child);
      }
      return 0;
    case WM_DRAWITEM:
      PaintProminent(*reinterpret_cast<const DRAWITEMSTRUCT*>(number));
      return TRUE;
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORSTATIC:
      SetBkColor(reinterpret_cast<HDC>(word), look_->window);
      return reinterpret_cast<LRESULT>(look_->WindowBrush());
    case WM_SYSCOLORCHANGE:
    case WM_SETTINGCHANGE:
    case WM_THEMECHANGED:
    case 0x02E3:  // WM_DPICHANGED_AFTERPARENT
      if (closed_) return 0;
      MakeLook();
      Take();
      Invalidate();
      return 0;
    default:
      return Window::OnMessage(message, word, number);
  }
}

}  // namespace htr60::view
