#include "desktop/page_area.h"

#include <QAccessible>
#include <QApplication>
#include <QElapsedTimer>
#include <QFrame>
#include <QLabel>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/edge.h"
#include "desktop/page_view.h"
#include "desktop/qt_text.h"

namespace htr60::desktop {
namespace {

FieldStates::Clock MonotonicClock() {
  QElapsedTimer clock;
  clock.start();
  return [clock] { return static_cast<std::int64_t>(clock.elapsed()); };
}

// Where several pages share the frame, the title of the current one.
std::string_view TitleOf(const PageLayout& page, std::string_view currentPage) {
  std::string_view any;
  for (const LayoutTitle& title : page.titles) {
    if (title.page == currentPage) return title.title;
    if (title.page.empty() || any.empty()) any = title.title;
  }
  return any;
}

}  // namespace

// A message across the top of the page area while its picture is shown. It takes no focus, catches no click, dims
// nothing; the program shows and hides it.
class WaitingStrip final : public QFrame {
 public:
  WaitingStrip(Form& form, const LayoutGroup& group, QWidget* parent)
      : QFrame(parent), form_(form), group_(group), text_(new QLabel(this)) {
    setObjectName(QStringLiteral("waitingStrip"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    text_->setForegroundRole(QPalette::ToolTipText);
    text_->setTextFormat(Qt::PlainText);
    text_->setAlignment(Qt::AlignCenter);
    auto* column = new QVBoxLayout(this);
    const int gap = fontMetrics().averageCharWidth();
    column->setContentsMargins(gap, gap / 2, gap, gap / 2);
    column->addWidget(text_);
    hide();
  }

  void Apply() {
    QString text = ToQt(group_.caption);
    for (const LayoutRow& row : group_.rows) {
      if (row.control) text = ToQt(form_.TextOf(row.control));
    }
    text_->setText(text);
    const bool shown = form_.At(group_.panel).Visible();
    if (shown == isVisibleTo(parentWidget())) return;
    setVisible(shown);
    if (!shown) return;
    text_->setAccessibleName(text);
    QAccessibleEvent alert(text_, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
  }

 private:
  Form& form_;
  const LayoutGroup& group_;
  QLabel* text_;
};

// The views look at the states when the focus moves, as it does once more when the window goes: they stop looking
// first.
PageArea::~PageArea() {
  for (PageView* view : findChildren<PageView*>()) disconnect(qApp, nullptr, view, nullptr);
}

PageArea::PageArea(UserCntrl& control, QWidget* parent)
    : QWidget(parent),
      control_(control),
      states_(control, MonotonicClock()),
      stack_(new QStackedWidget(this)),
      none_(new QLabel(tr("No page is open. Choose a node in the tree."), stack_)) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(fontMetrics().averageCharWidth() / 2);
  for (const PageUnit* unit : control_.Pages().units) {
    for (const PageLayout& page : unit->layouts) {
      if (!page.IsLaidOut()) continue;
      layouts_.push_back(&page);
      for (const LayoutGroup& group : page.groups) {
        if (!group.panel) continue;
        strips_.push_back(new WaitingStrip(control_.form, group, this));
        column->addWidget(strips_.back());
      }
    }
  }
  column->addWidget(stack_, 1);
  none_->setAlignment(Qt::AlignCenter);
  none_->setWordWrap(true);
  none_->setTextFormat(Qt::PlainText);
  none_->setObjectName(QStringLiteral("noPage"));
  stack_->addWidget(none_);

  constexpr struct {
    QKeyCombination key;
    int step;
  } kTabKeys[] = {{Qt::CTRL | Qt::Key_Tab, 1}, {Qt::CTRL | Qt::Key_PageDown, 1}, {Qt::CTRL | Qt::Key_PageUp, -1}};
  for (const auto& [key, step] : kTabKeys) {
    auto* shortcut = new QShortcut(QKeySequence(key), this);
    shortcut->setAutoRepeat(false);  // a tab may read from the device
    Connect(shortcut, &QShortcut::activated, this, [this, by = step] { ChangeTab(by); });
  }
  deadline_.setSingleShot(true);
  Connect(&deadline_, &QTimer::timeout, this, [this] {
    states_.Tick();
    ShowStates();
  });
}

// ---- what the form shows

const PageLayout* PageArea::InFront() const {
  const FrameId frame = control_.form.FrameShownLast();
  if (!frame || !control_.form.At(frame).Visible()) return nullptr;
  const auto found =
      std::find_if(layouts_.begin(), layouts_.end(), [&](const PageLayout* page) { return page->frame == frame; });
  return found == layouts_.end() ? nullptr : *found;
}

void PageArea::Apply(const FormChanges& changes) {
  states_.Turn(changes);
  for (WaitingStrip* strip : strips_) strip->Apply();
  ControlSet changed;
  for (const ControlId control : changes.controls) changed.set(control.ordinal);
  const bool fresh = Show(InFront());
  if (current_ != nullptr && !fresh && changed.any()) views_[current_]->Refresh(changed);
  NotePlace();
  ShowStates();
}

// True where another page came to the front: it has taken everything then.
bool PageArea::Show(const PageLayout* page) {
  if (page == current_) return false;
  current_ = page;
  if (page == nullptr) {
    stack_->setCurrentWidget(none_);
    return true;
  }
  PageView*& view = views_[page];
  if (view == nullptr) {
    view = new PageView({control_, states_}, *page, stack_);
    stack_->addWidget(view);
    Connect(view, &PageView::Pressed, this, &PageArea::Press);
  }
  ControlSet all;
  all.set();
  view->Refresh(all);
  stack_->setCurrentWidget(view);
  return true;
}

PageArea::Place PageArea::PlaceNow(const PageLayout* page) const {
  if (page == nullptr) return {};
  const TabsInFront tabs = TabsOf(control_.form, *page);
  return {page, ToQt(TitleOf(*page, control_.CurrentPage)), tabs.tab, tabs.innerTab};
}

void PageArea::NotePlace() {
  const Place now = PlaceNow(current_);
  if (now == place_) return;
  const Place left = std::exchange(place_, now);
  if (left.page == nullptr) return;
  if (const int count = states_.Unwritten(*left.page, left.tab, left.innerTab); count > 0) {
    QString where = left.title;
    if (left.tab >= 0) {
      const auto tab = control_.form.At(left.page->strip).Captions()[static_cast<std::size_t>(left.tab)];
      where += QStringLiteral(", ") + ToQt(tab).trimmed();
    }
    const QString fields = count == 1 ? tr("1 field") : tr("%1 fields").arg(count);
    Q_EMIT LeftWithoutWriting(tr("Left without writing: %1 on %2.").arg(fields, where));
  }
  if (left.page != now.page || left.title != now.title) states_.PageLeft(*left.page);
}

void PageArea::ShowStates() {
  const std::vector<ControlId> changed = states_.TakeChanged();
  if (current_ != nullptr && !changed.empty()) views_[current_]->RefreshStates(changed);
  if (const auto next = states_.NextDeadline()) {
    deadline_.start(static_cast<int>(std::max<std::int64_t>(0, *next - states_.Now())));
  } else {
    deadline_.stop();
  }
  Q_EMIT CountsChanged();
}

// ---- what the operator does

void PageArea::PageActivated() {
  states_.NodeActivated();
  if (const PageLayout* page = InFront()) Opened(*page);
}

void PageArea::Opened(const PageLayout& page) {
  const Place now = PlaceNow(&page);
  states_.PageOpened(page, now.page == place_.page && now.title == place_.title);
}

void PageArea::Press(ButtonId button) {
  const PageLayout* before = InFront();
  states_.Press(button, before);
  const PageLayout* after = InFront();
  if (after == nullptr || after == before || button == id::cmdBack) return;
  Opened(*after);
  Q_EMIT Activated(button);
}

void PageArea::ChangeTab(int step) {
  if (PageView* view = View()) view->ChangeTab(step);
}

// ---- focus

PageView* PageArea::View() const {
  const auto found = views_.find(current_);
  return found == views_.end() ? nullptr : found->second;
}

void PageArea::FocusFirstField() {
  if (PageView* view = View(); view != nullptr && !view->FocusFirstField()) view->FocusStart();
}

void PageArea::FocusPage() {
  if (PageView* view = View()) view->FocusStart();
}

bool PageArea::FocusControl(ControlId control) {
  PageView* view = View();
  return view != nullptr && view->FocusControl(control);
}

void PageArea::FocusFirst(FieldState state) {
  if (current_ == nullptr) return;
  if (const ControlId field = states_.First(*current_, state)) FocusControl(field);
}

QString PageArea::Title() const { return PlaceNow(current_).title; }

QString PageArea::NoteOfFocus() const {
  const PageView* view = View();
  return view == nullptr ? QString() : view->NoteOfFocus();
}

}  // namespace htr60::desktop
