#pragma once

#include "desktop/core.h"

class QWidget;

namespace htr60::desktop {

/// Tells what a widget is to the keyboard.
void BearSpot(QWidget& widget, presentation::Spot spot);

/// The spot of a widget, or of what it is a part of; elsewhere where it is none.
presentation::Spot SpotOf(const QWidget* widget);

/// The visible widget of a spot below `root`; null where there is none.
QWidget* FindSpot(const QWidget& root, presentation::Spot spot);

}  // namespace htr60::desktop
