#pragma once

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "desktop/core.h"
#include "desktop/figure/shapes.h"

namespace htr60::desktop {

/// A text of which only the beginning is shown where it does not fit. `kAside`: characters that the widget needs beside
/// it.
template <class Widget, int kAside>
class FittedText : public Widget {
 public:
  using Widget::Widget;
  void SetFullText(const QString& text) {
    if (text == full_) return;
    full_ = text;
    this->updateGeometry();
    Fit();
  }
  const QString& FullText() const { return full_; }
  /// Characters that it shows at least, where it has as many.
  void SetLeast(int characters) {
    if (characters == least_) return;
    least_ = characters;
    this->updateGeometry();
  }
  QSize sizeHint() const override {
    const QFontMetrics metrics = this->fontMetrics();
    return {metrics.horizontalAdvance(full_) + (kAside + 1) * metrics.averageCharWidth(), metrics.height()};
  }
  QSize minimumSizeHint() const override { return {WidthOfLeast(least_), sizeHint().height()}; }
  int WidthOfLeast(int characters) const {
    return qMin(sizeHint().width(), characters * this->fontMetrics().averageCharWidth());
  }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    Widget::resizeEvent(event);
    Fit();
  }

 private:
  void Fit() {
    const int room = this->width() - kAside * this->fontMetrics().averageCharWidth();
    this->setText(this->fontMetrics().elidedText(full_, Qt::ElideRight, qMax(room, 1)));
  }

  QString full_;
  int least_ = 8;
};

/// Can be copied whole, also where only its beginning fits.
class CopyLabel final : public FittedText<QLabel, 0> {
 public:
  explicit CopyLabel(QWidget* parent);

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;
};

/// The health of the instrument; a press leads to where it was read.
class HealthButton final : public FittedText<QToolButton, 1> {
 public:
  explicit HealthButton(QWidget* parent);
};

/// Who the instrument is, as the program set it last, never what is being typed.
class IdentificationStrip final : public QFrame {
  Q_OBJECT

 public:
  explicit IdentificationStrip(QWidget* parent);
  void Apply(const presentation::Screen& screen, const QString& healthTip);
  /// The tag as the device holds it, without the blanks around it; empty while it was not read.
  QString Tag() const;
  /// What stands in the strip, from left to right.
  QStringList Texts() const;

 Q_SIGNALS:
  void HealthPressed();

 protected:
  bool event(QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Fit();
  void ShowPadlock();
  void AddBar(QHBoxLayout& line);

  std::array<QLabel*, 2> badges_{};
  std::vector<CopyLabel*> labels_;
  QLabel* padlock_;
  ShapeSlot* healthShape_;
  HealthButton* health_;
  QString tag_;
};

}  // namespace htr60::desktop
