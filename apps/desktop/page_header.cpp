#include "desktop/page_header.h"

#include <QDateTime>
#include <QGridLayout>
#include <algorithm>

#include "desktop/edge.h"
#include "desktop/qt_text.h"

namespace htr60::desktop {
namespace {

constexpr std::string_view kReading = "Reading Xmtr Data...";
constexpr int kTrafficPanel = 4;

std::int64_t Now() { return QDateTime::currentMSecsSinceEpoch(); }

}  // namespace

PageHeader::PageHeader(UserCntrl& control, QWidget* parent)
    : QWidget(parent),
      control_(control),
      title_(new QLabel(this)),
      purpose_(new QLabel(this)),
      warning_(new ShapeSlot(this)),
      data_(new QLabel(this)) {
  for (QLabel* label : {title_, purpose_, data_}) label->setTextFormat(Qt::PlainText);
  title_->setObjectName(QStringLiteral("pageTitle"));
  purpose_->setObjectName(QStringLiteral("pagePurpose"));
  data_->setObjectName(QStringLiteral("dataLine"));
  QFont font = title_->font();
  font.setBold(true);
  font.setPointSizeF(font.pointSizeF() * 1.3);
  title_->setFont(font);
  purpose_->setWordWrap(true);
  const int gap = fontMetrics().averageCharWidth();
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(gap, gap / 2, gap, gap / 2);
  grid->setHorizontalSpacing(gap);
  grid->setVerticalSpacing(gap / 4);
  grid->addWidget(title_, 0, 0);
  grid->addWidget(warning_, 0, 1);
  grid->addWidget(data_, 0, 2);
  grid->addWidget(purpose_, 1, 0, 1, 3);
  grid->setColumnStretch(0, 1);
  warning_->SetShape(Shape::kWarning);
  warning_->hide();
  clock_.setInterval(1000);
  Connect(&clock_, &QTimer::timeout, this, &PageHeader::ShowLine);
  Opened();
}

void PageHeader::Apply(const PageLayout* page, const QString& title, std::span<const int> handledCodes) {
  const FrameId shown = page != nullptr ? page->frame : FrameId{};
  if (!(shown == line_.Page())) line_.Opened(shown);
  title_->setText(title);
  purpose_->setText(page != nullptr ? ToQt(page->purpose) : QString());
  reads_ = page != nullptr && !page->reads.empty();
  bool answered = false;
  if (page != nullptr) {
    answered = std::any_of(handledCodes.begin(), handledCodes.end(), [&](int code) {
      return std::find(page->reads.begin(), page->reads.end(), code / 100) != page->reads.end();
    });
  }
  if (!handledCodes.empty() || !control_.form.statusBar.Panel(kTrafficPanel).text.empty()) startRead_ = false;
  line_.Look(Now(), Reading(), answered, PollingInterval());
  ShowLine();
}

bool PageHeader::Settled() {
  const Form& form = control_.form;
  return line_.HasRead() && !Reading() && form.statusBar.Panel(kTrafficPanel).text.empty() &&
         !form.At(TimerId::TimerReadAfterWrite).Enabled();
}

bool PageHeader::Reading() {
  if (startRead_) return !control_.form.At(TimerId::TimerInit).Enabled();
  return control_.form.statusBar.Panel(kTrafficPanel).text == kReading;
}

int PageHeader::PollingInterval() {
  for (std::size_t i = 0; i < kTimerCount; ++i) {
    const Timer& timer = control_.form.At(static_cast<TimerId>(i));
    if (control_.IsPolling(timer.Id()) && timer.Running()) return timer.Interval();
  }
  return 0;
}

void PageHeader::ShowLine() {
  const std::int64_t now = Now();
  const QString text = reads_ ? line_.Text(now) : QString();  // a page that reads nothing has nothing to tell
  if (text != data_->text()) data_->setText(text);
  const bool late = line_.Late(now);
  if (late != warning_->isVisibleTo(this)) warning_->setVisible(late);
  if (line_.Waits() && !clock_.isActive()) clock_.start();
  if (!line_.Waits()) clock_.stop();
}

}  // namespace htr60::desktop
