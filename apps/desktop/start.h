#pragma once

#include <QString>

namespace htr60::desktop {

/// Whether messages of the toolkit about itself are told. Until then they are not, and a display that cannot be opened
/// ends the program with a sentence and status 1, where the toolkit would abort.
enum class ToolkitTells { kNothingAtStart, kNothing, kAll };
void SetToolkitTells(ToolkitTells tells);

/// There is a screen to open a window on, and nobody at a terminal to read standard error.
bool WantsWindow();

/// Says in a window what keeps the program from starting, until it is closed.
void ShowComplaint(const QString& sentence);

}  // namespace htr60::desktop
