#pragma once

#include <QWidget>
#include <string>
#include <vector>

#include "desktop/core.h"

namespace htr60::desktop {

/// Through it, and through nothing else, the window speaks to assistive technology by itself.
class LiveRegion final : public QWidget {
  Q_OBJECT

 public:
  explicit LiveRegion(QWidget* parent);
  void Announce(const std::vector<std::string>& texts);
};

}  // namespace htr60::desktop
