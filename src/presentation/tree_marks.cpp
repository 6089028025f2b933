#include "presentation/tree_marks.h"

#include <algorithm>

namespace htr60::presentation {
namespace {

bool Holds(const std::vector<ControlId>& controls, ControlId control) {
  return std::find(controls.begin(), controls.end(), control) != controls.end();
}

}  // namespace

void EditedNodes::Edited(ControlId field, const std::vector<ControlId>& unwritten, std::string_view node) {
  std::erase_if(edits_, [&](const auto& edit) { return edit.first == field || !Holds(unwritten, edit.first); });
  for (const ControlId control : unwritten) {
    const bool known =
        std::any_of(edits_.begin(), edits_.end(), [&](const auto& edit) { return edit.first == control; });
    if (!known) edits_.emplace_back(control, node);
  }
}

std::vector<std::string> EditedNodes::Nodes(const std::vector<ControlId>& unwritten) const {
  std::vector<std::string> nodes;
  for (const auto& [control, node] : edits_) {
    if (Holds(unwritten, control) && std::find(nodes.begin(), nodes.end(), node) == nodes.end()) nodes.push_back(node);
  }
  return nodes;
}

}  // namespace htr60::presentation
