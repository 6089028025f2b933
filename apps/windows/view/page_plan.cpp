#include "windows/view/page_plan.h"

#include <algorithm>
#include <memory>

#include "presentation/page_rows.h"
#include "windows/view/group_plan.h"

namespace htr60::view {
namespace {

constexpr int kLeastFigureWidth = 300;  // 1/96 inch
constexpr int kLeastFigureHeight = 160;
constexpr int kLeastFlatFigure = 110;
constexpr int kArrowAtCharacters = 4;

using Groups = std::vector<std::unique_ptr<GroupPlan>>;

Groups GroupsOf(UserCntrl& control, presentation::Presentation& presented, const Look& look, const PageLayout& page) {
  Groups groups;
  for (const LayoutGroup* group : presentation::GroupsInFront(control.form, page)) {
    auto plan = std::make_unique<GroupPlan>(control, presented, look, page, *group);
    if (plan->Shows()) groups.push_back(std::move(plan));
  }
  return groups;
}

// Fields stand in one line down the page on all tabs, whatever is hidden: the captions of every group count.
void AlignCaptions(UserCntrl& control, presentation::Presentation& presented, const Look& look, const PageLayout& page,
                   const Groups& groups) {
  std::vector<presentation::CaptionMeasure> measures;
  for (const LayoutGroup& group : page.groups) {
    if (group.panel) continue;
    const GroupPlan plan(control, presented, look, page, group);
    measures.push_back({&group, plan.SharesCaptionWidth() ? plan.CaptionWidth() : -1});
  }
  const std::vector<int> widths = presentation::CaptionWidths(measures);
  for (const auto& group : groups) {
    for (std::size_t i = 0; i < measures.size(); ++i) {
      if (measures[i].group == &group->Group() && group->SharesCaptionWidth()) group->SetCaptionWidth(widths[i]);
    }
  }
}

}  // namespace

PagePlan PlanPage(UserCntrl& control, presentation::Presentation& presented, const Look& look, SIZE room) {
  PagePlan plan;
  const PageLayout* page = presented.Page();
  if (page == nullptr) return plan;
  const Groups groups = GroupsOf(control, presented, look, *page);
  AlignCaptions(control, presented, look, *page, groups);
  std::vector<presentation::FlowItem> items;
  for (const auto& group : groups) {
    items.push_back({.beside = group->Group().beside,
                     .separate = group->Group().separate,
                     .fills = group->Fills(),
                     .least = group->Least(),
                     .wanted = group->Wanted(),
                     .heightOf = [plan = group.get()](int width) { return plan->HeightAt(width); }});
  }
  const bool figure = page->figure != FigureKind::kNone;
  if (figure) {
    const int height = look.Pixels(page->figureBelow ? kLeastFlatFigure : kLeastFigureHeight);
    items.push_back({.beside = !groups.empty() && !page->figureBelow,
                     .roomy = !page->figureBelow,
                     .fills = true,
                     .least = look.Pixels(kLeastFigureWidth),
                     .wanted = look.Pixels(kLeastFigureWidth),
                     .heightOf = [height](int) { return height; }});
  }
  const int gap = look.Character();
  // A group is never narrower than it can be: the page scrolls then.
  for (const auto& group : groups) room.cx = std::max<LONG>(room.cx, group->Least() + 2 * gap);
  const presentation::Flow flow =
      presentation::LayOut(items, {.width = static_cast<int>(room.cx) - 2 * gap,
                                   .height = static_cast<int>(room.cy) - gap,
                                   .gap = gap,
                                   .stretchLast = figure,
                                   .arrowsAt = page->signalFlow ? kArrowAtCharacters * gap : 0});
  for (std::size_t i = 0; i < items.size(); ++i) {
    presentation::FlowRect rect = flow.rects[i];
    rect.x += gap;
    if (i < groups.size()) {
      groups[i]->Place(rect, plan);
    } else {
      plan.figure = {rect.x, rect.y, rect.x + rect.width, rect.y + rect.height};
    }
  }
  plan.arrows = flow.arrows;
  for (presentation::FlowArrow& arrow : plan.arrows) {
    for (presentation::FlowPoint* point : {&arrow.left, &arrow.right, &arrow.tip}) point->x += gap;
  }
  plan.height = flow.height + gap;
  for (const RECT& box : plan.boxes) plan.width = std::max<int>(plan.width, box.right + gap);
  for (const PlannedField& field : plan.fields) plan.width = std::max<int>(plan.width, field.rect.right + gap);
  return plan;
}

}  // namespace htr60::view
