#include "navigation/tree.h"

namespace htr60 {
namespace {

constexpr std::string_view kSelectedPicture = "Biblio";

}  // namespace

void BuildTree(UserCntrl& c, TreeShape shape) {
  TreeView& tree = c.form.treeView;
  for (const TreeEntry& node : c.Pages().trees[static_cast<std::size_t>(shape)]) {
    const int position = node.parent == 0 ? tree.AddTopLevel(node.text) : tree.AddChild(node.parent, node.text);
    tree.SetPictures(position, node.picture, kSelectedPicture);
  }
}

}  // namespace htr60
