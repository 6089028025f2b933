#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "form/control_id.h"

namespace htr60::presentation {

/// What the nodes of the tree bear, by their texts: so it stays when the tree is built anew.
struct TreeMarks {
  std::string open;                    ///< the node activated last; empty before any
  std::vector<std::string> unwritten;  ///< nodes whose pages hold texts not written

  bool operator==(const TreeMarks&) const = default;
};

/// To which node a text not written belongs: the one that was the current node when it was typed. So pages that a
/// button opens count for the node they were opened from, and pages that share their fields each for itself.
class EditedNodes {
 public:
  /// The operator has changed `field`, and perhaps others with it, while `node` was the current node. `unwritten`: all
  /// fields that are not written now.
  void Edited(ControlId field, const std::vector<ControlId>& unwritten, std::string_view node);
  bool Any() const { return !edits_.empty(); }
  /// The nodes of those that are still not written, each once, in the order of their first edit.
  std::vector<std::string> Nodes(const std::vector<ControlId>& unwritten) const;

 private:
  std::vector<std::pair<ControlId, std::string>> edits_;
};

}  // namespace htr60::presentation
