#pragma once

#include <QLabel>
#include <QString>
#include <functional>
#include <string_view>

#include "desktop/window/desktop_host.h"

namespace htr60::desktop {

/// What a dock knows of the window that it stands in.
struct DockContext {
  DesktopHost& host;
  presentation::Presentation& presented;
};

/// A line in a dock that says what became of a press: read out, and empty while there is nothing to say.
class DockMessage final : public QLabel {
  Q_OBJECT

 public:
  explicit DockMessage(QWidget* parent);
  void Say(const QString& sentence);
};

/// Time of day of a moment of the host's clock, with or without milliseconds.
std::function<std::string(std::int64_t)> ClockOf(const DesktopHost& host, bool milliseconds);

/// Asks where to save, with a name proposed from tag and date. Empty: the operator has thought better of it.
QString AskForFile(QWidget* parent, const DockContext& context, std::string_view what, std::string_view ending,
                   const QString& filter);
/// Saves, and says what came of it.
void SaveAndSay(const QString& file, std::string_view bytes, DockMessage& message);

}  // namespace htr60::desktop
