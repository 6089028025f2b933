#include "windows/view/tree_window.h"

#include <algorithm>
#include <utility>

#include "presentation/frame_texts.h"
#include "windows/base/text.h"
#include "windows/view/shapes.h"

namespace htr60::view {
namespace {

constexpr int kIndent = 14;  // 1/96 inch; the system takes what it needs at least
constexpr DWORD kStyle = WS_BORDER | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS |
                         TVS_NOTOOLTIPS | TVS_DISABLEDRAGDROP;

}  // namespace

TreeWindow::TreeWindow(IViewActs& acts, HWND parent)
    : Child(acts, parent, {WC_TREEVIEWW, kStyle}, presentation::Spot::Part::kTree) {
  Describe(com::Utf16WithMarks(presentation::kTreeName), L"");
}

void TreeWindow::Take(const TreeView& tree, const presentation::TreeMarks& marks, const Look& look) {
  const bool restyled = look_ != &look;
  if (restyled) {
    look_ = &look;
    SetFont(look.Handle(Look::Font::kPlain));
    TreeView_SetItemHeight(Handle(), std::max(look.Line() + look.Pixels(4), look.Picture() + look.Pixels(2)));
    TreeView_SetIndent(Handle(), look.Pixels(kIndent));
    TreeView_SetBkColor(Handle(), look.base);
    TreeView_SetTextColor(Handle(), look.text);
    auto pictures = std::make_unique<Pictures>(look.Picture(), look.text);
    TreeView_SetImageList(Handle(), pictures->List(), TVSIL_NORMAL);
    pictures_ = std::move(pictures);
  }
  const bool rebuilt = tree.Generation() != generation_ || items_.size() != tree.Nodes().size() + 1;
  if (rebuilt) Rebuild(tree);
  if (rebuilt || restyled) MeasureTexts();
  HTREEITEM selected = nullptr;
  for (std::size_t i = 0; i < tree.Nodes().size(); ++i) {
    const TreeNode& node = tree.Nodes()[i];
    Item& item = items_[i + 1];
    if (node.expanded && !item.expanded) TreeView_Expand(Handle(), item.handle, TVE_EXPAND);
    item.expanded = node.expanded;
    if (node.selected) selected = item.handle;
  }
  // The arrows may have moved the operator's selection meanwhile: the program's comes back with every activation.
  if (selected != nullptr && TreeView_GetSelection(Handle()) != selected) TreeView_SelectItem(Handle(), selected);
  if (marks == marks_ && !restyled && !rebuilt) return;
  marks_ = marks;
  ShowPictures(tree);
  InvalidateRect(Handle(), nullptr, TRUE);  // a pencil stands where the tree itself paints nothing
}

void TreeWindow::MeasureTexts() {
  textWidth_ = 0;
  const int scrolled = GetScrollPos(Handle(), SB_HORZ);
  for (const Item& item : items_) {
    RECT rect{};
    if (item.handle == nullptr || TreeView_GetItemRect(Handle(), item.handle, &rect, TRUE) == FALSE) continue;
    textWidth_ = std::max(textWidth_, static_cast<int>(rect.right) + scrolled);
  }
  const bool bar = (GetWindowLongPtrW(Handle(), GWL_STYLE) & WS_VSCROLL) != 0;
  textWidth_ += look_->Ascent() + look_->Character() + 2 * GetSystemMetrics(SM_CXBORDER) +
                (bar ? GetSystemMetrics(SM_CXVSCROLL) : 0);
}

// The open node has its own.
void TreeWindow::ShowPictures(const TreeView& tree) {
  for (std::size_t i = 0; i < tree.Nodes().size() && i + 1 < items_.size(); ++i) {
    const TreeNode& node = tree.Nodes()[i];
    const int picture = pictures_->IndexOf(node.text == marks_.open ? node.selectedPicture : node.picture);
    TVITEMW item{};
    item.mask = TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    item.hItem = items_[i + 1].handle;
    item.iImage = item.iSelectedImage = picture;
    TreeView_SetItem(Handle(), &item);
  }
}

void TreeWindow::Rebuild(const TreeView& tree) {
  const auto textOf = [this](HTREEITEM handle) {
    const Item* item = ItemOf(handle);
    return item == nullptr ? std::string() : item->text;
  };
  const std::string cursor = textOf(TreeView_GetSelection(Handle()));
  const std::string top = textOf(TreeView_GetFirstVisible(Handle()));
  generation_ = tree.Generation();
  SendMessageW(Handle(), WM_SETREDRAW, FALSE, 0);
  TreeView_DeleteAllItems(Handle());
  items_.assign(1, {});
  for (const TreeNode& node : tree.Nodes()) {
    std::wstring text = com::Utf16WithMarks(node.text);
    TVINSERTSTRUCTW insert{};
    insert.hParent = node.parent == 0 ? TVI_ROOT : items_.at(static_cast<std::size_t>(node.parent)).handle;
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT | TVIF_PARAM;
    insert.item.pszText = text.data();
    insert.item.lParam = static_cast<LPARAM>(items_.size());
    items_.push_back({TreeView_InsertItem(Handle(), &insert), std::string(node.text), node.expanded});
  }
  // For the operator; the program's own flags stay as they are.
  for (const Item& item : items_) {
    if (item.handle != nullptr) TreeView_Expand(Handle(), item.handle, TVE_EXPAND);
  }
  if (const HTREEITEM item = Find(cursor)) TreeView_SelectItem(Handle(), item);
  if (const HTREEITEM item = Find(top)) TreeView_Select(Handle(), item, TVGN_FIRSTVISIBLE);
  SendMessageW(Handle(), WM_SETREDRAW, TRUE, 0);
  InvalidateRect(Handle(), nullptr, TRUE);
}

const TreeWindow::Item* TreeWindow::ItemOf(HTREEITEM handle) const {
  const auto found = std::find_if(items_.begin(), items_.end(),
                                  [&](const Item& item) { return handle != nullptr && item.handle == handle; });
  return found == items_.end() ? nullptr : &*found;
}

HTREEITEM TreeWindow::Find(const std::string& text) const {
  const auto found = std::find_if(items_.begin(), items_.end(),
                                  [&](const Item& item) { return item.handle != nullptr && item.text == text; });
  return found == items_.end() ? nullptr : found->handle;
}

std::optional<TreePlace> TreeWindow::PlaceOf(HTREEITEM handle) const {
  const Item* item = ItemOf(handle);
  if (item == nullptr) return std::nullopt;
  return TreePlace{item->text, static_cast<int>(item - items_.data())};
}

std::optional<TreePlace> TreeWindow::Cursor() const { return PlaceOf(TreeView_GetSelection(Handle())); }

std::optional<TreePlace> TreeWindow::Clicked() {
  TVHITTESTINFO hit{};
  const DWORD at = GetMessagePos();
  hit.pt = {static_cast<short>(LOWORD(at)), static_cast<short>(HIWORD(at))};
  ScreenToClient(Handle(), &hit.pt);
  const HTREEITEM item = TreeView_HitTest(Handle(), &hit);
  if (item == nullptr || (hit.flags & (TVHT_ONITEM | TVHT_ONITEMRIGHT)) == 0) return std::nullopt;
  TreeView_SelectItem(Handle(), item);
  return PlaceOf(item);
}

// A bar at the tree's edge beside the open node, the pencil after the text of one that is not written.
LRESULT TreeWindow::OnCustomDraw(NMTVCUSTOMDRAW& draw, const Look& look) const {
  if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  if (draw.nmcd.dwDrawStage == CDDS_ITEMPREPAINT) return CDRF_NOTIFYPOSTPAINT;
  if (draw.nmcd.dwDrawStage != CDDS_ITEMPOSTPAINT) return CDRF_DODEFAULT;
  const auto handle = reinterpret_cast<HTREEITEM>(draw.nmcd.dwItemSpec);
  const Item* item = ItemOf(handle);
  if (item == nullptr) return CDRF_DODEFAULT;
  const Canvas canvas(draw.nmcd.hdc, look);
  RECT row{};
  if (TreeView_GetItemRect(Handle(), handle, &row, FALSE) == FALSE) return CDRF_DODEFAULT;
  const int gap = look.Character() / 2;
  if (item->text == marks_.open) canvas.Fill({0, row.top, std::max(3, gap), row.bottom}, look.text);
  if (std::find(marks_.unwritten.begin(), marks_.unwritten.end(), item->text) != marks_.unwritten.end()) {
    RECT words{};
    TreeView_GetItemRect(Handle(), handle, &words, TRUE);
    const int side = look.Ascent();
    PaintShape(canvas, {words.right + gap, row.top, words.right + gap + side, row.bottom}, Shape::kPencil);
  }
  return CDRF_DODEFAULT;
}

}  // namespace htr60::view
