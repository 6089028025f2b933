#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "form/form.h"
#include "presentation/tree_marks.h"
#include "windows/view/child.h"
#include "windows/view/controls.h"
#include "windows/view/look.h"
#include "windows/view/pictures.h"

namespace htr60::view {

/// A node of the tree as it stands.
struct TreePlace {
  std::string text;
  int position = 0;
};

/// The tree of pages. Cursor, mark of the open page and scroll place stay by text when it is built anew.
class TreeWindow final : private Child {
 public:
  TreeWindow(IViewActs& acts, HWND parent);

  Child& Own() { return *this; }
  void Take(const TreeView& tree, const presentation::TreeMarks& marks, const Look& look);
  /// Pixels that the widest text needs, with a pencil behind it.
  int TextWidth() const { return textWidth_; }
  /// The node at the cursor; none where there is none.
  std::optional<TreePlace> Cursor() const;
  /// The node under a click, which becomes the cursor.
  std::optional<TreePlace> Clicked();
  /// Marks of a row, painted over what the system has painted.
  LRESULT OnCustomDraw(NMTVCUSTOMDRAW& draw, const Look& look) const;

 private:
  struct Item {
    HTREEITEM handle = nullptr;
    std::string text;
    bool expanded = false;
  };

  void Rebuild(const TreeView& tree);
  void ShowPictures(const TreeView& tree);
  void MeasureTexts();
  const Item* ItemOf(HTREEITEM handle) const;
  HTREEITEM Find(const std::string& text) const;
  std::optional<TreePlace> PlaceOf(HTREEITEM handle) const;

  std::vector<Item> items_;  // by position, from 1
  std::uint32_t generation_ = 0;
  presentation::TreeMarks marks_;
  const Look* look_ = nullptr;
  int textWidth_ = 0;
  std::unique_ptr<Pictures> pictures_;
};

}  // namespace htr60::view
