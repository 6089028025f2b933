#pragma once

#include <QApplication>
#include <QKeyEvent>

namespace htr60::desktop {

/// Presses and releases a key at a widget, as an operator does who has the focus there.
inline void SendKey(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                    const QString& text = {}) {
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, modifiers, text);
    QApplication::sendEvent(&widget, &event);
  }
}

/// Types a text at a widget, letter by letter.
inline void SendText(QWidget& widget, const QString& text) {
  for (const QChar letter : text) SendKey(widget, 0, Qt::NoModifier, letter);
}

}  // namespace htr60::desktop
