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

/// A text that can be copied whole, also where only its beginning fits.
class CopyLabel final : public QLabel {
  Q_OBJECT

 public:
  explicit CopyLabel(QWidget* parent);
  void SetFullText(const QString& text);
  const QString& FullText() const { return full_; }
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void Fit();
  QString full_;
};

/// The health of the instrument; a press leads to where it was read.
class HealthButton final : public QToolButton {
  Q_OBJECT

 public:
  explicit HealthButton(QWidget* parent);
  void SetFullText(const QString& text);
  const QString& FullText() const { return full_; }
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Fit();
  QString full_;
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
  void changeEvent(QEvent* event) override;

 private:
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
