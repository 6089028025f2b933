#pragma once

#include <QFrame>
#include <QLabel>
#include <array>
#include <string_view>

#include "desktop/core.h"

namespace htr60::desktop {

/// Name of the drawing that stands for an icon file of the connection panel, for example "connected.ico".
QString ConnectionPicture(std::string_view iconFile);

/// The four panels of the control: connection with picture, two that stay empty, traffic.
class StatusPanels final : public QFrame {
  Q_OBJECT

 public:
  explicit StatusPanels(QWidget* parent);
  void Apply(const StatusBar& bar);

 protected:
  bool event(QEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void ShowPicture();

  QLabel* picture_;
  std::array<QLabel*, 4> texts_;
  std::string shownPicture_;
};

}  // namespace htr60::desktop
