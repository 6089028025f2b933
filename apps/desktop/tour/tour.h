#pragma once

#include <QDir>
#include <QTimer>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "desktop/tour/tour_steps.h"
#include "desktop/window/clock.h"
#include "desktop/window/main_window.h"

namespace htr60::desktop {

/// Goes through the window by a table of steps, with the operator's own means: presses, keys and picks of widgets.
/// Each step is printed in the operator's words when its turn comes, and at the end how it went; the first that cannot
/// be done, or not be printed, ends the tour.
class Tour final : public QObject {
  Q_OBJECT

 public:
  using Print = std::function<bool(std::string_view)>;

  /// The clock goes on where a step has to wait. Pictures go to `folder`, which exists, and the steps to `print`, which
  /// answers false where it cannot.
  Tour(MainWindow& window, SteppedClock& clock, UserCntrl& control, std::span<const TourStep> steps, const QDir& folder,
       Print print);
  void Start();
  /// What could not be written, a sentence; empty: everything was.
  const QString& NotWritten() const { return notWritten_; }

 Q_SIGNALS:
  /// `exitCode` is 0 where all steps were done.
  void Finished(int exitCode);

 private:
  enum class Outcome { kDone, kNotYet, kCannot };

  void Tick();
  bool Wait();
  Outcome Try(const TourStep& step);
  QString Words(const TourStep& step) const;
  QString NameOfField(ControlId control) const;
  QString NameOfPicture(const TourStep& step) const;
  Outcome Press(ButtonId button);
  Outcome PressTab(const TourStep& step);
  Outcome Type(const TourStep& step);
  Outcome Choose(const TourStep& step);
  Outcome PressBox(const TourStep& step);
  Outcome PressBar(const TourStep& step);
  Outcome ChooseInMenu(const TourStep& step);
  Outcome Paste(const TourStep& step);
  Outcome Pass(const TourStep& step);
  Outcome PressDock(const TourStep& step);
  Outcome BeginFault(const TourStep& step);
  Outcome Follow(const TourStep& step);
  Outcome TakePicture(const TourStep& step);
  void Focus(QWidget& widget);
  bool Say(const QString& line);
  bool SayStep(std::size_t number, const TourStep& step);
  std::string Localized(std::string_view text) const;
  void End(const QString& verdict, int exitCode);

  MainWindow& window_;
  SteppedClock& clock_;
  UserCntrl& control_;
  std::span<const TourStep> steps_;
  QDir folder_;
  Print print_;
  QString notWritten_;
  QTimer ticks_;
  std::int64_t patientUntil_ = 0;
  int tries_ = 0;  // of the step, in which nothing was to be waited for
  std::size_t next_ = 0;
  std::size_t said_ = 0;  // steps printed
  int pictures_ = 0;
  QSize size_;  // before the window was made small
};

}  // namespace htr60::desktop
