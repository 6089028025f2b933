#pragma once

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <optional>
#include <vector>

#include "desktop/core.h"

namespace htr60::desktop {

/// A question across the page area, with a button for each answer.
class PageBar final : public QFrame {
  Q_OBJECT

 public:
  explicit PageBar(QWidget* parent);
  void Apply(const std::optional<presentation::ScreenBar>& bar);
  QString Text() const { return isHidden() ? QString() : text_->text(); }
  const std::vector<QPushButton*>& Buttons() const { return buttons_; }

 Q_SIGNALS:
  void Answered(int button);

 private:
  void MakeButtons(const std::vector<std::string>& captions);

  QLabel* text_;
  std::vector<QPushButton*> buttons_;
  std::vector<std::string> captions_;
};

}  // namespace htr60::desktop
