#pragma once

#include <QString>
#include <QWidget>
#include <string>
#include <string_view>

namespace htr60::desktop {

inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string ToUtf8(const QString& text) { return text.toStdString(); }

/// The caption with that letter marked for Alt, as Qt writes it; 0: none.
QString WithMnemonic(std::string_view caption, char letter);

/// `units` of 1/96 inch as pixels of the widget's screen.
inline int Pixels(const QWidget& widget, double units) { return qRound(units * widget.logicalDpiX() / 96.0); }

}  // namespace htr60::desktop
