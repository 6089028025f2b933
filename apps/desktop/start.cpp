#include "desktop/start.h"

#include <QMessageBox>
#include <cstdlib>

#include "desktop/standard_streams.h"

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

namespace htr60::desktop {
namespace {

bool starting = false;

void OnMessage(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
  if (type != QtFatalMsg && type != QtCriticalMsg) return;
  if (type == QtFatalMsg && starting) {
    Complain("no display can be opened. Without one, --tour DIR renders the pages as pictures.");
    std::_Exit(1);
  }
  Complain(text.toStdString());
}

bool HasTerminal() {
#ifdef Q_OS_UNIX
  const int terminal = open("/dev/tty", O_RDONLY | O_NOCTTY | O_CLOEXEC);
  if (terminal < 0) return false;
  close(terminal);
#endif
  return true;
}

bool HasScreen() {
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  const bool set = qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
  return set && (platform.isEmpty() || platform.startsWith("xcb") || platform.startsWith("wayland"));
}

}  // namespace

void SetToolkitTells(ToolkitTells tells) {
  starting = tells == ToolkitTells::kNothingAtStart;
  qInstallMessageHandler(tells == ToolkitTells::kAll ? nullptr : OnMessage);
}

bool WantsWindow() { return HasScreen() && !HasTerminal(); }

void ShowComplaint(const QString& sentence) {
  QMessageBox box(QMessageBox::Critical, QStringLiteral("HTR60"), sentence, QMessageBox::Ok);
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

}  // namespace htr60::desktop
