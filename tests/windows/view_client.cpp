// The control in a frame's window: view_client MANAGER, the DLL of the simulated one. Needs a display.

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "presentation/frame_texts.h"
#include "told.h"
#include "view_bench.h"
#include "windows/view/control_view.h"

namespace htr60::client {
namespace {

using presentation::Screen;
using presentation::ScreenRow;

std::string Utf8(const std::wstring& text) { return com::Utf8WithMarks(text); }

ToldWindows* theTold;  ///< lives in main

/// What assistive technology hears of a field is what the screen tells.
void ExpectTold(HWND window, const ScreenRow& row, const std::string& which) {
  const Told& told = theTold->windows[window];
  CHECK_FOR(which, Utf8(told.name) == row.name);
  CHECK_FOR(which, Utf8(told.description).find(row.words) != std::string::npos);
  if (row.kind != RowKind::kList && row.kind != RowKind::kListRo) return;
  CHECK_FOR(which, told.role == ROLE_SYSTEM_COMBOBOX);
  CHECK_FOR(which, Utf8(told.value) == row.text);
}

// ---- cases

void OrderOfCalls() {
  const Shown shown;
  CHECK(shown.site.calls == "CanInPlaceActivate OnInPlaceActivate GetWindowContext ");
  CHECK(GetParent(shown.Root()) == shown.site.window);
  shown.site.calls.clear();
  CHECK(shown.Verb(OLEIVERB_UIACTIVATE) == S_OK);
  CHECK(shown.site.calls == "OnUIActivate SetActiveObject ");
  CHECK(GetFocus() != nullptr && IsChild(shown.Root(), GetFocus()) != FALSE);
  CHECK(shown.Verb(OLEIVERB_UIACTIVATE) == S_OK);
  CHECK(shown.site.calls == "OnUIActivate SetActiveObject ");
  shown.site.calls.clear();
  const auto place = ComPtr<IOleInPlaceObject>::Of(shown.control.object.Get(), IID_IOleInPlaceObject);
  CHECK(place->UIDeactivate() == S_OK);
  CHECK(shown.site.calls == "NoActiveObject OnUIDeactivate ");
  shown.site.calls.clear();
  CHECK(place->InPlaceDeactivate() == S_OK);
  CHECK(shown.site.calls == "OnInPlaceDeactivate ");
  CHECK(shown.Root() == nullptr);
  CHECK(Below(shown.site.window).empty());
  CHECK(shown.Verb(OLEIVERB_SHOW) == S_OK);
  CHECK(IsWindowVisible(shown.Root()) != FALSE);
  CHECK(shown.Verb(OLEIVERB_HIDE) == S_OK);
  CHECK(IsWindowVisible(shown.Root()) == FALSE);
  CHECK(shown.Verb(OLEIVERB_INPLACEACTIVATE) == S_OK);
  CHECK(IsWindowVisible(shown.Root()) != FALSE);
  CHECK(shown.Verb(77) == OLEOBJ_S_INVALIDVERB);
}

// The frame may attach it before its window is made, and let it go with the window up.
void InitBeforeTheWindow() {
  Site site;
  {
    const Control control;
    const auto its = ManagerWith(L"level");
    VARIANT_BOOL attached = VARIANT_FALSE;
    CHECK(control.object->Init(nullptr, nullptr, its.Get(), &attached) == S_OK && attached == VARIANT_TRUE);
    control.Inside().TimerDue(static_cast<int>(TimerId::TimerInit));
    Pump(200);
    CHECK(control.Tag() == "HTR60-1");
    const auto ole = ComPtr<IOleObject>::Of(control.object.Get(), IID_IOleObject);
    CHECK(ole->SetClientSite(&site) == S_OK);
    CHECK(ole->DoVerb(OLEIVERB_SHOW, nullptr, &site, 0, site.window, &site.place) == S_OK);
    const auto windows = Below(site.window);
    CHECK(std::any_of(windows.begin(), windows.end(), [](HWND window) {
      const view::Child* child = view::Child::Of(window);
      return child != nullptr && child->Text().starts_with(L"HTR60-1");
    }));
  }
  CHECK(Below(site.window).empty());
  CHECK(site.References() == 1);
}

/// Texts, order and marks of the page in front, by its windows and by what it paints.
void CompareWithScreen(const Shown& shown) {
  const Screen& screen = shown.Presented().Shown();
  const HWND page = shown.Page();
  const std::wstring painted = Painted(page);
  const std::wstring around = Painted(shown.Root());
  const std::string of = screen.title + ": ";
  const auto paints = [&](const std::wstring& where, const std::string& text) {
    CHECK_FOR(of + text, where.find(com::Utf16WithMarks(text).substr(0, 12)) != std::wstring::npos);
  };
  paints(around, screen.title);
  paints(around, screen.dataLine);
  for (const presentation::ScreenGroup& group : screen.groups) {
    paints(painted, group.caption);
    const auto& texts = PageOf(shown).Plan().texts;
    CHECK_FOR(of + group.caption, std::any_of(texts.begin(), texts.end(), [&](const view::PlannedText& text) {
                return text.style == view::PlannedText::Style::kTitle && Utf8(text.text) == group.caption &&
                       text.mnemonic == group.mnemonic;
              }));
  }
  for (const ScreenRow& row : screen.rows) {
    if (!row.words.empty())
      CHECK_FOR(of + row.words, painted.find(L"...") != std::wstring::npos ||
                                    painted.find(com::Utf16WithMarks(row.words)) != std::wstring::npos);
    if (row.kind == RowKind::kMsg) {
      paints(painted, row.text);
      continue;
    }
    const view::Child* child = FieldWindow(page, row.control);
    CHECK_FOR(of + row.name, child != nullptr);
    if (const auto* rows = dynamic_cast<const view::RowsField*>(PageOf(shown).FieldOf(row.control))) {
      CHECK_FOR(of + row.name, Utf8(rows->Rows()) == row.text);
    }
    if (row.kind != RowKind::kListBox && row.role != RowRole::kAccessCode) {
      CHECK_FOR(of + row.name, Utf8(child->Text()) == row.text);
    }
    CHECK_FOR(of + row.name, (IsWindowEnabled(child->Handle()) != FALSE) == row.enabled);
    ExpectTold(child->Handle(), row, of + row.name);
    if (!row.unit.empty()) paints(painted, row.unit);
  }
  for (const presentation::ScreenButton& button : screen.buttons) {
    const view::Child* child = FieldWindow(shown.Root(), button.control);
    CHECK_FOR(of + button.caption, child != nullptr);
    std::wstring text = child->Text();
    text.erase(std::remove(text.begin(), text.end(), L'&'), text.end());
    std::wstring caption = com::Utf16WithMarks(button.caption);
    caption.erase(std::remove(caption.begin(), caption.end(), L'&'), caption.end());
    CHECK_FOR(of + button.caption, text == caption);
  }
  // What is no longer to be seen has no window to be seen.
  for (const HWND window : Below(page)) {
    const view::Child* child = view::Child::Of(window);
    if (child == nullptr || !child->IsShown()) continue;
    const bool known = shown.Presented().Row(child->Spot().control) != nullptr ||
                       std::any_of(screen.buttons.begin(), screen.buttons.end(), [&](const auto& button) {
                         return presentation::Spot(button.control) == child->Spot();
                       });
    CHECK_FOR(of + Utf8(child->Name()), known);
  }
}

void EveryPageOf(std::wstring_view preset) {
  CHECK(theTold->windows.empty());  // of windows that are gone nothing is kept
  const Shown shown;
  Start(shown, preset);
  CompareWithScreen(shown);
  const HWND tree = FindWindowExW(shown.Root(), nullptr, WC_TREEVIEWW, nullptr);
  CHECK(Utf8(theTold->windows[tree].name) == presentation::kTreeName);
  std::vector<std::string> names;
  for (const TreeNode& node : shown.control.Inside().form.treeView.Nodes()) names.emplace_back(node.text);
  int pages = 0;
  for (const std::string& name : names) {
    Open(shown, name);
    if (!shown.Presented().Shown().frame) continue;
    ++pages;
    CompareWithScreen(shown);
    const std::vector<presentation::ScreenTabs> tabs = shown.Presented().Shown().tabs;
    if (tabs.empty()) continue;
    for (int tab = 1; tab < static_cast<int>(tabs.front().captions.size()); ++tab) {
      shown.Presented().ClickTab(tabs.front().control, tab);
      Settle();
      CompareWithScreen(shown);
    }
  }
  CHECK(pages >= 12);
}
void PagesOfPressure() { EveryPageOf(L"pressure"); }
void PagesOfFlow() { EveryPageOf(L"flow"); }
void PagesOfLevel() { EveryPageOf(L"level"); }
void PagesOfDensity() { EveryPageOf(L"density"); }

/// A key as the frame's loop hands it over; true where the control took it.
bool Key(const Shown& shown, WPARAM key, UINT message = WM_KEYDOWN) {
  const auto active = ComPtr<IOleInPlaceActiveObject>::Of(shown.control.object.Get(), IID_IOleInPlaceActiveObject);
  MSG event{GetFocus(), message, key, 1, 0, {}};
  const bool taken = active->TranslateAccelerator(&event) == S_OK;
  Pump(20);
  return taken;
}

void Keys() {
  const Shown shown;
  Start(shown);
  CHECK(shown.Verb(OLEIVERB_UIACTIVATE) == S_OK);
  presentation::Keyboard& keys = shown.Presented().Keys();
  using presentation::Spot;
  CHECK(keys.At() == Spot::Part::kTree);
  CHECK(!Key(shown, VK_DOWN));  // the tree's own
  CHECK(Key(shown, VK_TAB));
  CHECK(keys.At() == Spot(ControlId(id::txtParameter(0))));
  const view::Child* tag = FieldWindow(shown.Page(), id::txtParameter(0));
  CHECK(tag != nullptr && GetFocus() == tag->Handle());
  DWORD from = 9;
  DWORD to = 0;
  SendMessageW(tag->Handle(), EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
  CHECK(from == 0 && to > 0);  // selected
  SendMessageW(tag->Handle(), WM_CHAR, L'X', 1);
  Pump(20);
  CHECK(shown.Presented().Row(id::txtParameter(0))->state == presentation::FieldState::kNotWritten);
  CHECK(Painted(shown.Page()).find(L"not written") != std::wstring::npos);
  CHECK(Key(shown, VK_ESCAPE));
  CHECK(shown.control.Tag() == "HTR60-1");
  CHECK(Key(shown, VK_RETURN));
  CHECK(!(keys.At() == Spot(ControlId(id::txtParameter(0)))));
  CHECK(Key(shown, VK_F6));
  CHECK(keys.At() == Spot(ControlId(id::cmdWriteParameter)));
  CHECK(Key(shown, VK_RETURN));  // Enter never writes
  CHECK(shown.control.Inside().WritesSent() == 0);
  CHECK(Key(shown, VK_F6));
  CHECK(keys.At() == Spot::Part::kTree);
  const std::uint32_t reads = shown.control.Inside().ReadsSent();
  CHECK(Key(shown, VK_F5));
  CHECK(shown.control.Inside().ReadsSent() == reads + 1);
  // The frame's own keys come first.
  shown.site.takesKeys = true;
  CHECK(Key(shown, VK_F5));
  CHECK(shown.control.Inside().ReadsSent() == reads + 1);
  shown.site.takesKeys = false;
  // Without the focus it takes none.
  const auto place = ComPtr<IOleInPlaceObject>::Of(shown.control.object.Get(), IID_IOleInPlaceObject);
  CHECK(place->UIDeactivate() == S_OK);
  CHECK(!Key(shown, VK_F5));
}

/// The tooltip that comes up with the pointer over a field; empty: none does.
std::wstring TipOver(const Shown& shown, ControlId control) {
  const view::Child* field = FieldWindow(shown.Page(), control);
  CHECK(field != nullptr);
  RECT rect{};
  GetWindowRect(field->Handle(), &rect);
  SetCursorPos(rect.left + 9, rect.top + 5);
  SendMessageW(field->Handle(), WM_MOUSEMOVE, 0, MAKELPARAM(9, 5));
  for (const ULONGLONG end = GetTickCount64() + 3000; GetTickCount64() < end; Pump(20)) {
    for (HWND tip = nullptr; (tip = FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr)) != nullptr;) {
      if (IsWindowVisible(tip) != FALSE && GetWindow(tip, GW_OWNER) == shown.site.window) return Painted(tip);
    }
  }
  return {};
}

// What can be read beside it is not told again.
void Tooltips() {
  for (const bool cut : {false, true}) {
    const Shown shown;
    Start(shown);
    const std::string tag(cut ? 32 : 5, 'W');
    shown.Presented().Type(TextId{id::txtParameter(0)}, tag);
    Settle();
    const std::wstring note = L"The name of this measuring point, up to 32 characters.\n";
    CHECK(TipOver(shown, id::txtParameter(0)) == (cut ? com::Utf16WithMarks(tag) + L"\n" + note : note));
  }
}

void OpenList() {
  const Shown shown;
  Start(shown);
  CHECK(shown.Verb(OLEIVERB_UIACTIVATE) == S_OK);
  presentation::Keyboard& keys = shown.Presented().Keys();
  keys.GoTo(ControlId(id::cmbWriteProtection));
  Pump(20);
  CHECK(Key(shown, VK_F4));
  const HWND popup = FindWindowW(L"Htr60List", nullptr);
  CHECK(popup != nullptr && IsWindowVisible(popup) != FALSE);
  CHECK(GetFocus() != popup);
  CHECK(Key(shown, VK_ESCAPE));
  CHECK(FindWindowW(L"Htr60List", nullptr) == nullptr);
  CHECK(Key(shown, VK_F4));
  CHECK(Key(shown, VK_DOWN));
  CHECK(Key(shown, VK_RETURN));
  CHECK(FindWindowW(L"Htr60List", nullptr) == nullptr);
  const view::Child* list = FieldWindow(shown.Page(), id::cmbWriteProtection);
  CHECK(list != nullptr && Utf8(list->Text()) == shown.control.Inside().form.cmbWriteProtection.Text());
}

/// Answers the next box with a button from another thread, and tells the window before which it stood.
class BoxAnswer {
 public:
  explicit BoxAnswer(WORD button)
      : button_(button), thread_(CreateThread(nullptr, 0, &BoxAnswer::Run, this, 0, nullptr)) {}
  ~BoxAnswer() {
    WaitForSingleObject(thread_, 20000);
    CloseHandle(thread_);
  }
  BoxAnswer(const BoxAnswer&) = delete;
  BoxAnswer& operator=(const BoxAnswer&) = delete;
  HWND Owner() const {
    WaitForSingleObject(thread_, 20000);
    return owner_;
  }

