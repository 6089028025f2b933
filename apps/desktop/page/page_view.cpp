#include "desktop/page/page_view.h"

#include <QApplication>
#include <QPainter>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <numeric>

#include "desktop/edge.h"
#include "desktop/page/spots.h"
#include "desktop/qt_text.h"
#include "form/control_names.h"

namespace htr60::desktop {
namespace {

// The ground of the groups. On the page that follows the signal an arrow leads from each group of the left column to
// the next.
class Content final : public QWidget {
 public:
  Content(bool arrows, QWidget* parent) : QWidget(parent), arrows_(arrows) {}

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    if (arrows_) Guarded([this] { PaintArrows(); });
  }

 private:
  void PaintArrows() {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::WindowText));
    for (const presentation::FlowArrow& arrow : static_cast<GroupFlow*>(layout())->Arrows()) {
      painter.drawPolygon(QPolygonF{QPointF(arrow.left.x, arrow.left.y), QPointF(arrow.right.x, arrow.right.y),
                                    QPointF(arrow.tip.x, arrow.tip.y)});
    }
  }

  bool arrows_;
};

// Follows the width of the viewport and never scrolls sideways; the wheel is the page's alone.
class PageScroll final : public QScrollArea {
 public:
  explicit PageScroll(QWidget* parent) : QScrollArea(parent) {
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
  }
};

}  // namespace

PageView::PageView(PageContext context, const PageLayout& page, QWidget* parent)
    : QWidget(parent), context_(context), page_(page) {
  const int gap = fontMetrics().averageCharWidth();
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(gap, 0, gap, 0);
  column->setSpacing(gap / 2);
  strips_.reserve(page.innerStrips.size() + 1);
  if (page.strip) AddStrip(page.strip, -1, *column);
  for (const LayoutInnerStrip& inner : page.innerStrips) AddStrip(inner.strip, inner.tab, *column);

  scroll_ = new PageScroll(this);
  content_ = new Content(page.signalFlow, scroll_);
  flow_ = new GroupFlow(page.signalFlow, content_);
  flow_->setContentsMargins(0, 0, 0, gap);
  flow_->setSpacing(gap);
  for (const LayoutGroup& group : page.groups) {
    if (group.panel) continue;  // stands across the page area
    auto* view = new GroupView(context, page, group, content_);
    order_.push_back(static_cast<int>(groups_.size()));
    groups_.push_back(view);
    flow_->Add(view, {.beside = group.beside, .separate = group.separate, .fills = [view] { return view->Fills(); }});
    connect(view, &GroupView::Pressed, this, &PageView::Pressed);
  }
  AddFigure();
  scroll_->setWidget(content_);
  column->addWidget(scroll_, 1);
  SyncStrips();
  Arrange();
}

void PageView::AddFigure() {
  if (page_.figure == FigureKind::kNone) return;
  figure_ = new FigureWidget(page_.figureBelow, content_);
  flow_->Add(figure_,
             {.beside = !groups_.empty() && !page_.figureBelow, .roomy = !page_.figureBelow, .stretches = true});
  order_.push_back(static_cast<int>(groups_.size()));
  Connect(figure_, &FigureWidget::FieldWanted, this, [this](ControlId field) {
    if (FieldCell* cell = CellOf(field)) cell->Widget()->setFocus(Qt::MouseFocusReason);
  });
  Connect(qApp, &QApplication::focusChanged, this, &PageView::RefreshFigure);
}

void PageView::RefreshFigure() {
  if (figure_ == nullptr) return;
  figure_->Show(context_.presented.Drawing());
}

void PageView::AddStrip(TabsId id, int tab, QLayout& column) {
  auto* bar = new PageTabs(this);
  bar->setObjectName(QString::fromStdString(NameOf(id)));
  BearSpot(*bar, id);
  for (const std::string_view caption : context_.control.form.At(id).Captions()) bar->addTab(ToQt(caption));
  column.addWidget(bar);
  strips_.push_back({id, tab, bar});
  const std::size_t number = strips_.size() - 1;
  Connect(bar, &QTabBar::currentChanged, this, [this, number](int index) { OnTab(strips_[number], index); });
}

