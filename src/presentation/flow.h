#pragma once

#include <functional>
#include <span>
#include <vector>

#include "form/layout.h"

// Where the groups of a page stand, and how wide they are. Lengths are in whatever unit the view measures in.
namespace htr60::presentation {

/// Characters that a row with a field to be changed keeps free for the words of its state: a group does not grow with
/// each of them, and with longer ones it does.
inline constexpr int kWordsCharacters = 20;

/// A group that is to be seen, or the figure, as the view has measured it.
struct FlowItem {
  bool beside = false;                 ///< begins a new column
  bool separate = false;               ///< begins a new line below all columns
  bool roomy = false;                  ///< stands beside others only where none of them has to give way
  bool fills = false;                  ///< takes all the width there is
  int least = 0;                       ///< width to which it can shrink
  int wanted = 0;                      ///< width of its widest row
  std::function<int(int)> heightOf{};  ///< its height at a width
};

struct FlowRect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  constexpr bool operator==(const FlowRect&) const = default;
};

struct FlowPoint {
  int x = 0;
  int y = 0;
};

/// From one group of the left column to the next: base and tip of a triangle.
struct FlowArrow {
  FlowPoint left;
  FlowPoint right;
  FlowPoint tip;
};

struct FlowRoom {
  int width = 0;
  int height = 0;            ///< for what stretches
  int gap = 0;               ///< between groups
  bool stretchLast = false;  ///< the last group takes the height that is left
  int arrowsAt = 0;          ///< how far from a group's left side its arrow stands; 0: no arrows
};

struct Flow {
  std::vector<FlowRect> rects;  ///< one an item
  int height = 0;
  std::vector<FlowArrow> arrows;
};

/// A group stands below the one before it in its column. Columns that do not fit beside each other at their least width
/// stand below each other; groups end with their widest row.
Flow LayOut(std::span<const FlowItem> items, const FlowRoom& room);

/// Widths of the whole: where no group has to give way, and the least.
int WantedWidth(std::span<const FlowItem> items, int gap);
int LeastWidth(std::span<const FlowItem> items);

/// The captions of a group as the view has measured them; negative: it has none in one column.
struct CaptionMeasure {
  const LayoutGroup* group = nullptr;
  int width = -1;
};

/// The width of each group's caption column. Fields stand in one line down each column of groups, on all tabs of the
/// page alike, whatever is hidden.
std::vector<int> CaptionWidths(std::span<const CaptionMeasure> groups);

}  // namespace htr60::presentation
