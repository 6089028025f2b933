#include "desktop/application.h"

#include <QAbstractButton>
#include <QScopedValueRollback>
#include <QShortcutEvent>
#include <QStyle>

#include "desktop/edge.h"
#include "desktop/figure/outline_style.h"
#include "desktop/figure/tones.h"

namespace htr60::desktop {

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
  // Other styles draw edges of their own choice.
  if (style()->objectName() == QLatin1String("fusion")) setStyle(new OutlineStyle(QStringLiteral("fusion")));
  SetPalette();
}

void Application::UsePalette(const QString& name) {
  palette_ = name;
  SetPalette();
}

// A system's selection need not be readable; the rest of its palette is followed as it stands.
void Application::SetPalette() {
  const QScopedValueRollback<bool> setting(setting_, true);
  setPalette(PaletteOf(palette_).value_or(QPalette()));
  const QPalette plain = palette();
  QPalette readable = PaletteOf(palette_).value_or(QPalette());
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
    readable.setColor(
        group, QPalette::Highlight,
        Against(plain.color(group, QPalette::HighlightedText), plain.color(group, QPalette::Highlight), kTextContrast));
  }
  setPalette(readable);
}

bool Application::event(QEvent* event) {
  const bool taken = QApplication::event(event);
  if (event->type() == QEvent::ApplicationPaletteChange && !setting_) Guarded([this] { SetPalette(); });
  return taken;
}

bool Application::notify(QObject* receiver, QEvent* event) {
  // Held down, the letter of a button presses it once: each press may write to the device.
  if (event->type() == QEvent::Shortcut && qobject_cast<QAbstractButton*>(receiver) != nullptr) {
    static_cast<QWidget*>(receiver)->setShortcutAutoRepeat(static_cast<QShortcutEvent*>(event)->shortcutId(), false);
  }
  return GuardedTakes([&] { return QApplication::notify(receiver, event); });
}

}  // namespace htr60::desktop
