#pragma once

#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QWidget>

#include "desktop/core.h"

namespace htr60::desktop {

/// Back, the counts, the message line, Revert, Save and Write.
class ActionArea final : public QWidget {
  Q_OBJECT

 public:
  explicit ActionArea(QWidget* parent);
  void Apply(Form& form, const presentation::Screen& screen);
  QString Message() const { return message_->text(); }
  QString Footer() const { return footer_->isHidden() ? QString() : footer_->text(); }
  QPushButton* Back() const { return back_; }
  QPushButton* Revert() const { return revert_; }
  QPushButton* Save() const { return save_; }
  QPushButton* Write() const { return write_; }

 Q_SIGNALS:
  void BackPressed();
  void RevertPressed();
  void WritePressed();
  void FooterPressed();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void SetProminent(bool prominent);
  void ShowProminence();

  QPushButton* back_;
  QToolButton* footer_;
  QLabel* message_;
  QPushButton* revert_;
  QPushButton* save_;
  QPushButton* write_;
  bool prominent_ = false;
};

}  // namespace htr60::desktop
