#include "desktop/window/desktop_host.h"

#include <QLocale>
#include <QMessageBox>
#include <QScopeGuard>
#include <algorithm>
#include <utility>

#include "desktop/edge.h"
#include "desktop/figure/drawings.h"
#include "desktop/qt_text.h"
#include "desktop/window/status_panels.h"
#include "pages/pages.h"
#include "presentation/page_in_words.h"

namespace htr60::desktop {
namespace {

constexpr int kPictureSide = 16;

char DecimalSeparator() { return QLocale().decimalPoint() == QLatin1String(",") ? ',' : '.'; }

QMessageBox::StandardButton StandardButtonOf(BoxButton button) {
  switch (button) {
    case BoxButton::kYes:
      return QMessageBox::Yes;
    case BoxButton::kNo:
      return QMessageBox::No;
    case BoxButton::kOk:
      break;
  }
  return QMessageBox::Ok;
}

QMessageBox::Icon IconOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::kInformation:
      return QMessageBox::Information;
    case BoxIcon::kStop:
      return QMessageBox::Critical;
    case BoxIcon::kNone:
      break;
  }
  return QMessageBox::NoIcon;
}

}  // namespace

DesktopHost::DesktopHost(Clock& clock, const sim::Settings& settings, const QString& preset)
    : preset_(preset), clock_(clock) {
  Connect(&clock_, &Clock::Alarm, this, &DesktopHost::RunDue);
  manager_ = sim::Manager::Create(settings, [this] { return clock_.Now(); });
  manager_->onScheduleChanged = [this] { SetAlarm(); };
  const Ports ports{
      .boxes = *this, .timers = *this, .icons = *this, .watcher = this, .decimalSeparator = DecimalSeparator()};
  control_ = UserCntrl::Create(ports, PagesOfHtr60());
  observer_ = std::make_shared<observe::Observer>([this] { return clock_.Now(); });
  observer_->page = [this] { return presentation::PageInWords(*control_); };
  control_->Init("htr60", "", std::make_shared<observe::ObservingDtm>(manager_, observer_));
  SetAlarm();
}

std::string DesktopHost::Simulated() const { return preset_.isEmpty() ? "SIMULATED" : "SIMULATED: " + ToUtf8(preset_); }

DesktopHost::~DesktopHost() {
  observer_->page = nullptr;
  control_->PrepareToRelease();
  control_.reset();
  manager_->onScheduleChanged = nullptr;
  clock_.SetAlarm(std::nullopt);
}

BoxButton DesktopHost::Show(const ModalBox& box) {
  ++openBoxes_;
  const auto closing = qScopeGuard([this] {
    --openBoxes_;
    SetAlarm();
  });
  SetAlarm();  // answers and timers go on while the box is open, also when it was opened while one was handled
  const QPointer<QMessageBox> dialog = new QMessageBox(boxParent_);
  dialog->setTextFormat(Qt::PlainText);
  dialog->setText(ToQt(box.text));
  dialog->setWindowTitle(ToQt(box.caption));
  dialog->setIcon(IconOf(box.icon));
  for (const BoxButton button : box.buttons) dialog->addButton(StandardButtonOf(button));
  BoxButton closed = BoxButton::kOk;
  if (std::find(box.buttons.begin(), box.buttons.end(), BoxButton::kNo) != box.buttons.end()) {
    closed = BoxButton::kNo;
    dialog->setDefaultButton(QMessageBox::No);
    dialog->setEscapeButton(QMessageBox::No);
  }
  const int pressed = dialog->exec();
  delete dialog;
  for (const BoxButton button : box.buttons) {
    if (pressed == StandardButtonOf(button)) return button;
  }
  return closed;
}

void DesktopHost::Arm(int timer, std::int32_t milliseconds) {
  timers_.at(static_cast<std::size_t>(timer)) = Due{clock_.Now() + milliseconds, ++armed_};
  SetAlarm();
}

void DesktopHost::Disarm(int timer) { timers_.at(static_cast<std::size_t>(timer)).reset(); }

void DesktopHost::WantTurnAt(std::optional<std::int64_t> at) {
  turnAt_ = at;
  SetAlarm();
}

// Asked at every answer: a drawing once drawn is not opened again.
bool DesktopHost::Load(std::string_view fileName) {
  return !Drawing(ConnectionPicture(fileName), kPictureSide, 1).isNull();
}

void DesktopHost::FormChanged() {
  if (turnQueued_) return;
  turnQueued_ = true;
  QMetaObject::invokeMethod(this,
                            AtEdge(this,
                                   [this] {
                                     turnQueued_ = false;
                                     Q_EMIT TurnEnded();
                                   }),
                            Qt::QueuedConnection);
}

// ---- what is due

int DesktopHost::FirstTimer() const {
  int first = -1;
  for (std::size_t i = 0; i < timers_.size(); ++i) {
    if (!timers_[i]) continue;
    const auto before = [&](const Due& a, const Due& b) { return std::pair(a.at, a.armed) < std::pair(b.at, b.armed); };
    if (first < 0 || before(*timers_[i], *timers_[static_cast<std::size_t>(first)])) first = static_cast<int>(i);
  }
  return first;
}

// What is due while there are too many boxes waits in its order.
void DesktopHost::SetAlarm() {
  std::optional<std::int64_t> next = turnAt_;
  const auto take = [&next](std::int64_t at) { next = std::min(at, next.value_or(at)); };
  if (!Full()) {
    if (const int timer = FirstTimer(); timer >= 0) take(timers_[static_cast<std::size_t>(timer)]->at);
    if (const auto due = manager_ == nullptr ? std::nullopt : manager_->NextDue()) take(*due);
  }
  clock_.SetAlarm(next);
}

// One delivery or timer an alarm, so that the operator comes in between.
void DesktopHost::RunDue() {
  if (turnAt_ && *turnAt_ <= clock_.Now()) {
    turnAt_.reset();
    FormChanged();
  }
  if (!Full()) RunOne();
  SetAlarm();
}

void DesktopHost::RunOne() {
  const int timer = FirstTimer();
  const auto answer = manager_->NextDue();
  const auto at = timer < 0 ? std::nullopt : std::optional(timers_[static_cast<std::size_t>(timer)]->at);
  if (at && *at <= clock_.Now() && *at <= answer.value_or(*at)) {
    timers_[static_cast<std::size_t>(timer)].reset();
    control_->TimerDue(timer);
    FormChanged();
  } else if (answer && *answer <= clock_.Now()) {
    Guarded([this] { manager_->RunOne(clock_.Now()); });
    FormChanged();
  }
}

}  // namespace htr60::desktop
