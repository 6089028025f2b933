#pragma once

#include <QLabel>
#include <QTimer>
#include <QWidget>
#include <span>

#include "desktop/core.h"
#include "desktop/data_line.h"
#include "desktop/shapes.h"

namespace htr60::desktop {

/// Title, purpose and the line that says how old the values are.
class PageHeader final : public QWidget {
  Q_OBJECT

 public:
  PageHeader(UserCntrl& control, QWidget* parent);
  void Opened() { line_.Opened(control_.form.FrameShownLast()); }
  void Returned() { line_.Returned(control_.form.FrameShownLast()); }
  /// `page` is none where no page is open; `handledCodes` are response codes, 100 times the read's code.
  void Apply(const PageLayout* page, const QString& title, std::span<const int> handledCodes);
  /// The values of the page in front are there and no read is under way.
  bool Settled();
  QString Title() const { return title_->text(); }
  QString DataText() const { return data_->text(); }

 private:
  bool Reading();
  int PollingInterval();
  void ShowLine();

  UserCntrl& control_;
  DataLine line_;
  bool reads_ = false;  // the page in front has reads of its own
  QTimer clock_;
  QLabel* title_;
  QLabel* purpose_;
  ShapeSlot* warning_;
  QLabel* data_;
  bool startRead_ = true;  // the start's own reads do not show in the traffic panel
};

}  // namespace htr60::desktop