void PageView::OnTab(const Strip& strip, int index) {
  if (syncing_ || index < 0) return;
  context_.presented.ClickTab(strip.id, index);
  SyncStrips();
  Arrange();
}

void PageView::SyncStrips() {
  syncing_ = true;
  const presentation::TabsInFront tabs = presentation::TabsOf(context_.control.form, page_);
  for (const Strip& strip : strips_) {
    strip.bar->setCurrentIndex(context_.control.form.At(strip.id).Index());
    strip.bar->setVisible(strip.tab < 0 || strip.tab == tabs.tab);
  }
  syncing_ = false;
}

// ---- taking from the form

void PageView::Refresh(const ControlSet& changed) {
  SyncStrips();
  for (GroupView* group : groups_) group->Refresh(changed);
  Arrange();
  RefreshFigure();
}

void PageView::RefreshStates() {
  for (GroupView* group : groups_) {
    if (group->isVisibleTo(content_)) group->RefreshStates();
  }
  ChooseLetters();
  RefreshFigure();
}

void PageView::Arrange() {
  const presentation::TabsInFront tabs = presentation::TabsOf(context_.control.form, page_);
  for (GroupView* group : groups_) {
    const bool shows = presentation::StandsOn(group->Group(), tabs) && group->Shows();
    if (group->isVisibleTo(content_) != shows) group->setVisible(shows);
  }
  ArrangeByTop();
  AlignCaptions();
  flow_->invalidate();
}

// Groups so marked trade places until they stand in the order of their tops.
void PageView::ArrangeByTop() {
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < groups_.size(); ++i) {
    if (groups_[i]->Group().byTop) places.push_back(i);
  }
  if (places.size() < 2) return;
  std::vector<std::size_t> sorted = places;
  std::stable_sort(sorted.begin(), sorted.end(), [this](std::size_t a, std::size_t b) {
    return groups_[a]->TopOfFrame() < groups_[b]->TopOfFrame();
  });
  std::vector<int> order(order_.size());
  std::iota(order.begin(), order.end(), 0);
  for (std::size_t i = 0; i < places.size(); ++i) order[places[i]] = static_cast<int>(sorted[i]);
  if (order == order_) return;
  order_ = order;
  flow_->Reorder(order_);
}

void PageView::AlignCaptions() {
  std::vector<presentation::CaptionMeasure> measures;
  for (const GroupView* group : groups_) {
    measures.push_back({&group->Group(), group->SharesCaptionWidth() ? group->CaptionWidth() : -1});
  }
  const std::vector<int> widths = presentation::CaptionWidths(measures);
  for (std::size_t i = 0; i < groups_.size(); ++i) {
    if (groups_[i]->SharesCaptionWidth()) groups_[i]->SetCaptionWidth(widths[i]);
  }
}

// The letters are those of the screen, whose groups and buttons are those that are to be seen here.
void PageView::ChooseLetters() {
  const presentation::Screen& screen = context_.presented.Shown();
  auto title = screen.groups.begin();
  for (GroupView* group : InOrder()) {
    if (!group->isVisibleTo(content_) || group->Caption().isEmpty() || title == screen.groups.end()) continue;
    group->SetMnemonic((title++)->mnemonic);
  }
  for (const presentation::ScreenButton& button : screen.buttons) {
    if (!button.control) continue;
    if (FieldCell* cell = CellOf(button.control)) cell->SetMnemonic(button.mnemonic);
  }
}

void PageView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) Guarded([this] { AlignCaptions(); });
}

std::vector<GroupView*> PageView::InOrder() const {
  std::vector<GroupView*> groups;
  for (const int number : order_) {
    const auto at = static_cast<std::size_t>(number);
    if (at < groups_.size()) groups.push_back(groups_[at]);  // the figure has the last number
  }
  return groups;
}

FieldCell* PageView::CellOf(ControlId control) const {
  for (const GroupView* group : groups_) {
    for (FieldCell* cell : group->Cells()) {
      if (cell->Control() == control) return cell;
    }
  }
  return nullptr;
}

}  // namespace htr60::desktop
