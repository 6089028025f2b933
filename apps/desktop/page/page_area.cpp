#include "desktop/page/page_area.h"

#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/edge.h"
#include "desktop/page/page_bar.h"
#include "desktop/page/page_view.h"
#include "desktop/page/spots.h"
#include "desktop/qt_text.h"

namespace htr60::desktop {

// A message across the top of the page area while its picture is shown. It takes no focus, catches no click, dims
// nothing; the program shows and hides it.
class WaitingStrip final : public QFrame {
 public:
  explicit WaitingStrip(QWidget* parent) : QFrame(parent), text_(new QLabel(this)) {
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

  /// Empty hides it.
  void Apply(const QString& text) {
    if (!text.isEmpty()) {
      text_->setText(text);
      text_->setAccessibleName(text);
    }
    setVisible(!text.isEmpty());
  }

 private:
  QLabel* text_;
};

// The views look at the states when the focus moves, as it does once more when the window goes: they stop looking
// first.
PageArea::~PageArea() {
  for (PageView* view : findChildren<PageView*>()) disconnect(qApp, nullptr, view, nullptr);
}

PageArea::PageArea(UserCntrl& control, presentation::Presentation& presented, QWidget* parent)
    : QWidget(parent),
      control_(control),
      presented_(presented),
      stack_(new QStackedWidget(this)),
      empty_(new QWidget(stack_)),
      why_(new QLabel(empty_)),
      reopen_(new QPushButton(empty_)) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(fontMetrics().averageCharWidth() / 2);
  waiting_ = new WaitingStrip(this);
  column->addWidget(waiting_);
  bar_ = new PageBar(this);
  column->addWidget(bar_);
  Connect(bar_, &PageBar::Answered, this, [this](int button) {
    if (presented_.AnswerBar(static_cast<std::size_t>(button))) Q_EMIT CloseWanted();
  });
  column->addWidget(stack_, 1);
  why_->setAlignment(Qt::AlignCenter);
  why_->setWordWrap(true);
  why_->setTextFormat(Qt::PlainText);
  why_->setObjectName(QStringLiteral("noPage"));
  reopen_->setObjectName(QStringLiteral("reopen"));
  BearSpot(*reopen_, presentation::Spot::Part::kReopen);
  reopen_->hide();
  Connect(reopen_, &QPushButton::clicked, this, [this] { Q_EMIT ReopenPressed(); });
  auto* middle = new QVBoxLayout(empty_);
  middle->addStretch(1);
  middle->addWidget(why_);
  middle->addWidget(reopen_, 0, Qt::AlignCenter);
  middle->addStretch(1);
  stack_->addWidget(empty_);
}

// ---- what the presentation shows

void PageArea::Apply(const FormChanges& changes) {
  waiting_->Apply(ToQt(presented_.Shown().waiting));
  bar_->Apply(presented_.Shown().bar);
  ControlSet changed;
  for (const ControlId control : changes.controls) changed.set(control.ordinal);
  const bool fresh = Show(presented_.Page());
  if (current_ == nullptr) return ShowEmpty();
  if (!fresh && changed.any()) views_[current_]->Refresh(changed);
  views_[current_]->RefreshStates();
}

void PageArea::ShowEmpty() {
  const presentation::Screen& screen = presented_.Shown();
  why_->setText(ToQt(screen.message));
  const bool offers = !screen.buttons.empty() && !screen.buttons.front().control;
  if (offers) reopen_->setText(ToQt(screen.buttons.front().caption));
  reopen_->setVisible(offers);
}

// True where another page came to the front: it has taken everything then.
bool PageArea::Show(const PageLayout* page) {
  if (page == current_) return false;
  current_ = page;
  if (page == nullptr) {
    stack_->setCurrentWidget(empty_);
    return true;
  }
  PageView*& view = views_[page];
  if (view == nullptr) {
    view = new PageView({control_, presented_}, *page, stack_);
    stack_->addWidget(view);
    Connect(view, &PageView::Pressed, this, &PageArea::Press);
  }
  ControlSet all;
  all.set();
  view->Refresh(all);
  stack_->setCurrentWidget(view);
  return true;
}

void PageArea::Press(ButtonId button) { presented_.Press(button); }

PageView* PageArea::View() const {
  const auto found = views_.find(current_);
  return found == views_.end() ? nullptr : found->second;
}

QString PageArea::Title() const { return ToQt(presented_.Shown().title); }

}  // namespace htr60::desktop
