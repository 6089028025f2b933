#pragma once

#include <cstdint>
#include <string_view>

#include "shell/user_cntrl.h"

namespace htr60 {

/// Adds one node: at the top level for the four top-level texts, whatever `relative` is, else as a child of the node at
/// position `relative`. Throws where that position does not exist.
void AddTreeNode(UserCntrl& c, int relative, std::string_view text, std::string_view picture,
                 std::string_view selectedPicture);

/// The tree before the primary value type is known.
void BuildBaseTree(UserCntrl& c);
void BuildPressureFlowTree(UserCntrl& c);
void BuildDensityTree(UserCntrl& c);
void BuildLevelTree(UserCntrl& c);

/// Shows the primary value type of `code` (device value) and gives the tree that type's shape; an unknown code leaves
/// `cmbPVType` as it is, and the decision is made on what it shows.
void ApplyPrimaryValueType(UserCntrl& c, std::int32_t code);

/// The operator activates a node: `text` decides, `position` is the node's or 0 where the tree has no such node.
void OnTreeNodeClick(UserCntrl& c, std::string_view text, int position);

}  // namespace htr60
