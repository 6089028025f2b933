#pragma once

#include <string_view>

#include "shell/user_cntrl.h"

namespace htr60 {

/// Adds the nodes of that shape to the tree, in the order of their positions.
void BuildTree(UserCntrl& c, TreeShape shape);

/// The operator activates a node: `text` decides, `position` is the node's or 0 where the tree has no such node.
void OnTreeNodeClick(UserCntrl& c, std::string_view text, int position);

}  // namespace htr60
