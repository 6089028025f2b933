#include "presentation/flow.h"

#include <algorithm>
#include <cstddef>
#include <map>

namespace htr60::presentation {
namespace {

struct Column {
  std::vector<std::size_t> items;
  int least = 0;
  int wanted = 0;
  bool roomy = false;
  bool fills = false;
};
using Line = std::vector<Column>;

std::vector<Line> LinesOf(std::span<const FlowItem> items) {
  std::vector<Line> lines;
  for (std::size_t i = 0; i < items.size(); ++i) {
    const FlowItem& item = items[i];
    if (lines.empty() || item.separate) lines.emplace_back(1);
    if (item.beside && !lines.back().back().items.empty()) lines.back().emplace_back();
    Column& column = lines.back().back();
    column.items.push_back(i);
    column.least = std::max(column.least, item.least);
    column.wanted = std::max({column.wanted, item.wanted, item.least});
    column.roomy = item.roomy;
    column.fills = column.fills || item.fills;
  }
  return lines;
}

// As many columns as fit beside each other at their least width; one at least.
std::size_t Fitting(const Line& line, std::size_t first, const FlowRoom& room) {
  int least = line[first].least;
  int wanted = line[first].wanted;
  std::size_t end = first + 1;
  for (; end < line.size(); ++end) {
    least += room.gap + line[end].least;
    wanted += room.gap + line[end].wanted;
    if ((line[end].roomy ? wanted : least) > room.width) break;
  }
  return end;
}

// Widths of columns that stand beside each other. Where not all get what they want, each gives way in proportion; what
// is left over goes to those that fill.
std::vector<int> WidthsOf(std::span<const Column> columns, const FlowRoom& room) {
  const int gaps = room.gap * (static_cast<int>(columns.size()) - 1);
  int wanted = gaps;
  int least = gaps;
  int filling = 0;
  for (const Column& column : columns) {
    wanted += column.wanted;
    least += column.least;
    filling += column.fills ? 1 : 0;
  }
  std::vector<int> widths;
  if (wanted > room.width) {
    const int spare = std::max(0, room.width - least);
    for (const Column& column : columns) {
      widths.push_back(column.least + (wanted > least ? (column.wanted - column.least) * spare / (wanted - least) : 0));
    }
    if (columns.size() == 1) widths.front() = room.width;
    return widths;
  }
  int extra = room.width - wanted;
  for (const Column& column : columns) {
    const int share = column.fills ? extra / filling-- : 0;
    extra -= share;
    widths.push_back(column.wanted + share);
  }
  return widths;
}

}  // namespace

Flow LayOut(std::span<const FlowItem> items, const FlowRoom& room) {
  Flow flow;
  flow.rects.resize(items.size());
  const std::vector<Line> lines = LinesOf(items);
  int top = 0;
  for (const Line& line : lines) {
    for (std::size_t first = 0; first < line.size();) {
      const std::size_t end = Fitting(line, first, room);
      const std::vector<int> widths = WidthsOf(std::span(line).subspan(first, end - first), room);
      int x = 0;
      int deepest = top;
      for (std::size_t i = first; i < end; ++i) {
        const int wide = widths[i - first];
        int y = top;
        for (const std::size_t number : line[i].items) {
          const FlowItem& item = items[number];
          const int width = item.fills ? wide : std::min(wide, std::max(item.wanted, item.least));
          const int height = item.heightOf(width);
          flow.rects[number] = {x, y, width, height};
          y += height + room.gap;
        }
        deepest = std::max(deepest, y);
        x += wide + room.gap;
      }
      top = deepest;
      first = end;
    }
  }
  flow.height = std::max(0, top - room.gap);
  if (room.stretchLast && !items.empty()) {
    FlowRect& last = flow.rects[lines.back().back().items.back()];
    last.height = std::max(last.height, room.height - last.y);
  }
  if (room.arrowsAt <= 0 || lines.empty()) return flow;
  const std::vector<std::size_t>& left = lines.front().front().items;
  for (std::size_t i = 0; i + 1 < left.size(); ++i) {
    const FlowRect& from = flow.rects[left[i]];
    const FlowRect& to = flow.rects[left[i + 1]];
    const int bottom = from.y + from.height;
    const int half = (to.y - bottom) * 3 / 5;
    const int x = from.x + room.arrowsAt;
    flow.arrows.push_back({{x - half, bottom}, {x + half, bottom}, {x, to.y}});
  }
  return flow;
}

int WantedWidth(std::span<const FlowItem> items, int gap) {
  int width = 0;
  for (const Line& line : LinesOf(items)) {
    int wanted = gap * (static_cast<int>(line.size()) - 1);
    for (const Column& column : line) wanted += column.wanted;
    width = std::max(width, wanted);
  }
  return width;
}

int LeastWidth(std::span<const FlowItem> items) {
  int width = 0;
  for (const FlowItem& item : items) width = std::max(width, item.least);
  return width;
}

std::vector<int> CaptionWidths(std::span<const CaptionMeasure> groups) {
  std::vector<int> columnOf;
  std::map<int, int> widest;
  int column = 0;
  const LayoutGroup* before = nullptr;
  for (const CaptionMeasure& measure : groups) {
    const LayoutGroup& group = *measure.group;
    const bool sameTab = before != nullptr && before->tab == group.tab && before->innerTab == group.innerTab;
    if (!sameTab || group.separate) column = 0;
    if (group.beside) ++column;
    before = &group;
    columnOf.push_back(column);
    widest[column] = std::max(widest[column], measure.width);
  }
  std::vector<int> widths;
  for (std::size_t i = 0; i < groups.size(); ++i) {
    widths.push_back(groups[i].width < 0 ? 0 : widest[columnOf[i]]);
  }
  return widths;
}

}  // namespace htr60::presentation