 private:
  static DWORD WINAPI Run(void* it) {
    auto& self = *static_cast<BoxAnswer*>(it);
    for (int i = 0; i < 300; ++i, Sleep(20)) {
      const HWND box = FindWindowW(L"#32770", L"Caption");
      if (box == nullptr) continue;
      self.owner_ = GetWindow(box, GW_OWNER);
      PostMessageW(box, WM_COMMAND, self.button_, 0);
      return 0;
    }
    return 1;
  }

  WORD button_;
  HWND owner_ = nullptr;
  HANDLE thread_;
};

void BoxesStandBeforeTheFrame() {
  const Shown shown;
  Start(shown);
  CHECK(shown.Verb(OLEIVERB_UIACTIVATE) == S_OK);
  shown.site.calls.clear();
  {
    const BoxAnswer answer(IDYES);
    CHECK(shown.control.Inside().AskYesNo("Text", "Caption"));
    CHECK(answer.Owner() == shown.site.window);
  }
  CHECK(shown.site.calls == "Modal Modeless ");
  const BoxAnswer answer(IDCANCEL);
  CHECK(!shown.control.Inside().AskYesNo("Text", "Caption"));
}

void AnyRectangle() {
  const Shown shown;
  Start(shown);
  const auto place = ComPtr<IOleInPlaceObject>::Of(shown.control.object.Get(), IID_IOleInPlaceObject);
  for (const SIZE size : {SIZE{0, 0}, SIZE{1, 1}, SIZE{60, 40}, SIZE{300, 2000}, SIZE{620, 420}, SIZE{4000, 30},
                          SIZE{3000, 2000}, SIZE{1100, 720}}) {
    const RECT rect{0, 0, size.cx, size.cy};
    CHECK(place->SetObjectRects(&rect, &rect) == S_OK);
    Pump(20);
    RECT now{};
    GetClientRect(shown.Root(), &now);
    CHECK(now.right == size.cx && now.bottom == size.cy);
  }
  CompareWithScreen(shown);
}

void AnotherParent() {
  const Shown shown;
  Start(shown);
  Site other;
  std::swap(shown.site.window, other.window);  // the frame moves its place
  const auto place = ComPtr<IOleInPlaceObject>::Of(shown.control.object.Get(), IID_IOleInPlaceObject);
  CHECK(place->SetObjectRects(&shown.site.place, &shown.site.place) == S_OK);
  CHECK(GetParent(shown.Root()) == shown.site.window);
  CompareWithScreen(shown);
}

// The frame destroys its window without a word: nothing of the view is touched after.
void TheFrameGoesFirst() {
  Shown shown;
  Start(shown);
  DestroyWindow(shown.site.window);
  Open(shown, "Observe");
  Pump(50);
  shown.site.window = nullptr;
}

void DrawnByTheFrame() {
  const Shown shown;
  Start(shown);
  const auto drawn = ComPtr<IViewObject2>::Of(shown.control.object.Get(), IID_IViewObject2);
  CHECK(drawn);
  BITMAPINFO format{};
  format.bmiHeader = {sizeof format.bmiHeader, 1100, -720, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  DWORD* dots = nullptr;
  const HBITMAP bitmap =
      CreateDIBSection(nullptr, &format, DIB_RGB_COLORS, reinterpret_cast<void**>(&dots), nullptr, 0);
  const HDC context = CreateCompatibleDC(nullptr);
  const HGDIOBJ before = SelectObject(context, bitmap);
  const RECTL bounds{0, 0, 1100, 720};
  CHECK(drawn->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, context, &bounds, nullptr, nullptr, 0) == S_OK);
  GdiFlush();
  std::size_t inked = 0;
  for (std::size_t i = 0; i < std::size_t{1100} * 720; ++i) inked += (dots[i] & 0xFFFFFF) != (dots[0] & 0xFFFFFF);
  SelectObject(context, before);
  DeleteDC(context);
  DeleteObject(bitmap);
  CHECK(inked > 2000);
  CHECK(drawn->Draw(DVASPECT_ICON, -1, nullptr, nullptr, nullptr, nullptr, &bounds, nullptr, nullptr, 0) ==
        DV_E_DVASPECT);
}

constexpr Case kCases[] = {
    {"order of calls", &OrderOfCalls},
    {"Init before the window", &InitBeforeTheWindow},
    {"every page of a pressure device", &PagesOfPressure},
    {"every page of a flow device", &PagesOfFlow},
    {"every page of a level device", &PagesOfLevel},
    {"every page of a density device", &PagesOfDensity},
    {"keys", &Keys},
    {"tooltips", &Tooltips},
    {"an open list", &OpenList},
    {"boxes stand before the frame", &BoxesStandBeforeTheFrame},
    {"any rectangle", &AnyRectangle},
    {"another parent", &AnotherParent},
    {"the frame goes first", &TheFrameGoesFirst},
    {"drawn by the frame", &DrawnByTheFrame},
};

}  // namespace
}  // namespace htr60::client

int main(int count, char** arguments) {
  using namespace htr60::client;
  if (count < 2) return 2;
  const Apartment apartment;
  const Library library(arguments[1]);
  theManager = &library;
  ToldWindows told;
  theTold = &told;
  return RunCases(kCases);
}
