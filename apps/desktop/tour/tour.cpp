#include "desktop/tour/tour.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QSaveFile>
#include <QTabBar>

#include "desktop/docks/docks.h"
#include "desktop/docks/record/record_dock.h"
#include "desktop/docks/simulator/simulator_dock.h"
#include "desktop/edge.h"
#include "desktop/page/choice_field.h"
#include "desktop/page/field_widgets.h"
#include "desktop/page/page_area.h"
#include "desktop/page/page_bar.h"
#include "desktop/qt_text.h"
#include "desktop/window/action_area.h"
#include "desktop/window/keys.h"
#include "desktop/window/page_header.h"
#include "desktop/window/tree_panel.h"
#include "form/control_names.h"

namespace htr60::desktop {
namespace {

constexpr int kLayoutPasses = 3;
constexpr int kPatienceMs = 20'000;
constexpr int kMostTries = 1000;  // of what needs no time, but turns of the event loop

constexpr int kLargeWidth = 1280;  // of 1/96 inch
constexpr int kLargeHeight = 1000;

void ClickAt(QWidget& widget, const QPoint& at) {
  const QPointF place = at;
  const QPointF global = widget.mapToGlobal(place);
  QMouseEvent press(QEvent::MouseButtonPress, place, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&widget, &press);
  QMouseEvent release(QEvent::MouseButtonRelease, place, global, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(&widget, &release);
}

// The widget of a control that is to be seen: a control has one on each page view that shows it.
template <class Widget>
Widget* Shown(QWidget& window, ControlId control) {
  for (Widget* widget : window.findChildren<Widget*>(ToQt(NameOf(control)))) {
    if (widget->isVisible()) return widget;
  }
  return nullptr;
}

}  // namespace

Tour::Tour(MainWindow& window, SteppedClock& clock, UserCntrl& control, std::span<const TourStep> steps,
           const QDir& folder, Print print)
    : window_(window), clock_(clock), control_(control), steps_(steps), folder_(folder), print_(std::move(print)) {
  ticks_.setInterval(0);
  ticks_.setSingleShot(true);
  Connect(&ticks_, &QTimer::timeout, this, &Tour::Tick);
}

void Tour::Start() {
  patientUntil_ = clock_.Now() + kPatienceMs;
  ticks_.start();
}

// One step a tick, so that the window has its turn in between; a step that is not ready is tried again.
void Tour::Tick() {
  if (next_ == steps_.size()) {
    return End(QStringLiteral("Done: all %1 steps, %2 pictures in %3").arg(next_).arg(pictures_).arg(folder_.path()),
               0);
  }
  // Begun anew first: a timer in the middle of its own timeout would stand still in a box's event loop.
  ticks_.start();
  const TourStep& step = steps_[next_];
  // A box that the step opens runs its own event loop: the ticks within it belong to the step after it.
  const std::size_t number = ++next_;
  if (!SayStep(number, step)) return End({}, 1);
  const Outcome outcome = Try(step);
  const bool late = outcome == Outcome::kNotYet;
  if (late) {
    --next_;  // first, for what is waited for may be a box
    if (Wait()) return;
    ++next_;
  }
  if (outcome != Outcome::kDone) {
    return End(QStringLiteral("Stopped at step %1 of %2: %3")
                   .arg(number)
                   .arg(steps_.size())
                   .arg(QLatin1String(late ? "waited too long" : "it cannot be done")),
               1);
  }
  patientUntil_ = clock_.Now() + kPatienceMs;
  tries_ = 0;
}

// False where it has been long enough.
bool Tour::Wait() {
  if (clock_.Now() > patientUntil_) return false;
  return clock_.Step() || ++tries_ < kMostTries;
}

bool Tour::Say(const QString& line) {
  if (print_(ToUtf8(line) + '\n')) return true;
  notWritten_ = QStringLiteral("the steps of the tour cannot be written to standard output");
  return false;
}

// Each step once, however often it is tried.
bool Tour::SayStep(std::size_t number, const TourStep& step) {
  if (number <= said_) return true;
  said_ = number;
  return Say(QStringLiteral("%1/%2  %3").arg(number, 3).arg(steps_.size()).arg(Words(step)));
}

// Numbers of the steps have a point, where the operator may have a comma.
std::string Tour::Localized(std::string_view text) const {
  std::string localized(text);
  const auto point = localized.find('.');
  const bool number = point != std::string::npos && localized.find_first_not_of("-0123456789.") == std::string::npos;
  if (number) localized[point] = control_.codecs.DecimalSeparator();
  return localized;
}

void Tour::End(const QString& verdict, int exitCode) {
  ticks_.stop();
  if (QWidget* box = QApplication::activeModalWidget()) box->close();
  if (!verdict.isEmpty() && !Say(verdict)) exitCode = 1;
  Q_EMIT Finished(exitCode);
}

Tour::Outcome Tour::Try(const TourStep& step) {
  switch (step.what) {
    case TourDo::kNode:
      return window_.Tree().Press(ToQt(step.text)) ? Outcome::kDone : Outcome::kCannot;
    case TourDo::kButton:
      return Press(ButtonId{step.control});
    case TourDo::kTab:
      return PressTab(step);
    case TourDo::kType:
    case TourDo::kCode:
      return Type(step);
    case TourDo::kChoose:
      return Choose(step);
    case TourDo::kWrite:
      return Press(id::cmdWriteParameter);
    case TourDo::kPaste:
      return Paste(step);
    case TourDo::kRevert:
      window_.Actions().Revert()->click();
      return Outcome::kDone;
    case TourDo::kBox:
      return PressBox(step);
    case TourDo::kBar:
      return PressBar(step);
    case TourDo::kMenu:
      return ChooseInMenu(step);
    case TourDo::kClose:
      window_.close();
      return Outcome::kDone;
    case TourDo::kWait:
      return window_.Presented().Settled() ? Outcome::kDone : Outcome::kNotYet;
    case TourDo::kPass:
      return Pass(step);
    case TourDo::kExpect:
      return control_.form.TextOf(step.control) == Localized(step.text) ? Outcome::kDone : Outcome::kNotYet;
    case TourDo::kSmallest:
      if (step.text.empty()) size_ = window_.size();
      window_.resize(step.text.empty() ? window_.minimumSize() : size_);
      return Outcome::kDone;
    case TourDo::kLarge:
      if (step.text.empty()) size_ = window_.size();
      window_.resize(step.text.empty() ? QSize(Pixels(window_, kLargeWidth), Pixels(window_, kLargeHeight)) : size_);
      return Outcome::kDone;
    case TourDo::kDock:
      return PressDock(step);
    case TourDo::kFault:
      return BeginFault(step);
    case TourDo::kProcess: {
      auto* number = window_.findChild<QDoubleSpinBox*>(ToQt(step.text));
      if (number == nullptr) return Outcome::kCannot;
      number->setValue(step.number);
      return Outcome::kDone;
    }
    case TourDo::kOperator: {
      auto* name = window_.Around().Calibrated().findChild<QLineEdit*>(QStringLiteral("operatorName"));
      name->setText(ToQt(step.text));
      Q_EMIT name->editingFinished();
      return Outcome::kDone;
    }
    case TourDo::kRecord: {
      const QString file = folder_.filePath(ToQt(step.text).replace(QLatin1Char(' '), QLatin1Char('-')));
      window_.Around().Calibrated().SaveTo(file);
      return QFile::exists(file) ? Outcome::kDone : Outcome::kCannot;
    }
    case TourDo::kFollow:
      return Follow(step);
    case TourDo::kPicture:
      return TakePicture(step);
  }
  return Outcome::kCannot;
}

Tour::Outcome Tour::Press(ButtonId button) {
  auto* shown = Shown<QAbstractButton>(window_, button);
  if (shown == nullptr || !shown->isEnabled()) return Outcome::kCannot;
  shown->click();
  return Outcome::kDone;
}

Tour::Outcome Tour::PressTab(const TourStep& step) {
  auto* strip = Shown<QTabBar>(window_, step.control);
  if (strip == nullptr || step.number >= strip->count()) return Outcome::kCannot;
  ClickAt(*strip, strip->tabRect(step.number).center());
  return strip->currentIndex() == step.number ? Outcome::kDone : Outcome::kCannot;
}

// Without a screen nobody gives the window the keyboard back when a list has closed.
void Tour::Focus(QWidget& widget) {
  if (QApplication::activeWindow() == nullptr) {
    ticks_.stop();  // the next step is not to begin meanwhile
    window_.activateWindow();
    QApplication::processEvents();
    ticks_.start();
  }
  widget.setFocus(Qt::MouseFocusReason);
}

Tour::Outcome Tour::Type(const TourStep& step) {
  auto* field = Shown<QLineEdit>(window_, step.control);
  if (field == nullptr || !field->isEnabled() || field->isReadOnly()) return Outcome::kCannot;
  Focus(*field);
  field->selectAll();
  SendKey(*field, Qt::Key_Delete);
  const QString text = ToQt(Localized(step.text));
  SendText(*field, text);
  return field->text() == text ? Outcome::kDone : Outcome::kCannot;
}

Tour::Outcome Tour::Choose(const TourStep& step) {
  auto* field = Shown<ChoiceField>(window_, step.control);
  if (field == nullptr || !field->isEnabled()) return Outcome::kCannot;
  Focus(*field);
  field->showPopup();
  if (field->Popup() == nullptr) return Outcome::kCannot;
  QListView* list = field->Popup()->List();
  for (int row = 0; row < list->model()->rowCount(); ++row) {
    const QModelIndex index = list->model()->index(row, 0);
    if (!index.flags().testFlag(Qt::ItemIsSelectable) || index.data().toString() != ToQt(step.text)) continue;
    list->setCurrentIndex(index);
    SendKey(*list, Qt::Key_Return);
    return field->Popup() == nullptr || !field->Popup()->isVisible() ? Outcome::kDone : Outcome::kCannot;
  }
  field->hidePopup();
  return Outcome::kCannot;
}

Tour::Outcome Tour::PressBox(const TourStep& step) {
  auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  if (box == nullptr) return Outcome::kNotYet;
  const QMessageBox::StandardButton wanted = step.text == "Yes"  ? QMessageBox::Yes
                                             : step.text == "No" ? QMessageBox::No
                                                                 : QMessageBox::Ok;
  QAbstractButton* button = box->button(wanted);
  if (button == nullptr) return Outcome::kCannot;
  button->click();
  return Outcome::kDone;
}

Tour::Outcome Tour::PressBar(const TourStep& step) {
  for (QPushButton* button : window_.Page().Bar().Buttons()) {
    if (!button->isVisible() || button->text().remove(u'&') != ToQt(step.text)) continue;
    button->click();
    return Outcome::kDone;
  }
  return Outcome::kNotYet;
}

Tour::Outcome Tour::ChooseInMenu(const TourStep& step) {
  for (QAction* action : window_.findChildren<QAction*>()) {
    if (action->text() != ToQt(step.text)) continue;
    action->trigger();
    return Outcome::kDone;
  }
  return Outcome::kCannot;
}

// The entry of the menu, as the operator picks it.
Tour::Outcome Tour::PressDock(const TourStep& step) {
  for (QAction* action : window_.Around().Actions()) {
    if (action->text() != ToQt(step.text)) continue;
    action->trigger();
    return Outcome::kDone;
  }
  return Outcome::kCannot;
}

Tour::Outcome Tour::Paste(const TourStep& step) {
  auto* field = Shown<TextEntry>(window_, step.control);
  if (field == nullptr || !field->isEnabled()) return Outcome::kCannot;
  Focus(*field);
  QApplication::clipboard()->setText(ToQt(step.text));
  SendKey(*field, Qt::Key_V, Qt::ControlModifier);
  return Outcome::kDone;
}

Tour::Outcome Tour::Pass(const TourStep& step) {
  ticks_.stop();  // the next step is not to begin meanwhile
  const std::int64_t until = clock_.Now() + std::int64_t{step.number} * 1000;
  while (clock_.Now() < until) {
    clock_.StepUntil(until);
    QApplication::processEvents();
  }
  ticks_.start();
  return Outcome::kDone;
}

QString Tour::NameOfPicture(const TourStep& step) const {
  return QStringLiteral("%1-%2.png")
      .arg(pictures_ + 1, 3, 10, QLatin1Char('0'))
      .arg(ToQt(step.text).replace(QLatin1Char(' '), QLatin1Char('-')));
}

Tour::Outcome Tour::BeginFault(const TourStep& step) {
  SimulatorDock& dock = window_.Around().Simulator();
  if (step.text == "none") {
    for (QPushButton* button : dock.findChildren<QPushButton*>()) {
      if (button->text() != QLatin1String("End all") || !button->isEnabled()) continue;
      button->click();
      return Outcome::kDone;
    }
    return Outcome::kCannot;
  }
  auto* kind = dock.findChild<QComboBox*>(QStringLiteral("faultKind"));
  const int row = kind->findText(ToQt(step.text));
  if (row < 0) return Outcome::kCannot;
  kind->setCurrentIndex(row);
  dock.findChild<QPushButton*>(QStringLiteral("beginFault"))->click();
  return Outcome::kDone;
}

Tour::Outcome Tour::Follow(const TourStep& step) {
  for (const presentation::FieldAddition& addition : window_.Presented().Additions(step.control)) {
    if (!addition.enabled || !addition.run) continue;
    addition.run();
    return Outcome::kDone;
  }
  return Outcome::kCannot;
}

Tour::Outcome Tour::TakePicture(const TourStep& step) {
  // A page that has just come is laid out in several passes.
  for (int i = 0; i < kLayoutPasses; ++i) QApplication::sendPostedEvents();
  const QString name = NameOfPicture(step);
  ++pictures_;
  QBuffer picture;
  if (!picture.open(QIODevice::WriteOnly) || !window_.grab().save(&picture, "PNG")) return Outcome::kCannot;
  // A picture that is not written to its end leaves no file.
  QSaveFile file(folder_.filePath(name));
  const bool written = file.open(QIODevice::WriteOnly) && file.write(picture.data()) == picture.size();
  if (written && file.commit()) return Outcome::kDone;
  notWritten_ = QStringLiteral("%1 cannot be written: %2").arg(file.fileName(), file.errorString());
  return Outcome::kCannot;
}

}  // namespace htr60::desktop
