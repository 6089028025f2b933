#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

#include "shell/page_unit.h"

// The table of contents and the trees that are made of it and of the units' nodes, at compile time.
namespace htr60 {

/// A unit by the name of its file.
struct NamedUnit {
  const char* name;
  const PageUnit* unit;
};

template <std::size_t N>
using NamedUnits = const NamedUnit (&)[N];

inline constexpr std::string_view kContents[] = {
#define HTR60_NODE(text) text,
#include "pages/contents.def"
};
inline constexpr std::size_t kContentsSize = std::size(kContents);

template <std::size_t N>
constexpr std::array<const PageUnit*, N> UnitsOf(NamedUnits<N> units) {
  std::array<const PageUnit*, N> plain{};
  for (std::size_t i = 0; i < N; ++i) plain[i] = units[i].unit;
  return plain;
}

/// The node of that text in a tree; null where the tree has none.
template <std::size_t N>
constexpr const NodeText* FindNode(NamedUnits<N> units, std::string_view text, TreeShape shape) {
  for (const NamedUnit& named : units) {
    for (const NodeRow& row : named.unit->nodes) {
      for (const NodeText& node : row.texts) {
        if (node.trees.Has(shape) && node.text == text) return &node;
      }
    }
  }
  return nullptr;
}

/// One tree, its nodes in the order of their positions.
class TreeTable {
 public:
  constexpr void Add(const NodeText& node) {
    rows_[count_] = {node.text, PositionOf(node.parent), node.picture};
    ++count_;
  }
  /// From 1; 0 where the tree has no such node yet.
  constexpr int PositionOf(std::string_view text) const {
    for (std::size_t i = 0; i < count_; ++i) {
      if (rows_[i].text == text) return static_cast<int>(i) + 1;
    }
    return 0;
  }
  constexpr std::span<const TreeEntry> Rows() const { return std::span(rows_).first(count_); }

 private:
  std::array<TreeEntry, kContentsSize> rows_{};
  std::size_t count_ = 0;
};

template <std::size_t N>
constexpr TreeTable MakeTree(NamedUnits<N> units, TreeShape shape) {
  TreeTable tree;
  for (const std::string_view text : kContents) {
    if (const NodeText* node = FindNode(units, text, shape)) tree.Add(*node);
  }
  return tree;
}

template <std::size_t N>
constexpr StartPage StartOf(NamedUnits<N> units) {
  for (const NamedUnit& named : units) {
    if (named.unit->start.frame) return named.unit->start;
  }
  return {};
}

}  // namespace htr60
