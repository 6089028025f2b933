// Every page as it is painted: picture_client MANAGER DPI [FOLDER]
// Nothing is cut, nothing stands on something else, and what was painted in parts is what is painted as a whole. With
// FOLDER each page is written there as a picture. Needs a display of that many dots an inch.

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "view_bench.h"

namespace htr60::client {
namespace {

using view::PlannedText;

constexpr std::string_view kAccessCode = "QK475";
constexpr SIZE kSizes[] = {{1100, 720}, {700, 460}};  // 1/96 inch
int theDpi = 96;
std::filesystem::path theFolder;  ///< empty: no pictures are written

int Pixels(LONG units) { return MulDiv(static_cast<int>(units), theDpi, 96); }

/// The dots of a window and those in it, upper row first.
class Picture {
 public:
  explicit Picture(HWND window) {
    GetClientRect(window, &rect_);
    info_.bmiHeader = {sizeof info_.bmiHeader, rect_.right, -rect_.bottom, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(nullptr, &info_, DIB_RGB_COLORS, &bits, nullptr, 0);
    CHECK(bitmap != nullptr);
    const HDC to = CreateCompatibleDC(nullptr);
    const HGDIOBJ before = SelectObject(to, bitmap);
    const HDC from = GetDCEx(window, nullptr, DCX_CACHE);  // with the windows in it
    BitBlt(to, 0, 0, rect_.right, rect_.bottom, from, 0, 0, SRCCOPY);
    GdiFlush();
    const auto* first = static_cast<const DWORD*>(bits);
    dots_.assign(first, first + static_cast<std::size_t>(rect_.right) * static_cast<std::size_t>(rect_.bottom));
    for (DWORD& dot : dots_) dot &= 0xFFFFFFU;
    ReleaseDC(window, from);
    SelectObject(to, before);
    DeleteDC(to);
    DeleteObject(bitmap);
  }

  /// Where the two differ, in words; empty: they do not.
  std::string Difference(const Picture& other) const {
    RECT where{rect_.right, rect_.bottom, -1, -1};
    for (std::size_t i = 0; i < dots_.size(); ++i) {
      if (dots_[i] == other.dots_[i]) continue;
      const auto x = static_cast<LONG>(i) % rect_.right;
      const auto y = static_cast<LONG>(i) / rect_.right;
      where = {std::min(where.left, x), std::min(where.top, y), std::max(where.right, x), std::max(where.bottom, y)};
    }
    if (where.right < 0) return {};
    return std::to_string(where.left) + "," + std::to_string(where.top) + " to " + std::to_string(where.right) + "," +
           std::to_string(where.bottom);
  }
  bool IsBlank() const {
    return std::all_of(dots_.begin(), dots_.end(), [&](DWORD dot) { return dot == dots_.front(); });
  }
  void Save(const std::string& name) const {
    if (theFolder.empty()) return;
    std::ofstream file(theFolder / (name + ".bmp"), std::ios::binary);
    BITMAPFILEHEADER header{};
    header.bfType = 0x4D42;
    header.bfOffBits = sizeof header + sizeof info_.bmiHeader;
    header.bfSize = header.bfOffBits + static_cast<DWORD>(dots_.size() * sizeof(DWORD));
    file.write(reinterpret_cast<const char*>(&header), sizeof header);
    file.write(reinterpret_cast<const char*>(&info_.bmiHeader), sizeof info_.bmiHeader);
    file.write(reinterpret_cast<const char*>(dots_.data()), static_cast<std::streamsize>(dots_.size() * sizeof(DWORD)));
  }

 private:
  RECT rect_{};
  BITMAPINFO info_{};
  std::vector<DWORD> dots_;
};

/// What has been painted so far is what is painted when all of it is asked for. A blinking cursor counts for nothing.
void ExpectWhole(const Shown& shown, const std::string& which) {
  if (GetFocus() != nullptr) HideCaret(GetFocus());
  UpdateWindow(shown.Root());
  for (const HWND window : Below(shown.Root())) UpdateWindow(window);
  const Picture parts(shown.Root());
  RedrawWindow(shown.Root(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
  const Picture whole(shown.Root());
  if (GetFocus() != nullptr) ShowCaret(GetFocus());
  const std::string difference = parts.Difference(whole);
  if (!difference.empty()) {
    parts.Save(which + "_parts");
    whole.Save(which + "_whole");
  }
  CHECK_FOR(which + " at " + difference, difference.empty());
  CHECK_FOR(which, !whole.IsBlank());
}

struct Piece {
  RECT rect;
  std::string what;
};

/// Captions, units, titles and messages have the room that they need; a number that is read is never cut.
void ExpectRoom(const view::PagePlan& plan, const view::Look& look, const std::string& which) {
  for (const PlannedText& text : plan.texts) {
    const std::string of = which + ": " + com::Utf8WithMarks(text.text);
    const LONG width = text.rect.right - text.rect.left;
    switch (text.style) {
      case PlannedText::Style::kWords:  // elided, and whole in the tooltip
      case PlannedText::Style::kAlert:
        break;
      case PlannedText::Style::kMessage:
        CHECK_FOR(of, look.HeightOf(text.text, width) <= text.rect.bottom - text.rect.top);
        break;
      case PlannedText::Style::kTitle:
        CHECK_FOR(of, look.WidthOf(text.text, view::Look::Font::kBold) <= width);
        break;
      default:
        CHECK_FOR(of, look.WidthOf(text.text) <= width);
        break;
    }
  }
  for (const view::PlannedField& field : plan.fields) {
    const std::string of = which + ": " + com::Utf8WithMarks(field.name);
    CHECK_FOR(of, field.rect.right > field.rect.left && field.rect.bottom > field.rect.top);
    const view::Look::Font font = field.large ? view::Look::Font::kLarge : view::Look::Font::kPlain;
    const bool whole = field.number || field.large;
    const LONG around = 2 * look.Inset();
    if (whole) CHECK_FOR(of, look.WidthOf(field.text, font) + around <= field.rect.right - field.rect.left);
  }
}

/// Nothing stands on something else, or beyond the page's `width`.
void ExpectApart(const view::PagePlan& plan, LONG width, const std::string& which) {
  std::vector<Piece> pieces;
  for (const view::PlannedField& field : plan.fields) pieces.push_back({field.rect, com::Utf8WithMarks(field.name)});
  for (const PlannedText& text : plan.texts) pieces.push_back({text.rect, com::Utf8WithMarks(text.text)});
  for (const view::PlannedShape& shape : plan.shapes) pieces.push_back({shape.rect, std::string(shape.name)});
  if (IsRectEmpty(&plan.figure) == FALSE) pieces.push_back({plan.figure, "the figure"});
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    CHECK_FOR(which + ": " + pieces[i].what, pieces[i].rect.left >= 0 && pieces[i].rect.right <= width);
    for (std::size_t j = i + 1; j < pieces.size(); ++j) {
      RECT both{};
      CHECK_FOR(which + ": " + pieces[i].what + " and " + pieces[j].what,
                IntersectRect(&both, &pieces[i].rect, &pieces[j].rect) == FALSE);
    }
  }
}

/// Something is typed into the first field that takes it, the focus goes there, and it is put back.
void ChangeSomething(const Shown& shown, const std::string& which) {
  presentation::Presentation& presented = shown.Presented();
  const auto& rows = presented.Shown().rows;
  const auto found = std::find_if(rows.begin(), rows.end(), [&](const presentation::ScreenRow& row) {
    return row.kind == RowKind::kNum && row.enabled && FieldWindow(shown.Page(), row.control) != nullptr;
  });
  if (found == rows.end()) return;
  const ControlId field = found->control;
  presented.Keys().GoTo(field);
  Pump(0);
  ExpectWhole(shown, which + ", the focus at " + found->name);
  presented.Type(TextId{field}, "12.75");
  Pump(0);
  ExpectWhole(shown, which + ", typed");
  presented.Revert();
  Pump(0);
  ExpectWhole(shown, which + ", put back");
  SetFocus(FindWindowExW(shown.Root(), nullptr, WC_TREEVIEWW, nullptr));
  Pump(0);
  ExpectWhole(shown, which + ", left");
}

/// All that a page paints and where; the types share most pages behind buttons, to the last dot.
std::wstring Contents(const view::PagePlan& plan) {
  std::wstring all = std::to_wstring(plan.width);
  const auto add = [&](const std::wstring& text, const RECT& rect) {
    all += text;
    for (const LONG edge : {rect.left, rect.top, rect.right, rect.bottom}) all += L' ' + std::to_wstring(edge);
  };
  for (const PlannedText& text : plan.texts) add(text.text, text.rect);
  for (const view::PlannedField& field : plan.fields) add(field.name + field.text, field.rect);
  return all;
}

void LookAt(const Shown& shown, const std::string& place) {
  const presentation::Screen& screen = shown.Presented().Shown();
  if (!screen.frame) return;
  static std::set<std::wstring> seen;
  if (!seen.insert(Contents(PageOf(shown).Plan())).second) return;
  std::string which = place + "_" + screen.title;
  for (const presentation::ScreenTabs& tabs : screen.tabs) which += "_" + std::to_string(tabs.index);
  std::replace_if(
      which.begin(), which.end(), [](unsigned char c) { return std::isalnum(c) == 0 && c != '_'; }, '-');
  const view::Look look(theDpi);
  ExpectRoom(PageOf(shown).Plan(), look, which);
  RECT page{};
  GetClientRect(shown.Page(), &page);
  // Large values, and numbers of many digits in columns, need more than the smallest width has: these scroll.
  RECT whole{};
  GetClientRect(shown.Root(), &whole);
  const bool narrow = whole.right == Pixels(kSizes[1].cx);
  constexpr std::string_view kWide[] = {"Observe", "General Concentration", "Table Points"};
  const bool scrolls = narrow && std::find(std::begin(kWide), std::end(kWide), screen.title) != std::end(kWide);
  ExpectApart(PageOf(shown).Plan(), scrolls ? PageOf(shown).Plan().width : page.right, which);
  Picture(shown.Root()).Save(which);
  ExpectWhole(shown, which);
  ChangeSomething(shown, which);
}

/// What leads from a page on.
struct Step {
  enum class What { kButton, kTab, kRow } what;
  ControlId control;
  int number = 0;  ///< of the tab of a strip, or the row of a list
};
/// A node of the tree, and what is clicked behind it.
struct Way {
  std::string node;
  std::vector<Step> steps;

  Way With(Step step) const {
    Way longer = *this;
    longer.steps.push_back(step);
    return longer;
  }
};
using Pages = std::vector<const PageLayout*>;

void Go(const Shown& shown, const Way& way) {
  Open(shown, way.node);
  for (const Step& step : way.steps) {
    presentation::Presentation& presented = shown.Presented();
    const auto& rows = presented.Shown().rows;
    const auto asks = [](const presentation::ScreenRow& row) { return row.role == RowRole::kAccessCode; };
    if (std::any_of(rows.begin(), rows.end(), asks)) presented.Type(TextId{id::txtPassword}, kAccessCode);
    switch (step.what) {
      case Step::What::kButton:
        presented.Press(ButtonId{step.control});
        break;
      case Step::What::kTab:
        presented.ClickTab(TabsId{step.control}, step.number);
        break;
      case Step::What::kRow:
        presented.Pick(ChoiceId{step.control}, static_cast<std::size_t>(step.number));
        break;
    }
    Settle();
  }
}

void LookFrom(const Shown& shown, const std::string& place, const Way& way, Pages& seen);

/// The page in front, and those behind its buttons that have not been seen yet.
void LookAround(const Shown& shown, const std::string& place, const Way& way, Pages& seen) {
  LookAt(shown, place);
  const PageLayout* page = shown.Presented().Page();
  if (page == nullptr) return;
  std::vector<ControlId> buttons;
  for (const view::PlannedField& field : PageOf(shown).Plan().fields) {
    if (field.kind == RowKind::kOpen && field.enabled) buttons.push_back(field.control);
  }
  for (const ControlId button : buttons) {
    const Way behind = way.With({Step::What::kButton, button});
    Go(shown, behind);
    const PageLayout* opened = shown.Presented().Page();
    if (opened == page || std::find(seen.begin(), seen.end(), opened) != seen.end()) continue;
    LookFrom(shown, place, behind, seen);
  }
  // By the linearization other buttons stand there, and other pages behind them.
  if (!way.steps.empty() && way.steps.back().what == Step::What::kRow) return;
  Go(shown, way);
  const ControlId list = id::cmbLinearizationType;
  if (FieldWindow(shown.Page(), list) == nullptr) return;
  const int rows = static_cast<int>(shown.control.Inside().form.cmbLinearizationType.Rows().size());
  for (int row = 0; row < rows; ++row) {
    const Way there = way.With({Step::What::kRow, list, row});
    Go(shown, there);
    LookAround(shown, place, there, seen);
  }
}

/// The page in front, to which the way leads, with all its tabs.
void LookFrom(const Shown& shown, const std::string& place, const Way& way, Pages& seen) {
  seen.push_back(shown.Presented().Page());
  const std::vector<presentation::ScreenTabs> strips = shown.Presented().Shown().tabs;
  if (strips.empty()) return LookAround(shown, place, way, seen);
  const int tabs = static_cast<int>(strips.front().captions.size());
  for (int tab = 0; tab < tabs; ++tab) {
    const Way there = way.With({Step::What::kTab, strips.front().control, tab});
    Go(shown, there);
    LookAround(shown, place, there, seen);
  }
}

void EveryPageOf(const std::string& type) {
  const Shown shown;
  Start(shown, com::Utf16WithMarks(type));
  CHECK(shown.Verb(OLEIVERB_UIACTIVATE) == S_OK);
  std::vector<std::string> names;
  for (const TreeNode& node : shown.control.Inside().form.treeView.Nodes()) names.emplace_back(node.text);
  for (const SIZE& size : kSizes) {
    const RECT rect{0, 0, Pixels(size.cx), Pixels(size.cy)};
    SetWindowPos(shown.site.window, nullptr, 0, 0, rect.right + 40, rect.bottom + 60, SWP_NOZORDER | SWP_NOMOVE);
    const auto place = ComPtr<IOleInPlaceObject>::Of(shown.control.object.Get(), IID_IOleInPlaceObject);
    CHECK(place->SetObjectRects(&rect, &rect) == S_OK);
    const HWND tree = FindWindowExW(shown.Root(), nullptr, WC_TREEVIEWW, nullptr);
    if (size.cx == kSizes[0].cx) CHECK_FOR(type, (GetWindowLongPtrW(tree, GWL_STYLE) & WS_HSCROLL) == 0);
    Pages seen;
    for (const std::string& name : names) {
      Open(shown, name);
      LookFrom(shown, type + "_" + std::to_string(size.cx), {name, {}}, seen);
    }
    CHECK(std::find(seen.begin(), seen.end(), nullptr) == seen.end());
  }
}

void Pressure() { EveryPageOf("pressure"); }
void Flow() { EveryPageOf("flow"); }
void Level() { EveryPageOf("level"); }
void Density() { EveryPageOf("density"); }

void Resolution() { CHECK(view::DpiOf(GetDesktopWindow()) == theDpi); }

constexpr Case kCases[] = {{"resolution", &Resolution},
                           {"pages of a pressure device", &Pressure},
                           {"pages of a flow device", &Flow},
                           {"pages of a level device", &Level},
                           {"pages of a density device", &Density}};

}  // namespace
}  // namespace htr60::client

int main(int count, char** arguments) {
  using namespace htr60::client;
  if (count < 3) return 2;
  SetProcessDPIAware();
  const Apartment apartment;
  const Library library(arguments[1]);
  theManager = &library;
  theDpi = std::atoi(arguments[2]);
  if (count > 3) theFolder = arguments[3];
  return RunCases(kCases);
}
