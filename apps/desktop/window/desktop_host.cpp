#include "desktop/window/desktop_host.h"

#include <QLocale>
#include <QMessageBox>
#include <QScopeGuard>
#include <algorithm>

#include "desktop/edge.h"
#include "desktop/figure/drawings.h"
#include "desktop/qt_text.h"
#include "desktop/window/status_panels.h"
#include "pages/pages.h"

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

DesktopHost::DesktopHost(const sim::Settings& settings, const QString& preset) : preset_(preset) {
  clock_.start();
  transmitterTimer_.setSingleShot(true);
  transmitterTimer_.setTimerType(Qt::PreciseTimer);
  Connect(&transmitterTimer_, &QTimer::timeout, this, &DesktopHost::RunTransmitter);
  for (int i = 0; i < static_cast<int>(kTimerCount); ++i) {
    QTimer& timer = timers_[static_cast<std::size_t>(i)];
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    Connect(&timer, &QTimer::timeout, this, [this, i] { TimerDue(i); });
  }
  manager_ = sim::Manager::Create(settings, [this] { return clock_.elapsed(); });
  manager_->onScheduleChanged = [this] { ArmTransmitter(); };
  ArmTransmitter();
  const Ports ports{
      .boxes = *this, .timers = *this, .icons = *this, .watcher = this, .decimalSeparator = DecimalSeparator()};
  control_ = UserCntrl::Create(ports, PagesOfHtr60());
  control_->Init("htr60", "", manager_);
}

std::string DesktopHost::Simulated() const { return preset_.isEmpty() ? "SIMULATED" : "SIMULATED: " + ToUtf8(preset_); }

DesktopHost::~DesktopHost() {
  control_->PrepareToRelease();
  control_.reset();
  manager_->onScheduleChanged = nullptr;
}

BoxButton DesktopHost::Show(const MessageBox& box) {
  ++openBoxes_;
  const auto closing = qScopeGuard([this] {
    --openBoxes_;
    ArmTransmitter();
  });
  ArmTransmitter();  // answers go on while the box is open, also when it was opened while one was handled
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
  Disarm(timer);
  timers_.at(static_cast<std::size_t>(timer)).start(milliseconds);
}

void DesktopHost::Disarm(int timer) {
  timers_.at(static_cast<std::size_t>(timer)).stop();
  std::erase_if(waitingTimers_, [timer](const WaitingTimer& waiting) { return waiting.timer == timer; });
}

void DesktopHost::TimerDue(int timer) {
  if (!Full() && waitingTimers_.empty()) return RunTimer(timer);
  waitingTimers_.push_back({timer, clock_.elapsed()});
  ArmTransmitter();
}

void DesktopHost::RunTimer(int timer) {
  control_->TimerDue(timer);
  FormChanged();
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

// Armed for what is due first, the transmitter's next item or a timer that waits.
void DesktopHost::ArmTransmitter() {
  if (manager_ == nullptr || Full()) return transmitterTimer_.stop();
  auto due = manager_->NextDue();
  if (!waitingTimers_.empty()) due = std::min(waitingTimers_.front().due, due.value_or(clock_.elapsed()));
  if (!due) return transmitterTimer_.stop();
  transmitterTimer_.start(static_cast<int>(std::clamp<std::int64_t>(*due - clock_.elapsed(), 0, 24 * 3600 * 1000)));
}

// One delivery a turn, so that the control's timers and the operator come in between.
void DesktopHost::RunTransmitter() {
  if (Full()) return;
  const auto due = manager_->NextDue();
  if (!waitingTimers_.empty() && waitingTimers_.front().due <= due.value_or(waitingTimers_.front().due)) {
    const int timer = waitingTimers_.front().timer;
    waitingTimers_.pop_front();
    RunTimer(timer);
  } else {
    Guarded([this] { manager_->RunOne(clock_.elapsed()); });
    FormChanged();
  }
  ArmTransmitter();
}

}  // namespace htr60::desktop
