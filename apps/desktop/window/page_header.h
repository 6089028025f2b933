#pragma once

#include <QLabel>
#include <QWidget>

#include "desktop/core.h"
#include "desktop/figure/shapes.h"

namespace htr60::desktop {

/// Title, purpose and the line that says how old the values are.
class PageHeader final : public QWidget {
  Q_OBJECT

 public:
  explicit PageHeader(QWidget* parent);
  void Apply(const presentation::Screen& screen);
  QString Title() const { return title_->text(); }
  QString DataText() const { return data_->text(); }

 private:
  QLabel* title_;
  QLabel* purpose_;
  ShapeSlot* warning_;
  QLabel* data_;
};

}  // namespace htr60::desktop
