#include "desktop/page/group_flow.h"

#include <QWidget>
#include <algorithm>
#include <numeric>

namespace htr60::desktop {
namespace {

int HeightOf(QLayoutItem& item, int width) {
  return item.hasHeightForWidth() ? item.heightForWidth(width) : item.sizeHint().height();
}

}  // namespace

int GroupFlow::WidthOf(const Column& column, bool least) {
  int width = 0;
  for (const QLayoutItem* item : column.items) {
    width = std::max(width, least ? item->minimumSize().width() : item->sizeHint().width());
  }
  return width;
}

GroupFlow::GroupFlow(QWidget* parent) : QLayout(parent) {}

GroupFlow::~GroupFlow() {
  for (const Item& item : items_) delete item.item;
}

void GroupFlow::Add(QWidget* group, bool beside, bool newLine, bool roomy) {
  addChildWidget(group);
  items_.push_back({new QWidgetItem(group), beside, newLine, roomy, static_cast<int>(items_.size())});
  invalidate();
}

void GroupFlow::Reorder(const std::vector<int>& order) {
  std::vector<Item> sorted;
  for (const int number : order) {
    sorted.push_back(
        *std::find_if(items_.begin(), items_.end(), [&](const Item& item) { return item.number == number; }));
  }
  items_ = std::move(sorted);
  invalidate();
}

void GroupFlow::addItem(QLayoutItem* item) {
  items_.push_back({item, false, false, false, static_cast<int>(items_.size())});
}

QLayoutItem* GroupFlow::itemAt(int index) const {
  return index < 0 || index >= count() ? nullptr : items_[static_cast<std::size_t>(index)].item;
}

QLayoutItem* GroupFlow::takeAt(int index) {
  if (index < 0 || index >= count()) return nullptr;
  QLayoutItem* item = items_[static_cast<std::size_t>(index)].item;
  items_.erase(items_.begin() + index);
  return item;
}

std::vector<GroupFlow::Line> GroupFlow::Lines() const {
  std::vector<Line> lines;
  for (const Item& item : items_) {
    if (item.item->isEmpty()) continue;
    if (lines.empty() || item.newLine) lines.emplace_back(1);
    if (item.beside && !lines.back().back().items.empty()) lines.back().emplace_back();
    lines.back().back().items.push_back(item.item);
    lines.back().back().roomy = item.roomy;
  }
  return lines;
}

std::vector<QWidget*> GroupFlow::FirstColumn() const {
  std::vector<QWidget*> widgets;
  const std::vector<Line> lines = Lines();
  if (lines.empty()) return widgets;
  for (QLayoutItem* item : lines.front().front().items) widgets.push_back(item->widget());
  return widgets;
}

// As many columns as fit beside each other at their least width; one at least.
std::size_t GroupFlow::Fitting(const Line& line, std::size_t first, int room) const {
  int least = WidthOf(line[first], true);
  int wanted = WidthOf(line[first], false);
  std::size_t end = first + 1;
  for (; end < line.size(); ++end) {
    least += spacing() + WidthOf(line[end], true);
    wanted += spacing() + WidthOf(line[end], false);
    if ((line[end].roomy ? wanted : least) > room) break;
  }
  return end;
}

int GroupFlow::PlaceLine(const Line& line, const QRect& room, bool apply) const {
  const int gap = spacing();
  int top = room.top();
  int deepest = top;
  for (std::size_t first = 0; first < line.size();) {
    const std::size_t end = Fitting(line, first, room.width());
    const int columns = static_cast<int>(end - first);
    int wanted = gap * (columns - 1);
    int least = wanted;
    for (std::size_t i = first; i < end; ++i) {
      wanted += WidthOf(line[i], false);
      least += WidthOf(line[i], true);
    }
    const int spare = room.width() - least;
    const int extra = std::max(0, room.width() - wanted) / columns;
    int x = room.left();
    for (std::size_t i = first; i < end; ++i) {
      const int narrow = WidthOf(line[i], true);
      const int wide = WidthOf(line[i], false);
      int width = wide + extra;
      if (wanted > room.width()) {
        width = narrow + (wanted > least ? (wide - narrow) * spare / (wanted - least) : 0);
      }
      if (i + 1 == end) width = room.right() + 1 - x;
      int y = top;
      for (QLayoutItem* item : line[i].items) {
        const int height = HeightOf(*item, width);
        if (apply) item->setGeometry(QRect(x, y, width, height));
        y += height + gap;
      }
      deepest = std::max(deepest, y);
      x += width + gap;
    }
    top = deepest;
    first = end;
  }
  return deepest - room.top();
}

int GroupFlow::Place(const QRect& room, bool apply) const {
  const std::vector<Line> lines = Lines();
  int y = room.top();
  for (const Line& line : lines) y += PlaceLine(line, QRect(room.left(), y, room.width(), 0), apply);
  const int used = std::max(0, y - spacing() - room.top());
  if (apply && stretchLast_ && !lines.empty()) {
    QLayoutItem* last = lines.back().back().items.back();
    QRect bottom = last->geometry();
    bottom.setBottom(std::max(bottom.bottom(), room.bottom()));
    last->setGeometry(bottom);
  }
  return used;
}

QSize GroupFlow::sizeHint() const {
  int width = 0;
  for (const Line& line : Lines()) {
    int lineWidth = spacing() * (static_cast<int>(line.size()) - 1);
    for (const Column& column : line) lineWidth += WidthOf(column, false);
    width = std::max(width, lineWidth);
  }
  const QMargins margins = contentsMargins();
  width += margins.left() + margins.right();
  return {width, heightForWidth(width)};
}

QSize GroupFlow::minimumSize() const {
  int width = 0;
  for (const Item& item : items_) {
    if (!item.item->isEmpty()) width = std::max(width, item.item->minimumSize().width());
  }
  const QMargins margins = contentsMargins();
  return {width + margins.left() + margins.right(), margins.top() + margins.bottom()};
}

int GroupFlow::heightForWidth(int width) const {
  const QMargins margins = contentsMargins();
  const QRect room(0, 0, width - margins.left() - margins.right(), 0);
  return Place(room, false) + margins.top() + margins.bottom();
}

void GroupFlow::setGeometry(const QRect& room) {
  QLayout::setGeometry(room);
  Place(contentsRect(), true);
}

}  // namespace htr60::desktop
