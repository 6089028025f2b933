#pragma once

#include <QDir>
#include <QElapsedTimer>
#include <QTimer>
#include <span>

#include "desktop/main_window.h"
#include "desktop/tour_steps.h"

namespace htr60::desktop {

/// Goes through the window by a table of steps, with the operator's own means: presses, keys and picks of widgets.
/// Each step is printed; the first that cannot be done ends the tour.
class Tour final : public QObject {
  Q_OBJECT

 public:
  /// Pictures go to `folder`, which exists.
  Tour(MainWindow& window, UserCntrl& control, std::span<const TourStep> steps, const QDir& folder);
  void Start();

 Q_SIGNALS:
  /// `exitCode` is 0 where all steps were done.
  void Finished(int exitCode);

 private:
  enum class Outcome { kDone, kNotYet, kCannot };

  void Tick();
  Outcome Try(const TourStep& step);
  Outcome Press(ButtonId button);
  Outcome PressTab(const TourStep& step);
  Outcome Type(const TourStep& step);
  Outcome Choose(const TourStep& step);
  Outcome PressBox(const TourStep& step);
  Outcome TakePicture(const TourStep& step);
  void End(int exitCode);

  MainWindow& window_;
  UserCntrl& control_;
  std::span<const TourStep> steps_;
  QDir folder_;
  QTimer ticks_;
  QElapsedTimer sinceStep_;
  std::size_t next_ = 0;
  int pictures_ = 0;
  QSize size_;  // before the window was made small
};

/// One line that says what a step does.
QString Describe(const TourStep& step);

}  // namespace htr60::desktop
