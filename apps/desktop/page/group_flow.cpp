#include "desktop/page/group_flow.h"

#include <QWidget>
#include <algorithm>
#include <utility>

namespace htr60::desktop {
namespace {

constexpr int kArrowAtCharacters = 4;

int HeightOf(QLayoutItem& item, int width) {
  return item.hasHeightForWidth() ? item.heightForWidth(width) : item.sizeHint().height();
}

}  // namespace

GroupFlow::GroupFlow(bool arrows, QWidget* parent) : QLayout(parent), withArrows_(arrows) {}

GroupFlow::~GroupFlow() {
  for (const Item& item : items_) delete item.item;
}

void GroupFlow::Add(QWidget* group, Traits traits) {
  addChildWidget(group);
  items_.push_back({new QWidgetItem(group), std::move(traits), static_cast<int>(items_.size())});
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

void GroupFlow::addItem(QLayoutItem* item) { items_.push_back({item, {}, static_cast<int>(items_.size())}); }

QLayoutItem* GroupFlow::itemAt(int index) const {
  return index < 0 || index >= count() ? nullptr : items_[static_cast<std::size_t>(index)].item;
}

QLayoutItem* GroupFlow::takeAt(int index) {
  if (index < 0 || index >= count()) return nullptr;
  QLayoutItem* item = items_[static_cast<std::size_t>(index)].item;
  items_.erase(items_.begin() + index);
  return item;
}

std::vector<QLayoutItem*> GroupFlow::Shown() const {
  std::vector<QLayoutItem*> shown;
  for (const Item& item : items_) {
    if (!item.item->isEmpty()) shown.push_back(item.item);
  }
  return shown;
}

std::vector<presentation::FlowItem> GroupFlow::Measured() const {
  std::vector<presentation::FlowItem> measured;
  for (const Item& item : items_) {
    QLayoutItem* one = item.item;
    if (one->isEmpty()) continue;
    measured.push_back({.beside = item.traits.beside,
                        .separate = item.traits.separate,
                        .roomy = item.traits.roomy,
                        .fills = item.traits.stretches || (item.traits.fills && item.traits.fills()),
                        .least = one->minimumSize().width(),
                        .wanted = one->sizeHint().width(),
                        .heightOf = [one](int width) { return HeightOf(*one, width); }});
  }
  return measured;
}

presentation::FlowRoom GroupFlow::Room(QSize size) const {
  const int at = withArrows_ ? kArrowAtCharacters * parentWidget()->fontMetrics().averageCharWidth() : 0;
  const bool stretches =
      std::any_of(items_.begin(), items_.end(), [](const Item& item) { return item.traits.stretches; });
  return {.width = size.width(), .height = size.height(), .gap = spacing(), .stretchLast = stretches, .arrowsAt = at};
}

QSize GroupFlow::sizeHint() const {
  const QMargins margins = contentsMargins();
  const int width = presentation::WantedWidth(Measured(), spacing()) + margins.left() + margins.right();
  return {width, heightForWidth(width)};
}

QSize GroupFlow::minimumSize() const {
  const QMargins margins = contentsMargins();
  return {presentation::LeastWidth(Measured()) + margins.left() + margins.right(), margins.top() + margins.bottom()};
}

int GroupFlow::heightForWidth(int width) const {
  const QMargins margins = contentsMargins();
  const QSize room(width - margins.left() - margins.right(), 0);
  return presentation::LayOut(Measured(), Room(room)).height + margins.top() + margins.bottom();
}

void GroupFlow::setGeometry(const QRect& room) {
  QLayout::setGeometry(room);
  const QRect inside = contentsRect();
  presentation::Flow flow = presentation::LayOut(Measured(), Room(inside.size()));
  const std::vector<QLayoutItem*> shown = Shown();
  for (std::size_t i = 0; i < shown.size(); ++i) {
    const presentation::FlowRect& rect = flow.rects[i];
    shown[i]->setGeometry(QRect(inside.left() + rect.x, inside.top() + rect.y, rect.width, rect.height));
  }
  for (presentation::FlowArrow& arrow : flow.arrows) {
    for (presentation::FlowPoint* point : {&arrow.left, &arrow.right, &arrow.tip}) {
      point->x += inside.left();
      point->y += inside.top();
    }
  }
  arrows_ = std::move(flow.arrows);
}

}  // namespace htr60::desktop
