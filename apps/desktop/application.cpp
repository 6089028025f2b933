#include "desktop/application.h"

#include <QAbstractButton>
#include <QShortcutEvent>

#include "desktop/edge.h"

namespace htr60::desktop {

bool Application::notify(QObject* receiver, QEvent* event) {
  // Held down, the letter of a button presses it once: each press may write to the device.
  if (event->type() == QEvent::Shortcut && qobject_cast<QAbstractButton*>(receiver) != nullptr) {
    static_cast<QWidget*>(receiver)->setShortcutAutoRepeat(static_cast<QShortcutEvent*>(event)->shortcutId(), false);
  }
  return GuardedTakes([&] { return QApplication::notify(receiver, event); });
}

}  // namespace htr60::desktop
